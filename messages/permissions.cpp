#include "messages/permissions.hpp"

namespace orvanta::messages {

namespace {
using json::presence::optional;
using json::presence::required;
}  // namespace

json::ObjectCodec<PermissionsGrantRequest> permissions_grant_request_codec() {
  using R = PermissionsGrantRequest;
  json::ObjectCodec<R> codec;
  codec.add_field("command",   required, &R::command);
  codec.add_field("source_id", required, &R::source_id);
  return codec;
}

json::ObjectCodec<PermissionsGrantResponse> permissions_grant_response_codec() {
  using R = PermissionsGrantResponse;
  json::ObjectCodec<R> codec;
  codec.add_field("granted", required, &R::granted);
  codec.add_field("message", required, &R::message);
  return codec;
}

json::ObjectCodec<PermissionRequest> permission_request_codec() {
  using R = PermissionRequest;
  json::ObjectCodec<R> codec;
  codec.add_field("type",            required, &R::type);
  codec.add_field("request_id",      required, &R::request_id);
  codec.add_field("command",         required, &R::command);
  codec.add_field("permission_type", required, &R::permission_type);
  codec.add_field("origin",          required, &R::origin);
  codec.add_field("source_id",       required, &R::source_id);
  codec.add_field("granted",         optional, &R::granted);
  codec.add_field("message",         required, &R::message);
  return codec;
}

json::ObjectCodec<PermissionsCurrentResponse> permissions_current_response_codec() {
  using R = PermissionsCurrentResponse;
  json::ObjectCodec<R> codec;
  codec.add_field("pending", optional, &R::pending, permission_request_codec());
  return codec;
}

json::ObjectCodec<PermissionsResolveRequest> permissions_resolve_request_codec() {
  using R = PermissionsResolveRequest;
  json::ObjectCodec<R> codec;
  codec.add_field("request_id", required, &R::request_id);
  codec.add_field("granted",    required, &R::granted);
  return codec;
}

json::ObjectCodec<PermissionsResolveResponse> permissions_resolve_response_codec() {
  using R = PermissionsResolveResponse;
  json::ObjectCodec<R> codec;
  codec.add_field("success", required, &R::success);
  codec.add_field("granted", required, &R::granted);
  codec.add_field("message", required, &R::message);
  return codec;
}

}  // namespace orvanta::messages
