#include "messages/permissions.hpp"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "record_check.hpp"

namespace orvanta::messages {
namespace {

using test::decode_outcome;
using test::runner;
using test::WireCase;

constexpr std::string_view kRequest =
    R"({"type":"permission_request","request_id":"r1","command":"play","permission_type":"playback",)"
    R"("origin":"agent","source_id":"src1","granted":false,"message":"Allow playback?"})";

TEST(PermissionRecords, WireTable) {
  const std::string current = R"({"pending":)" + std::string(kRequest) + "}";
  const WireCase cases[] = {
      {"PermissionsGrantRequest", runner(permissions_grant_request_codec),
       R"({"command":"play","source_id":"src1"})"},
      {"PermissionsGrantResponse", runner(permissions_grant_response_codec), R"({"granted":true,"message":"ok"})",
       "granted"},
      {"PermissionsCurrentResponse", runner(permissions_current_response_codec), current},
      {"PermissionsResolveRequest", runner(permissions_resolve_request_codec),
       R"({"request_id":"r1","granted":true})"},
      {"PermissionsResolveResponse", runner(permissions_resolve_response_codec),
       R"({"success":true,"granted":false,"message":"done"})", "success"},
  };
  test::check_wire_table(cases);
  test::check_record(permission_request_codec,
                     {"permission_request", "r1", "play", "playback", "agent", "src1", false, "Allow playback?"},
                     kRequest, "request_id message");
}

}  // namespace
}  // namespace orvanta::messages
