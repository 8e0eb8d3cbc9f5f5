#include "messages/devices.hpp"

namespace orvanta::messages {

using json::presence::optional;
using json::presence::required;

json::ObjectCodec<HifiSupport> hifi_support_codec() {
  using R = HifiSupport;
  json::ObjectCodec<R> codec;
  codec.add_field("fully_supported",  required, &R::fully_supported);
  codec.add_field("user_eligible",    required, &R::user_eligible);
  codec.add_field("device_supported", required, &R::device_supported);
  return codec;
}

json::ObjectCodec<AudioOutput> audio_output_codec() {
  using R = AudioOutput;
  json::ObjectCodec<R> codec;
  codec.add_field("name",            optional, &R::name);
  codec.add_field("connection_type", optional, &R::connection_type);
  codec.add_field("brand",           optional, &R::brand);
  codec.add_field("model",           optional, &R::model);
  codec.add_field("category",        optional, &R::category);
  return codec;
}

json::ObjectCodec<DeviceCapabilities> device_capabilities_codec() {
  using R = DeviceCapabilities;
  json::ObjectCodec<R> codec;
  codec.add_field("supports_rename",                       required, &R::supports_rename);
  codec.add_field("supports_hifi",                         required, &R::supports_hifi, hifi_support_codec());
  codec.add_field("disable_volume",                        required, &R::disable_volume);
  codec.add_field("volume_steps",                          required, &R::volume_steps);
  codec.add_field("supports_playlist_mixing",              required, &R::supports_playlist_mixing);
  codec.add_field("supports_dj",                           required, &R::supports_dj);
  codec.add_field("supports_remote_sleep_timer",           required, &R::supports_remote_sleep_timer);
  codec.add_field("is_voice_enabled",                      required, &R::is_voice_enabled);
  codec.add_field("is_offline",                            required, &R::is_offline);
  codec.add_field("supports_remote_audio_quality_control", required, &R::supports_remote_audio_quality_control);
  codec.add_field("supports_external_episodes",            required, &R::supports_external_episodes);
  codec.add_field("supported_audio_quality",               optional, &R::supported_audio_quality);
  codec.add_field("disallow_reasons",                      required, &R::disallow_reasons);
  codec.add_field("audio_output",                          optional, &R::audio_output, audio_output_codec());
  return codec;
}

json::ObjectCodec<ConnectDevice> connect_device_codec() {
  using R = ConnectDevice;
  json::ObjectCodec<R> codec;
  codec.add_field("device_id",        required, &R::device_id);
  codec.add_field("name",             required, &R::name);
  codec.add_field("device_type",      required, &R::device_type);
  codec.add_field("volume",           required, &R::volume);
  codec.add_field("is_active",        required, &R::is_active);
  codec.add_field("is_group",         required, &R::is_group);
  codec.add_field("is_local",         required, &R::is_local);
  codec.add_field("is_self",          required, &R::is_self);
  codec.add_field("brand",            optional, &R::brand);
  codec.add_field("model",            optional, &R::model);
  codec.add_field("software_version", optional, &R::software_version);
  codec.add_field("capabilities",     required, &R::capabilities, device_capabilities_codec());
  return codec;
}

json::ObjectCodec<ConnectClusterResponse> connect_cluster_response_codec() {
  using R = ConnectClusterResponse;
  json::ObjectCodec<R> codec;
  codec.add_field("active_device_id", required, &R::active_device_id);
  codec.add_field("devices",          required, &R::devices, json::list_codec(connect_device_codec()));
  return codec;
}

json::ObjectCodec<ConnectTransferRequest> connect_transfer_request_codec() {
  using R = ConnectTransferRequest;
  json::ObjectCodec<R> codec;
  codec.add_field("device_id", required, &R::device_id);
  return codec;
}

json::ObjectCodec<ConnectSetVolumeRequest> connect_set_volume_request_codec() {
  using R = ConnectSetVolumeRequest;
  json::ObjectCodec<R> codec;
  codec.add_field("device_id", required, &R::device_id);
  codec.add_field("volume",    required, &R::volume);
  return codec;
}

json::ObjectCodec<ConnectDeviceInfoRequest> connect_device_info_request_codec() {
  using R = ConnectDeviceInfoRequest;
  json::ObjectCodec<R> codec;
  codec.add_field("device_id", required, &R::device_id);
  return codec;
}

json::ObjectCodec<ActiveDeviceNotification> active_device_notification_codec() {
  using R = ActiveDeviceNotification;
  json::ObjectCodec<R> codec;
  codec.add_field("active_device_id", required, &R::active_device_id);
  codec.add_field("is_local",         required, &R::is_local);
  return codec;
}

}  // namespace orvanta::messages
