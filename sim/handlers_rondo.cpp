// Rondo, the shared listening session. Creating one makes the user the host
// and lets the state's guests join at once; while a session runs the
// desktop client broadcasts it over BLE.
#include "sim/handlers.hpp"

#include <algorithm>

namespace orvanta::sim {

namespace {

m::RondoStatusResponse status_of(const Rondo& rondo) {
  m::RondoStatusResponse r;
  if (!rondo.active) return r;
  r.session_id = rondo.session_id;
  r.is_session_owner = rondo.is_session_owner;
  r.active = true;
  r.member_count = rondo.member_count.value_or(static_cast<std::int32_t>(rondo.members.size()));
  r.queue_only_mode = rondo.queue_only_mode;
  r.volume_control_enabled = rondo.volume_control_enabled;
  r.members = rondo.members;
  r.join_token = rondo.join_token;
  return r;
}

Failure no_session() { return bad_request("There is no active Rondo session"); }

Failure host_only(std::string_view what) {
  return fail(link::DesktopApiError::unauthorized_request, "Only the host of the Rondo session can " + std::string(what));
}

void set_broadcasting(Context& context, bool on) {
  if (context.state.broadcasting == on) return;
  context.state.broadcasting = on;
  context.broadcast<m::notification::BleStateSubscription>(m::BleStateNotification{.broadcasting = on});
}

void close_session(Context& context) {
  Rondo& rondo = context.state.rondo;
  rondo.active = false;
  rondo.session_id.clear();
  rondo.is_session_owner = false;
  rondo.members.clear();
  rondo.member_count.reset();
  rondo.join_token.reset();
  set_broadcasting(context, false);
}

}  // namespace

Answer<m::RondoStatusResponse> handle(m::RondoStatus, const m::EmptyRequest&, Context& context) {
  return status_of(context.state.rondo);
}

Answer<m::RondoStatusResponse> handle(m::RondoCreate, const m::RondoCreateRequest& request, Context& context) {
  SimState& state = context.state;
  Rondo& rondo = state.rondo;
  if (rondo.active) return bad_request("A Rondo session is already running: " + rondo.session_id);
  if (request.device_id) {
    const bool known = std::any_of(state.devices.begin(), state.devices.end(), [&](const m::ConnectDevice& d) {
      return d.device_id == *request.device_id || d.name == *request.device_id;
    });
    if (!known) return bad_request("No device called '" + *request.device_id + "' in the cluster");
  }
  const messages::MeResponse& user = state.account.user;
  rondo.active = true;
  rondo.session_id = context.new_id("rondo-");
  rondo.is_session_owner = true;
  rondo.members = {m::RondoMember{user.username, user.display_name, std::nullopt, true}};
  rondo.member_count.reset();
  rondo.members.insert(rondo.members.end(), rondo.guests.begin(), rondo.guests.end());
  rondo.join_token = "join-" + rondo.session_id;
  if (request.activate) set_broadcasting(context, true);
  return status_of(rondo);
}

Answer<m::EmptyResponse> handle(m::RondoLeave, const m::EmptyRequest&, Context& context) {
  if (!context.state.rondo.active) return no_session();
  // The host leaving ends the session for everybody.
  close_session(context);
  return m::EmptyResponse{};
}

Answer<m::EmptyResponse> handle(m::RondoEnd, const m::EmptyRequest&, Context& context) {
  const Rondo& rondo = context.state.rondo;
  if (!rondo.active) return no_session();
  if (!rondo.is_session_owner) return host_only("end it");
  close_session(context);
  return m::EmptyResponse{};
}

Answer<m::RondoStatusResponse> handle(m::RondoKick, const m::RondoKickRequest& request, Context& context) {
  Rondo& rondo = context.state.rondo;
  if (!rondo.active) return no_session();
  if (!rondo.is_session_owner) return host_only("remove members");
  auto member = std::find_if(rondo.members.begin(), rondo.members.end(),
                             [&](const m::RondoMember& mem) { return mem.username == request.member_id; });
  if (member == rondo.members.end()) return bad_request("Nobody called '" + request.member_id + "' is in the session");
  if (member->is_current_user) return bad_request("The host can't remove themselves; end the session instead");
  rondo.members.erase(member);
  rondo.member_count.reset();
  return status_of(rondo);
}

Answer<m::RondoPermissionsResponse> handle(m::RondoPermissions, const m::RondoPermissionsRequest& request,
                                           Context& context) {
  Rondo& rondo = context.state.rondo;
  if (!rondo.active) return no_session();
  if (!rondo.is_session_owner) return host_only("change its permissions");
  if (request.queue_only_mode) rondo.queue_only_mode = *request.queue_only_mode;
  if (request.volume_control) rondo.volume_control_enabled = *request.volume_control;
  return m::RondoPermissionsResponse{.queue_only_mode = rondo.queue_only_mode,
                                     .volume_control_enabled = rondo.volume_control_enabled};
}

}  // namespace orvanta::sim
