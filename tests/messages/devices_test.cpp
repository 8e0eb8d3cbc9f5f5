#include "messages/devices.hpp"

#include <gtest/gtest.h>

#include <string>

#include "record_check.hpp"

namespace {

using namespace orvanta::messages;
using orvanta::test::runner;

// One device with every key in table order, the nested records included.
// Neighbouring members of one type hold different values, so that a key
// bound to the wrong member changes the bytes.
const std::string kCapabilities = std::string(R"({"supports_rename":true,)"
  R"("supports_hifi":{"fully_supported":true,"user_eligible":false,"device_supported":true},)"
  R"("disable_volume":false,"volume_steps":64,"supports_playlist_mixing":true,"supports_dj":false,)"
  R"("supports_remote_sleep_timer":true,"is_voice_enabled":false,"is_offline":true,)"
  R"("supports_remote_audio_quality_control":false,"supports_external_episodes":true,)"
  R"("supported_audio_quality":"VERY_HIGH","disallow_reasons":["restricted","offline"],)"
  R"("audio_output":{"name":"Speakers","connection_type":"bluetooth","brand":"Boxco",)"
  R"("model":"B7","category":"speaker"}})");

const std::string kDevice = std::string(R"({"device_id":"d1","name":"Kitchen","device_type":"smartphone","volume":-3,)"
  R"("is_active":true,"is_group":false,"is_local":true,"is_self":false,)"
  R"("brand":"Acme","model":"S1","software_version":"1.0.2","capabilities":)") + kCapabilities + "}";

// The same device built member by member, in declaration order.
ConnectDevice device_record() {
  const DeviceCapabilities capabilities{true, {true, false, true}, false, 64, true, false, true, false, true, false,
                                        true, "VERY_HIGH", {"restricted", "offline"},
                                        AudioOutput{"Speakers", "bluetooth", "Boxco", "B7", "speaker"}};
  return {"d1", "Kitchen", "smartphone", -3, true, false, true, false, "Acme", "S1", "1.0.2", capabilities};
}

const std::string kCluster = R"({"active_device_id":"d1","devices":[)" + kDevice + "," + kDevice + "]}";

// Written from a record built member by member: a key bound to the wrong
// member would round-trip unnoticed, but not survive this.
TEST(DeviceRecords, BuiltRecordGivesTheTableBytes) {
  using orvanta::test::check_record;
  check_record(connect_device_codec, device_record(), kDevice, "capabilities volume");
  check_record(connect_cluster_response_codec, {"d1", {device_record(), device_record()}}, kCluster,
               "active_device_id devices");
  check_record(hifi_support_codec, {false, true, true},
               R"({"fully_supported":false,"user_eligible":true,"device_supported":true})", "device_supported");
  orvanta::test::check_wire_case({"DeviceCapabilities", runner(device_capabilities_codec),
                                  kCapabilities, "disallow_reasons supports_hifi supports_external_episodes"});
}

}  // namespace
