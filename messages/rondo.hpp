// Records of the shared listening session methods `rondo_*`.
// `rondo_leave` and `rondo_end` take EmptyRequest and return EmptyResponse.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "json/json.hpp"

namespace orvanta::messages {

struct RondoMember {
  std::string username;
  std::string display_name;
  std::optional<std::string> image_url;
  bool is_current_user = false;
  bool operator==(const RondoMember&) const = default;
};

// Result of `rondo_status`, `rondo_create` and `rondo_kick` alike.
struct RondoStatusResponse {
  std::string session_id;
  bool is_session_owner = false;
  bool active = false;
  std::int32_t member_count = 0;
  bool queue_only_mode = false;
  bool volume_control_enabled = false;
  std::vector<RondoMember> members;
  std::optional<std::string> join_token;
  bool operator==(const RondoStatusResponse&) const = default;
};

struct RondoCreateRequest {
  std::optional<std::string> device_id;
  bool activate = false;
  bool operator==(const RondoCreateRequest&) const = default;
};

struct RondoKickRequest {
  std::string member_id;
  bool operator==(const RondoKickRequest&) const = default;
};

// Each member is written only when that permission is to change.
struct RondoPermissionsRequest {
  std::optional<bool> queue_only_mode;
  std::optional<bool> volume_control;
  bool operator==(const RondoPermissionsRequest&) const = default;
};

// The peer names the second flag `volume_control_enabled` here, unlike the
// request's `volume_control`; both names are the protocol's.
struct RondoPermissionsResponse {
  bool queue_only_mode = false;
  bool volume_control_enabled = false;
  bool operator==(const RondoPermissionsResponse&) const = default;
};

json::ObjectCodec<RondoMember> rondo_member_codec();
json::ObjectCodec<RondoStatusResponse> rondo_status_response_codec();
json::ObjectCodec<RondoCreateRequest> rondo_create_request_codec();
json::ObjectCodec<RondoKickRequest> rondo_kick_request_codec();
json::ObjectCodec<RondoPermissionsRequest> rondo_permissions_request_codec();
json::ObjectCodec<RondoPermissionsResponse> rondo_permissions_response_codec();

}  // namespace orvanta::messages
