#include "messages/account.hpp"

namespace orvanta::messages {

using json::presence::required;

json::EnumerationCodec<LoginSource> login_source_codec() {
  return json::enumeration_codec<LoginSource>({
      {LoginSource::zeroconf, "zeroconf"},
      {LoginSource::pull_notification, "pull_notification"},
  });
}

json::ObjectCodec<ConnectLoginRequest> connect_login_request_codec() {
  using R = ConnectLoginRequest;
  json::ObjectCodec<R> codec;
  codec.add_field("source", required, &R::source, login_source_codec());
  return codec;
}

json::ObjectCodec<GetUsernameHashResponse> get_username_hash_response_codec() {
  using R = GetUsernameHashResponse;
  json::ObjectCodec<R> codec;
  codec.add_field("hash", required, &R::hash);
  codec.add_field("salt", required, &R::salt);
  return codec;
}

json::ObjectCodec<TkMessageAuthPolicyResponse> tk_message_auth_policy_response_codec() {
  using R = TkMessageAuthPolicyResponse;
  json::ObjectCodec<R> codec;
  codec.add_field("enabled", required, &R::enabled);
  return codec;
}

json::ObjectCodec<MeResponse> me_response_codec() {
  using R = MeResponse;
  json::ObjectCodec<R> codec;
  codec.add_field("username",     required, &R::username);
  codec.add_field("display_name", required, &R::display_name);
  codec.add_field("country",      required, &R::country);
  codec.add_field("product",      required, &R::product);
  codec.add_field("catalogue",    required, &R::catalogue);
  return codec;
}

json::ObjectCodec<LoginStateNotification> login_state_notification_codec() {
  using R = LoginStateNotification;
  json::ObjectCodec<R> codec;
  codec.add_field("logged_in", required, &R::logged_in);
  return codec;
}

json::ObjectCodec<BleStateNotification> ble_state_notification_codec() {
  using R = BleStateNotification;
  json::ObjectCodec<R> codec;
  codec.add_field("broadcasting", required, &R::broadcasting);
  return codec;
}

}  // namespace orvanta::messages
