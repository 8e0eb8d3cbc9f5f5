#include "commands/devices.hpp"

#include <chrono>
#include <cstdlib>
#include <string>

#include "messages/record_codecs.hpp"

namespace orvanta::commands {
namespace {

using messages::ConnectClusterResponse;
using messages::ConnectDevice;

constexpr int kActivationChecks = 3;
constexpr auto kActivationPause = std::chrono::milliseconds(500);

// Whether the cluster shows `device`, by name or by id, as the active one.
bool shows_active(const ConnectClusterResponse& cluster, std::string_view device) {
  for (const ConnectDevice& d : cluster.devices) {
    if ((d.name == device || d.device_id == device) && d.is_active) return true;
  }
  return false;
}

// Up to three looks at the cluster, each after a pause; a failed look counts
// as "not yet".
bool wait_until_active(std::string_view device, Context& context) {
  for (int check = 0; check < kActivationChecks; ++check) {
    context.pause(kActivationPause);
    link::Result<ConnectClusterResponse> cluster = context.run_and_wait(context.api().connect_cluster());
    if (cluster && shows_active(*cluster, device)) return true;
  }
  return false;
}

void print_optional_line(std::FILE* out, const char* label, const std::optional<std::string>& value) {
  if (value) std::fprintf(out, "%s%s\n", label, value->c_str());
}

}  // namespace

int devices_list(const cli::CommandLine& line, Context& context) {
  link::Result<ConnectClusterResponse> cluster = context.run_and_wait(context.api().connect_cluster());
  if (!cluster) return context.fail("Failed to list devices: %s\n", cluster.error().message().c_str());
  if (line.json_output()) {
    context.print_json(messages::record_codec<ConnectClusterResponse>(), *cluster);
    return 0;
  }
  std::fprintf(context.out, "Devices in cluster:\n\n");
  for (const ConnectDevice& d : cluster->devices) {
    std::fprintf(context.out, "  %s %s (%s)", d.is_active ? "\u25b6" : " ", d.name.c_str(), d.device_type.c_str());
    std::fprintf(context.out, "  vol %d", d.volume);
    if (d.is_active) std::fprintf(context.out, "  \u2190 active");
    std::fputc('\n', context.out);
  }
  return 0;
}

int devices_transfer(std::string_view device, Context& context) {
  std::string device_id(device);
  std::error_code ec = context.run_and_wait(context.api().connect_transfer(device_id));
  if (ec) return context.fail("Transfer failed: %s\n", ec.message().c_str());
  if (!wait_until_active(device, context)) {
    // One more request, and no further check.
    ec = context.run_and_wait(context.api().connect_transfer(device_id));
    if (ec) return context.fail("Transfer failed on retry: %s\n", ec.message().c_str());
  }
  std::fprintf(context.out, "Playback transferred\n");
  return 0;
}

int devices_volume(const cli::CommandLine& line, Context& context) {
  // The level was checked as a float from 0.0 to 1.0, yet goes out through
  // atoi: "0.5" sends 0. Callers rely on the integer as it stands.
  const int level = std::atoi(std::string(line.argument()).c_str());
  std::string device = line.arguments().empty() ? std::string() : line.arguments().front();
  std::error_code ec = context.run_and_wait(context.api().connect_set_volume(std::move(device), level));
  if (ec) return context.fail("Set volume failed: %s\n", ec.message().c_str());
  std::fprintf(context.out, "Volume set to %d\n", level);
  return 0;
}

int devices_info(std::string_view device, Context& context) {
  link::Result<messages::ConnectDeviceInfoResponse> info =
      context.run_and_wait(context.api().connect_device_info(std::string(device)));
  if (!info) return context.fail("Failed to get device info: %s\n", info.error().message().c_str());
  std::FILE* out = context.out;
  std::fprintf(out, "%s\n", info->name.c_str());
  std::fprintf(out, "  Type:      %s\n", info->device_type.c_str());
  print_optional_line(out, "  Brand:     ", info->brand);
  print_optional_line(out, "  Model:     ", info->model);
  std::fprintf(out, "  Volume:    %d/100\n", info->volume);
  print_optional_line(out, "  Software:  ", info->software_version);
  std::fprintf(out, "  Device ID: %s\n", info->device_id.c_str());
  return 0;
}

int transfer_to_named_device(std::string_view device, Context& context) {
  link::Result<ConnectClusterResponse> cluster = context.run_and_wait(context.api().connect_cluster());
  if (!cluster) return context.fail("Failed to look up devices: %s\n", cluster.error().message().c_str());
  bool found = false;
  for (const ConnectDevice& d : cluster->devices) {
    if (d.name == device || d.device_id == device) {
      found = true;
      break;
    }
  }
  if (!found) {
    return context.fail("Device '%.*s' not found. Run 'orvanta_cli devices list' to see available devices.\n",
                        static_cast<int>(device.size()), device.data());
  }
  return devices_transfer(device, context);
}

}  // namespace orvanta::commands
