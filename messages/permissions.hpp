// Records of the permission methods and of the `permissions_subscribe`
// notification.
#pragma once

#include <optional>
#include <string>

#include "json/json.hpp"

namespace orvanta::messages {

struct PermissionsGrantRequest {
  std::string command;
  std::string source_id;
  bool operator==(const PermissionsGrantRequest&) const = default;
};

struct PermissionsGrantResponse {
  bool granted = false;
  std::string message;
  bool operator==(const PermissionsGrantResponse&) const = default;
};

// Parameters of the `permissions_subscribe` notification and value of
// PermissionsCurrentResponse `pending`.
struct PermissionRequest {
  std::string type;
  std::string request_id;  // given back to `permissions_resolve`
  std::string command;
  std::string permission_type;
  std::string origin;
  std::string source_id;
  std::optional<bool> granted;
  std::string message;
  bool operator==(const PermissionRequest&) const = default;
};

// At most one open request, never a list.
struct PermissionsCurrentResponse {
  std::optional<PermissionRequest> pending;
  bool operator==(const PermissionsCurrentResponse&) const = default;
};

struct PermissionsResolveRequest {
  std::string request_id;
  bool granted = false;
  bool operator==(const PermissionsResolveRequest&) const = default;
};

struct PermissionsResolveResponse {
  bool success = false;
  bool granted = false;
  std::string message;
  bool operator==(const PermissionsResolveResponse&) const = default;
};

json::ObjectCodec<PermissionsGrantRequest> permissions_grant_request_codec();
json::ObjectCodec<PermissionsGrantResponse> permissions_grant_response_codec();
json::ObjectCodec<PermissionRequest> permission_request_codec();
json::ObjectCodec<PermissionsCurrentResponse> permissions_current_response_codec();
json::ObjectCodec<PermissionsResolveRequest> permissions_resolve_request_codec();
json::ObjectCodec<PermissionsResolveResponse> permissions_resolve_response_codec();

}  // namespace orvanta::messages
