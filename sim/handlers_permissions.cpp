// Permissions, toasts and log collection.
#include "sim/handlers.hpp"

#include <algorithm>

namespace orvanta::sim {

namespace {

constexpr const char* logs_directory = "/tmp/orvanta-sim-logs";

bool granted_already(const Permissions& permissions, const std::string& command) {
  const auto& granted = permissions.granted_commands;
  return std::find(granted.begin(), granted.end(), command) != granted.end();
}

}  // namespace

Answer<m::PermissionsGrantResponse> handle(m::PermissionsGrant, const m::PermissionsGrantRequest& r, Context& context) {
  Permissions& permissions = context.state.permissions;
  if (r.command.empty()) return bad_request("Name the command to allow");
  if (!granted_already(permissions, r.command)) permissions.granted_commands.push_back(r.command);
  m::PermissionRequest notice{.type = "permission_granted", .request_id = context.new_id("perm-"),
                              .command = r.command, .permission_type = "command", .origin = "partner_api",
                              .source_id = r.source_id, .granted = true,
                              .message = "'" + r.command + "' is allowed"};
  context.broadcast<m::notification::PermissionsSubscribe>(notice);
  return m::PermissionsGrantResponse{.granted = true, .message = notice.message};
}

Answer<m::PermissionsCurrentResponse> handle(m::PermissionsCurrent, const m::EmptyRequest&, Context& context) {
  return m::PermissionsCurrentResponse{.pending = context.state.permissions.pending};
}

Answer<m::EmptyResponse> handle(m::PermissionsSubscribe, const m::EmptyRequest&, Context&) {
  return m::EmptyResponse{};
}

Answer<m::PermissionsResolveResponse> handle(m::PermissionsResolve, const m::PermissionsResolveRequest& r,
                                             Context& context) {
  Permissions& permissions = context.state.permissions;
  if (!permissions.pending || permissions.pending->request_id != r.request_id) {
    return bad_request("No open permission request " + r.request_id);
  }
  m::PermissionRequest resolved = *permissions.pending;
  permissions.pending.reset();
  resolved.granted = r.granted;
  resolved.message = r.granted ? "'" + resolved.command + "' is allowed" : "'" + resolved.command + "' is refused";
  if (r.granted && !granted_already(permissions, resolved.command)) {
    permissions.granted_commands.push_back(resolved.command);
  }
  context.broadcast<m::notification::PermissionsSubscribe>(resolved);
  return m::PermissionsResolveResponse{.success = true, .granted = r.granted, .message = resolved.message};
}

Answer<m::EmptyResponse> handle(m::ShowToast, const m::ShowToastRequest& r, Context&) {
  if (r.title.empty()) return bad_request("A toast needs a title");
  return m::EmptyResponse{};
}

Answer<m::EmptyResponse> handle(m::CollectLogsSubscription, const m::EmptyRequest&, Context& context) {
  context.tell_caller<m::notification::CollectLogsSubscription>(
      m::CollectLogsNotification{.logs_directory = logs_directory});
  return m::EmptyResponse{};
}

}  // namespace orvanta::sim
