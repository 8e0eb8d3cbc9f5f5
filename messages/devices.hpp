#pragma once

// Records of the connect_* methods: the device cluster, one device with its
// capabilities, volume and transfer requests, and the active-device
// notification. A device needs its capabilities and the capabilities need
// nearly every member, so one incomplete device makes a whole cluster
// undecodable.

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "json/json.hpp"

namespace orvanta::messages {

struct HifiSupport {
  bool fully_supported = false;
  bool user_eligible = false;
  bool device_supported = false;
  bool operator==(const HifiSupport&) const = default;
};

struct AudioOutput {
  std::optional<std::string> name;
  std::optional<std::string> connection_type;
  std::optional<std::string> brand;
  std::optional<std::string> model;
  std::optional<std::string> category;
  bool operator==(const AudioOutput&) const = default;
};

struct DeviceCapabilities {
  bool supports_rename = false;
  HifiSupport supports_hifi;
  bool disable_volume = false;
  std::int32_t volume_steps = 0;
  bool supports_playlist_mixing = false;
  bool supports_dj = false;
  bool supports_remote_sleep_timer = false;
  bool is_voice_enabled = false;
  bool is_offline = false;
  bool supports_remote_audio_quality_control = false;
  bool supports_external_episodes = false;
  std::optional<std::string> supported_audio_quality;
  std::vector<std::string> disallow_reasons;
  std::optional<AudioOutput> audio_output;
  bool operator==(const DeviceCapabilities&) const = default;
};

struct ConnectDevice {
  std::string device_id;
  std::string name;
  std::string device_type;
  std::int32_t volume = 0;
  bool is_active = false;
  bool is_group = false;
  bool is_local = false;
  bool is_self = false;
  std::optional<std::string> brand;
  std::optional<std::string> model;
  std::optional<std::string> software_version;
  DeviceCapabilities capabilities;
  bool operator==(const ConnectDevice&) const = default;
};

// The device-info result is a device record as it stands.
using ConnectDeviceInfoResponse = ConnectDevice;

struct ConnectClusterResponse {
  std::string active_device_id;
  std::vector<ConnectDevice> devices;
  bool operator==(const ConnectClusterResponse&) const = default;
};

struct ConnectTransferRequest {
  std::string device_id;
  bool operator==(const ConnectTransferRequest&) const = default;
};

struct ConnectSetVolumeRequest {
  std::string device_id;
  std::int32_t volume = 0;
  bool operator==(const ConnectSetVolumeRequest&) const = default;
};

struct ConnectDeviceInfoRequest {
  std::string device_id;
  bool operator==(const ConnectDeviceInfoRequest&) const = default;
};

struct ActiveDeviceNotification {
  std::string active_device_id;
  bool is_local = false;
  bool operator==(const ActiveDeviceNotification&) const = default;
};

json::ObjectCodec<HifiSupport> hifi_support_codec();
json::ObjectCodec<AudioOutput> audio_output_codec();
json::ObjectCodec<DeviceCapabilities> device_capabilities_codec();
json::ObjectCodec<ConnectDevice> connect_device_codec();
json::ObjectCodec<ConnectClusterResponse> connect_cluster_response_codec();
json::ObjectCodec<ConnectTransferRequest> connect_transfer_request_codec();
json::ObjectCodec<ConnectSetVolumeRequest> connect_set_volume_request_codec();
json::ObjectCodec<ConnectDeviceInfoRequest> connect_device_info_request_codec();
json::ObjectCodec<ActiveDeviceNotification> active_device_notification_codec();

}  // namespace orvanta::messages
