// `devices list|transfer|volume|info` of the real CLI against the simulator.
#include <gtest/gtest.h>

#include <algorithm>

#include "tests/support/process.hpp"
#include "tests/support/sim_process.hpp"

namespace orvanta::testing {
namespace {

using Methods = std::vector<std::string>;

// The requests of the simulator's log behind the handshake of the last run.
Methods after_handshake(const SimProcess& sim) {
  Methods all = sim.methods();
  auto subscribed = std::find(all.rbegin(), all.rend(), "login_state_subscription");
  return subscribed == all.rend() ? Methods{} : Methods(subscribed.base(), all.end());
}

TEST(DevicesCommands, ListShowsTheActiveDeviceWithItsMarkers) {
  SimProcess sim;
  ProcessResult r = run_cli({"devices"});
  EXPECT_EQ(r.out,
            "Devices in cluster:\n"
            "\n"
            "  \xe2\x96\xb6 Studio Desktop (computer)  vol 64  \xe2\x86\x90 active\n"
            "    Kitchen Speaker (speaker)  vol 40\n"
            "    Hallway Phone (smartphone)  vol 80\n");
  EXPECT_EQ(r.err, "");
  EXPECT_EQ(r.status, 0);

  ProcessResult json = run_cli({"devices", "list", "--format", "json"});
  EXPECT_EQ(json.out.substr(0, 64), R"({"active_device_id":"4c1e9a7b2d6f","devices":[{"device_id":"4c1e)");
  EXPECT_EQ(std::count(json.out.begin(), json.out.end(), '\n'), 1);
  EXPECT_EQ(json.status, 0);
}

TEST(DevicesCommands, TransferToADeviceThatBecomesActiveChecksOnce) {
  SimProcess sim;
  ProcessResult r = run_cli({"devices", "transfer", "Kitchen Speaker"});
  EXPECT_EQ(r.out, "Playback transferred\n");
  EXPECT_EQ(r.status, 0);
  EXPECT_EQ(after_handshake(sim), (Methods{"connect_transfer", "connect_cluster"}));

  // Named by id, the device matches as well.
  ProcessResult by_id = run_cli({"devices", "transfer", "71f3c8e0a4b2"});
  EXPECT_EQ(by_id.out, "Playback transferred\n");
  EXPECT_EQ(after_handshake(sim), (Methods{"connect_transfer", "connect_cluster"}));
}

TEST(DevicesCommands, TransferThatNeverShowsRetriesOnceAndStillSucceeds) {
  // Failed looks at the cluster count as "not yet active".
  SimProcess sim({"--fail", "connect_cluster=4"});
  ProcessResult r = run_cli({"devices", "transfer", "Kitchen Speaker"});
  EXPECT_EQ(r.out, "Playback transferred\n");
  EXPECT_EQ(r.err, "");
  EXPECT_EQ(r.status, 0);
  EXPECT_EQ(after_handshake(sim), (Methods{"connect_transfer", "connect_cluster", "connect_cluster",
                                           "connect_cluster", "connect_transfer"}));
}

TEST(DevicesCommands, FailuresAreOneLine) {
  SimProcess sim({"--fail", "connect_transfer=11", "--fail", "connect_set_volume=2", "--fail",
                  "connect_device_info=13"});
  struct Case {
    std::vector<std::string> args;
    std::string err;
  };
  const Case cases[] = {
      {{"devices", "transfer", "Kitchen Speaker"}, "Transfer failed: client not connected\n"},
      {{"devices", "volume", "1"}, "Set volume failed: bad request\n"},
      {{"devices", "info", "x"}, "Failed to get device info: client unknown error\n"},
  };
  for (const auto& c : cases) {
    ProcessResult r = run_cli(c.args);
    EXPECT_EQ(r.out, "") << c.args[1];
    EXPECT_EQ(r.err, c.err) << c.args[1];
    EXPECT_EQ(r.status, 1) << c.args[1];
  }
}

TEST(DevicesCommands, VolumeKeepsOnlyTheIntegerPart) {
  SimProcess sim;
  ProcessResult r = run_cli({"devices", "volume", "0.5"});
  EXPECT_EQ(r.out, "Volume set to 0\n");
  EXPECT_EQ(r.status, 0);
  ProcessResult full = run_cli({"devices", "volume", "1.0", "Kitchen Speaker"});
  EXPECT_EQ(full.out, "Volume set to 1\n");
  std::vector<std::string> sent;
  for (const auto& line : sim.requests()) {
    if (line.find("connect_set_volume") != std::string::npos) sent.push_back(line);
  }
  EXPECT_EQ(sent, (std::vector<std::string>{
                      R"({"method":"connect_set_volume","params":{"device_id":"","volume":0}})",
                      R"({"method":"connect_set_volume","params":{"device_id":"Kitchen Speaker","volume":1}})",
                  }));
}

TEST(DevicesCommands, InfoIsTextInBothModes) {
  SimProcess sim;
  const std::string kitchen =
      "Kitchen Speaker\n"
      "  Type:      speaker\n"
      "  Brand:     Loomtone\n"
      "  Model:     LT-2 Mini\n"
      "  Volume:    40/100\n"
      "  Software:  7.4.1\n"
      "  Device ID: 9e20b5d13a88\n";
  EXPECT_EQ(run_cli({"devices", "info", "9e20b5d13a88"}).out, kitchen);
  EXPECT_EQ(run_cli({"devices", "info", "9e20b5d13a88", "--format", "json"}).out, kitchen);
  // Optional lines stay out when the device has no such detail.
  EXPECT_EQ(run_cli({"devices", "info", "4c1e9a7b2d6f"}).out,
            "Studio Desktop\n"
            "  Type:      computer\n"
            "  Volume:    64/100\n"
            "  Software:  1.2.58.411\n"
            "  Device ID: 4c1e9a7b2d6f\n");
}

}  // namespace
}  // namespace orvanta::testing
