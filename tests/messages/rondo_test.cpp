#include "messages/rondo.hpp"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "record_check.hpp"

namespace orvanta::messages {
namespace {

using test::decode_outcome;
using test::runner;
using test::WireCase;

constexpr std::string_view kStatus =
    R"({"session_id":"s1","is_session_owner":true,"active":false,"member_count":2,"queue_only_mode":true,)"
    R"("volume_control_enabled":false,"members":[)"
    R"({"username":"u1","display_name":"Ann","image_url":"https://img/1","is_current_user":true},)"
    R"({"username":"u2","display_name":"Bo","is_current_user":false}],"join_token":"tok"})";

TEST(RondoRecords, WireTable) {
  const WireCase cases[] = {
      {"RondoMember", runner(rondo_member_codec),
       R"({"username":"u1","display_name":"Ann","image_url":"https://img/1","is_current_user":true})",
       "is_current_user"},
      {"RondoStatusResponse", runner(rondo_status_response_codec), kStatus, "members"},
      {"RondoStatusResponse/empty", runner(rondo_status_response_codec),
       R"({"session_id":"","is_session_owner":false,"active":false,"member_count":0,"queue_only_mode":false,)"
       R"("volume_control_enabled":false,"members":[]})",
       "session_id"},
      {"RondoCreateRequest", runner(rondo_create_request_codec), R"({"device_id":"d1","activate":false})", "",
       "activate"},
      {"RondoKickRequest", runner(rondo_kick_request_codec), R"({"member_id":"u2"})", "member_id"},
      {"RondoPermissionsRequest", runner(rondo_permissions_request_codec),
       R"({"queue_only_mode":true,"volume_control":false})"},
      {"RondoPermissionsResponse", runner(rondo_permissions_response_codec),
       R"({"queue_only_mode":true,"volume_control_enabled":false})", "volume_control_enabled"},
  };
  test::check_wire_table(cases);
}

// Ties each key to its member: a key bound to the wrong bool would still
// round-trip.
TEST(RondoRecords, FilledStatusEncodesAsTheTable) {
  RondoStatusResponse status;
  status.session_id = "s1";
  status.is_session_owner = true;
  status.member_count = 2;
  status.queue_only_mode = true;
  status.members.push_back(RondoMember{"u1", "Ann", "https://img/1", true});
  status.members.push_back(RondoMember{"u2", "Bo", std::nullopt, false});
  status.join_token = "tok";
  EXPECT_EQ(json::encode(rondo_status_response_codec(), status), kStatus);
}

}  // namespace
}  // namespace orvanta::messages
