#include "messages/account.hpp"

#include <gtest/gtest.h>

#include "record_check.hpp"

namespace orvanta::messages {
namespace {

using test::check_record;

TEST(AccountRecords, WireForms) {
  check_record(connect_login_request_codec, {.source = LoginSource::zeroconf}, R"({"source":"zeroconf"})");
  check_record(connect_login_request_codec, {.source = LoginSource::pull_notification},
               R"({"source":"pull_notification"})");
  check_record(tk_message_auth_policy_response_codec, {.enabled = true}, R"({"enabled":true})", "enabled");
  check_record(me_response_codec,
               {.username = "ada", .display_name = "Ada L.", .country = "SE", .product = "premium",
                .catalogue = "premium-family"},
               R"({"username":"ada","display_name":"Ada L.","country":"SE","product":"premium",)"
               R"("catalogue":"premium-family"})", "username display_name country product catalogue");
}

}  // namespace
}  // namespace orvanta::messages
