// The device cluster: listing, transferring playback, volume and details.
#include "sim/handlers.hpp"

namespace orvanta::sim {

namespace {

// A device named by its id or, as people type it, by its name. An empty
// text means the active device.
m::ConnectDevice* find_device(SimState& state, std::string_view text) {
  const std::string_view wanted = text.empty() ? std::string_view(state.active_device_id) : text;
  for (auto& device : state.devices) {
    if (device.device_id == wanted) return &device;
  }
  for (auto& device : state.devices) {
    if (device.name == wanted) return &device;
  }
  return nullptr;
}

Failure no_such_device(std::string_view text) {
  return bad_request("No device called '" + std::string(text) + "' in the cluster");
}

}  // namespace

Answer<m::ConnectClusterResponse> handle(m::ConnectCluster, const m::EmptyRequest&, Context& context) {
  const SimState& state = context.state;
  return m::ConnectClusterResponse{.active_device_id = state.active_device_id, .devices = state.devices};
}

Answer<m::EmptyResponse> handle(m::ConnectTransfer, const m::ConnectTransferRequest& request, Context& context) {
  SimState& state = context.state;
  m::ConnectDevice* target = find_device(state, request.device_id);
  if (target == nullptr || request.device_id.empty()) return no_such_device(request.device_id);
  if (target->capabilities.is_offline) {
    return fail(link::DesktopApiError::remote_playback_not_allowed, target->name + " is offline");
  }
  if (target->device_id == state.active_device_id) return m::EmptyResponse{};
  state.active_device_id = target->device_id;
  for (auto& device : state.devices) device.is_active = device.device_id == state.active_device_id;
  context.broadcast<m::notification::ConnectActiveDeviceSubscription>(
      m::ActiveDeviceNotification{.active_device_id = target->device_id, .is_local = target->is_local});
  return m::EmptyResponse{};
}

Answer<m::EmptyResponse> handle(m::ConnectSetVolume, const m::ConnectSetVolumeRequest& request, Context& context) {
  SimState& state = context.state;
  m::ConnectDevice* device = find_device(state, request.device_id);
  if (device == nullptr) return no_such_device(request.device_id);
  if (device->capabilities.disable_volume) return bad_request("The volume of " + device->name + " is fixed");
  if (request.volume < 0 || request.volume > 100) return bad_request("Volume must be between 0 and 100");
  device->volume = request.volume;
  if (device->device_id == state.active_device_id) state.player.volume = request.volume / 100.0;
  return m::EmptyResponse{};
}

Answer<m::ConnectDeviceInfoResponse> handle(m::ConnectDeviceInfo, const m::ConnectDeviceInfoRequest& request,
                                            Context& context) {
  m::ConnectDevice* device = find_device(context.state, request.device_id);
  if (device == nullptr || request.device_id.empty()) return no_such_device(request.device_id);
  return *device;
}

}  // namespace orvanta::sim
