// The session requests and the status answer are pinned byte for byte by the
// rondo command tests (tests/commands); here the status with every member of
// a member, and its bools told apart.
#include "messages/rondo.hpp"

#include <gtest/gtest.h>

#include "record_check.hpp"

namespace orvanta::messages {
namespace {

using test::check_record;

TEST(RondoRecords, WireForms) {
  check_record(rondo_status_response_codec,
               {.session_id = "s1", .is_session_owner = true, .member_count = 2, .queue_only_mode = true,
                .members = {{"u1", "Ann", "https://img/1", true}, {"u2", "Bo", std::nullopt, false}},
                .join_token = "tok"},
               R"({"session_id":"s1","is_session_owner":true,"active":false,"member_count":2,"queue_only_mode":true,)"
               R"("volume_control_enabled":false,"members":[)"
               R"({"username":"u1","display_name":"Ann","image_url":"https://img/1","is_current_user":true},)"
               R"({"username":"u2","display_name":"Bo","is_current_user":false}],"join_token":"tok"})", "members");
  check_record(rondo_member_codec, {"u1", "Ann", std::nullopt, true},
               R"({"username":"u1","display_name":"Ann","is_current_user":true})", "is_current_user");
}

}  // namespace
}  // namespace orvanta::messages
