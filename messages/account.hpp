// Records of the session and account methods: login, the user name hash,
// the message authentication policy, `me`, and the login and BLE state
// notifications.
#pragma once

#include <cstdint>
#include <string>

#include "json/json.hpp"

namespace orvanta::messages {

// How a login was started. Strict both ways: a word the table doesn't know
// makes the whole message undecodable, and an unlisted value can't be sent.
enum class LoginSource : std::int32_t {
  zeroconf = 0,
  pull_notification = 1,
};

struct ConnectLoginRequest {
  LoginSource source = LoginSource::zeroconf;
  bool operator==(const ConnectLoginRequest&) const = default;
};

struct GetUsernameHashResponse {
  std::string hash{};
  std::string salt{};
  bool operator==(const GetUsernameHashResponse&) const = default;
};

struct TkMessageAuthPolicyResponse {
  bool enabled = false;
  bool operator==(const TkMessageAuthPolicyResponse&) const = default;
};

struct MeResponse {
  std::string username{};
  std::string display_name{};
  std::string country{};
  std::string product{};
  std::string catalogue{};
  bool operator==(const MeResponse&) const = default;
};

// Parameters of the `login_state_subscription` notification.
struct LoginStateNotification {
  bool logged_in = false;
  bool operator==(const LoginStateNotification&) const = default;
};

// Parameters of the `ble_state_subscription` notification.
struct BleStateNotification {
  bool broadcasting = false;
  bool operator==(const BleStateNotification&) const = default;
};

json::EnumerationCodec<LoginSource> login_source_codec();
json::ObjectCodec<ConnectLoginRequest> connect_login_request_codec();
json::ObjectCodec<GetUsernameHashResponse> get_username_hash_response_codec();
json::ObjectCodec<TkMessageAuthPolicyResponse> tk_message_auth_policy_response_codec();
json::ObjectCodec<MeResponse> me_response_codec();
json::ObjectCodec<LoginStateNotification> login_state_notification_codec();
json::ObjectCodec<BleStateNotification> ble_state_notification_codec();

}  // namespace orvanta::messages
