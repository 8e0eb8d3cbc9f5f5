// `devices list|transfer|volume|info` against the simulator.
#include <gtest/gtest.h>

#include <algorithm>

#include "tests/support/command_cases.hpp"

namespace orvanta::testing {
namespace {

using Methods = std::vector<std::string>;

// Info is text under --format json too, and leaves out the lines of details
// the device doesn't have.
TEST(DevicesCommands, ListMarksTheActiveDeviceAndInfoIsText) {
  Sim sim;
  const std::string kitchen =
      "Kitchen Speaker\n"
      "  Type:      speaker\n"
      "  Brand:     Loomtone\n"
      "  Model:     LT-2 Mini\n"
      "  Volume:    40/100\n"
      "  Software:  7.4.1\n"
      "  Device ID: 9e20b5d13a88\n";
  expect_command_cases({
      {{"devices"},
       "Devices in cluster:\n"
       "\n"
       "  \xe2\x96\xb6 Studio Desktop (computer)  vol 64  \xe2\x86\x90 active\n"
       "    Kitchen Speaker (speaker)  vol 40\n"
       "    Hallway Phone (smartphone)  vol 80\n",
       "", 0},
      {{"devices", "info", "9e20b5d13a88"}, kitchen, "", 0},
      {{"devices", "info", "9e20b5d13a88", "--format", "json"}, kitchen, "", 0},
      {{"devices", "info", "4c1e9a7b2d6f"},
       "Studio Desktop\n"
       "  Type:      computer\n"
       "  Volume:    64/100\n"
       "  Software:  1.2.58.411\n"
       "  Device ID: 4c1e9a7b2d6f\n",
       "", 0},
  });
  ProcessResult json = run_command({"devices", "list", "--format", "json"});
  EXPECT_EQ(json.out.substr(0, 64), R"({"active_device_id":"4c1e9a7b2d6f","devices":[{"device_id":"4c1e)");
  EXPECT_EQ(std::count(json.out.begin(), json.out.end(), '\n'), 1);
  EXPECT_EQ(json.status, 0);
}

// A device named by name or by id that becomes active is checked once.
TEST(DevicesCommands, TransferToADeviceThatBecomesActiveChecksOnce) {
  Sim sim;
  for (const std::string device : {"Kitchen Speaker", "71f3c8e0a4b2"}) {
    expect_command_cases({{{"devices", "transfer", device}, "Playback transferred\n", "", 0}});
    EXPECT_EQ(after_handshake(sim), (Methods{"connect_transfer", "connect_cluster"}));
  }
}

TEST(DevicesCommands, TransferThatNeverShowsRetriesOnceAndStillSucceeds) {
  // Failed looks at the cluster count as "not yet active".
  Sim sim({"--fail", "connect_cluster=4"});
  expect_command_cases({{{"devices", "transfer", "Kitchen Speaker"}, "Playback transferred\n", "", 0}});
  EXPECT_EQ(after_handshake(sim), (Methods{"connect_transfer", "connect_cluster", "connect_cluster",
                                           "connect_cluster", "connect_transfer"}));
}

TEST(DevicesCommands, FailuresAreOneLine) {
  Sim sim({"--fail", "connect_transfer=11", "--fail", "connect_set_volume=2", "--fail",
                  "connect_device_info=13"});
  expect_command_cases({
      {{"devices", "transfer", "Kitchen Speaker"}, "", "Transfer failed: client not connected\n", 1},
      {{"devices", "volume", "1"}, "", "Set volume failed: bad request\n", 1},
      {{"devices", "info", "x"}, "", "Failed to get device info: client unknown error\n", 1},
  });
}

TEST(DevicesCommands, VolumeKeepsOnlyTheIntegerPart) {
  Sim sim;
  expect_command_cases({
      {{"devices", "volume", "0.5"}, "Volume set to 0\n", "", 0},
      {{"devices", "volume", "1.0", "Kitchen Speaker"}, "Volume set to 1\n", "", 0},
  });
  EXPECT_EQ(params_of(sim, "connect_set_volume"), (std::vector<std::string>{
                                                      R"({"device_id":"","volume":0})",
                                                      R"({"device_id":"Kitchen Speaker","volume":1})",
                                                  }));
}

}  // namespace
}  // namespace orvanta::testing
