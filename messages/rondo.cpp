#include "messages/rondo.hpp"

namespace orvanta::messages {

namespace {
using json::presence::defaulted;
using json::presence::optional;
using json::presence::required;
}  // namespace

json::ObjectCodec<RondoMember> rondo_member_codec() {
  using R = RondoMember;
  json::ObjectCodec<R> codec;
  codec.add_field("username",        required, &R::username);
  codec.add_field("display_name",    required, &R::display_name);
  codec.add_field("image_url",       optional, &R::image_url);
  codec.add_field("is_current_user", required, &R::is_current_user);
  return codec;
}

json::ObjectCodec<RondoStatusResponse> rondo_status_response_codec() {
  using R = RondoStatusResponse;
  json::ObjectCodec<R> codec;
  codec.add_field("session_id",             required, &R::session_id);
  codec.add_field("is_session_owner",       required, &R::is_session_owner);
  codec.add_field("active",                 required, &R::active);
  codec.add_field("member_count",           required, &R::member_count);
  codec.add_field("queue_only_mode",        required, &R::queue_only_mode);
  codec.add_field("volume_control_enabled", required, &R::volume_control_enabled);
  codec.add_field("members",                required, &R::members, json::list_codec(rondo_member_codec()));
  codec.add_field("join_token",             optional, &R::join_token);
  return codec;
}

json::ObjectCodec<RondoCreateRequest> rondo_create_request_codec() {
  using R = RondoCreateRequest;
  json::ObjectCodec<R> codec;
  codec.add_field("device_id", optional,  &R::device_id);
  codec.add_field("activate",  defaulted, &R::activate);
  return codec;
}

json::ObjectCodec<RondoKickRequest> rondo_kick_request_codec() {
  using R = RondoKickRequest;
  json::ObjectCodec<R> codec;
  codec.add_field("member_id", required, &R::member_id);
  return codec;
}

json::ObjectCodec<RondoPermissionsRequest> rondo_permissions_request_codec() {
  using R = RondoPermissionsRequest;
  json::ObjectCodec<R> codec;
  codec.add_field("queue_only_mode", optional, &R::queue_only_mode);
  codec.add_field("volume_control",  optional, &R::volume_control);
  return codec;
}

json::ObjectCodec<RondoPermissionsResponse> rondo_permissions_response_codec() {
  using R = RondoPermissionsResponse;
  json::ObjectCodec<R> codec;
  codec.add_field("queue_only_mode",        required, &R::queue_only_mode);
  codec.add_field("volume_control_enabled", required, &R::volume_control_enabled);
  return codec;
}

}  // namespace orvanta::messages
