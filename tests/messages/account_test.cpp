#include "messages/account.hpp"

#include <gtest/gtest.h>

#include "record_check.hpp"

namespace orvanta::messages {
namespace {

using test::check_record;
using test::outcome;

TEST(AccountRecords, WireForms) {
  check_record(connect_login_request_codec, {.source = LoginSource::zeroconf}, R"({"source":"zeroconf"})",
               {.required = "source"});
  check_record(connect_login_request_codec, {.source = LoginSource::pull_notification},
               R"({"source":"pull_notification"})");
  check_record(get_username_hash_response_codec, {.hash = "9f86d081", .salt = "c0ffee"},
               R"({"hash":"9f86d081","salt":"c0ffee"})", {.required = "hash salt"});
  check_record(tk_message_auth_policy_response_codec, {.enabled = true}, R"({"enabled":true})",
               {.required = "enabled"});
  check_record(me_response_codec,
               {.username = "ada", .display_name = "Ada L.", .country = "SE", .product = "premium",
                .catalogue = "premium-family"},
               R"({"username":"ada","display_name":"Ada L.","country":"SE","product":"premium",)"
               R"("catalogue":"premium-family"})",
               {.required = "username display_name country product catalogue"});
  check_record(login_state_notification_codec, {.logged_in = true}, R"({"logged_in":true})",
               {.required = "logged_in"});
  check_record(ble_state_notification_codec, {.broadcasting = true}, R"({"broadcasting":true})",
               {.required = "broadcasting"});
}

// The login source is strict both ways: a word from a newer peer makes the
// whole message undecodable instead of mapping to some default.
TEST(AccountRecords, LoginSourceIsStrict) {
  EXPECT_EQ(outcome(connect_login_request_codec, R"({"source":"lan"})"),
            "error: Encountered unknown enumeration value");
  EXPECT_EQ(outcome(connect_login_request_codec, R"({"source":"Zeroconf"})"),
            "error: Encountered unknown enumeration value");
  EXPECT_EQ(outcome(connect_login_request_codec, R"({"source":0})"), "error: Unexpected input");

  const ConnectLoginRequest unknown{.source = static_cast<LoginSource>(2)};
  try {
    (void)json::encode(connect_login_request_codec(), unknown);
    ADD_FAILURE() << "an unknown enumerator was encoded";
  } catch (const json::encode_exception& e) {
    EXPECT_STREQ(e.what(), "Encoding unknown enumeration value");
  }
}

}  // namespace
}  // namespace orvanta::messages
