// Playback, status and device commands of the real CLI against the
// simulator: stdout, stderr and status byte for byte, and what went out.
#include <gtest/gtest.h>

#include <algorithm>

#include "tests/support/command_cases.hpp"

namespace orvanta::testing {
namespace {

using Methods = std::vector<std::string>;

TEST(PlaybackCommands, SucceedQuietlyOrWithTheirLine) {
  Sim sim;
  expect_command_cases({
      {{"pause"}, "", "", 0},
      {{"resume"}, "", "", 0},
      {{"next", "--format", "json"}, "", "", 0},
      {{"prev"}, "", "", 0},
      {{"seek", "-30000", "--relative"}, "", "", 0},
      {{"shuffle", "off"}, "Shuffle off\n", "", 0},
      {{"repeat", "context"}, "Repeat: context\n", "", 0},
      {{"speed", "1.5"}, "Speed: 1.50x\n", "", 0},
      {{"speed", "1.234"}, "Speed: 1.23x\n", "", 0},
      {{"volume", "0.25", "--format", "json"}, "Volume: 0.25\n", "", 0},
  });
  Methods sent = sim.methods();
  EXPECT_EQ(std::count(sent.begin(), sent.end(), "authorize_connection"), 10);
}

TEST(PlaybackCommands, SendTheValuesAsConverted) {
  Sim sim;
  run_command({"seek", "90000", "--relative"});
  // Out of 32 bits, the position is whatever the C conversion makes of it.
  run_command({"seek", "4294967297"});
  run_command({"speed", "1.005"});
  run_command({"speed", "0.29"});  // 28.999... hundredths, rounded
  run_command({"volume", "0.5"});
  std::vector<std::string> requests = sim.requests();
  std::vector<std::string> own;
  for (const auto& r : requests) {
    if (r.find("\"method\":\"playback_") != std::string::npos) own.push_back(r);
  }
  EXPECT_EQ(own, (std::vector<std::string>{
                     R"({"method":"playback_seek","params":{"position_ms":90000,"is_relative":true}})",
                     R"({"method":"playback_seek","params":{"position_ms":1,"is_relative":false}})",
                     R"({"method":"playback_speed","params":{"playback_speed":100}})",
                     R"({"method":"playback_speed","params":{"playback_speed":29}})",
                     R"({"method":"playback_volume","params":{"volume_percentage":0.5}})",
                 }));
}

TEST(PlaybackCommands, RepeatWithoutModeConnectsThenShowsUsage) {
  Sim sim;
  expect_command_cases({{{"repeat", "--format", "json"}, "", "Usage: repeat off|context|track\n", 1}});
  EXPECT_EQ(sim.methods(), (Methods{"authorize_connection", "login_state_subscription"}));
}

TEST(PlaybackCommands, MePrintsTheProfileAsJsonInBothModes) {
  Sim sim;
  const std::string profile =
      R"({"username":"mossfern42","display_name":"Ilsabet Quorne","country":"SE","product":"premium","catalogue":"premium"})"
      "\n";
  expect_command_cases({{{"me"}, profile, "", 0}, {{"me", "--format", "json"}, profile, "", 0}});
}

TEST(PlaybackCommands, FailuresAreOneLineWithTheCodesWords) {
  Sim sim({"--fail", "playback_pause=8", "--fail", "playback_resume=16", "--fail", "playback_next=9",
                  "--fail", "playback_previous=3:desktop_api_failure_source", "--fail", "playback_seek=2",
                  "--fail", "playback_shuffle=999", "--fail", "playback_repeat=4", "--fail", "playback_speed=7",
                  "--fail", "playback_volume=1:nonsense", "--fail", "me=16", "--fail", "playback_play=10"});
  expect_command_cases({
      {{"pause"}, "", "Failed to pause: playback restricted\n", 1},
      {{"resume", "--format", "json"}, "", "Failed to resume: not logged in\n", 1},
      {{"next"}, "", "Failed to skip to next: request timed out\n", 1},
      // A failure source folds to the coarser word.
      {{"previous"}, "", "Failed to go to previous: client connection failed\n", 1},
      {{"seek", "10"}, "", "Failed to seek: bad request\n", 1},
      {{"shuffle", "on"}, "", "Failed to set shuffle: desktop_api_error_999\n", 1},
      {{"repeat", "track"}, "", "Failed to set repeat: internal server error\n", 1},
      {{"speed", "2"}, "", "Failed to set speed: cancelled\n", 1},
      // An unknown category means the link itself could not be trusted.
      {{"volume", "1"}, "", "Failed to set volume: client connection failed\n", 1},
      {{"me"}, "", "Failed to get user info: not logged in\n", 1},
      {{"play", "orvanta:track:x"}, "", "Failed to play: remote playback not allowed\n", 1},
  });
}

TEST(PlaybackCommands, StatusReportsTheLoginNotification) {
  {
    Sim sim;
    sim.set_pauses(std::nullopt);
    expect_command_cases({
        {{"status"}, "Orvanta desktop client is running\nLogged in: Yes\n", "", 0},
        {{"status", "--format", "json"}, "{\"running\":true,\"logged_in\":true}\n", "", 0},
    });
  }
  Sim sim({"--logged-out"});
  sim.set_pauses(std::nullopt);
  expect_command_cases({
      {{"status"}, "Orvanta desktop client is running\nLogged in: No\n", "", 0},
      {{"status", "--format", "json"}, "{\"running\":true,\"logged_in\":false}\n", "", 0},
  });
}

TEST(PlaybackCommands, PlayOnADeviceTransfersThenResumesOrPlays) {
  Sim sim;
  expect_command_cases({{{"play", "--device", "Kitchen Speaker"}, "Playback transferred\n", "", 0}});
  EXPECT_EQ(after_handshake(sim),
            (Methods{"connect_cluster", "connect_transfer", "connect_cluster", "playback_resume"}));

  expect_command_cases({{{"play", "orvanta:track:x", "--device", "nowhere"},
                 "",
                 "Device 'nowhere' not found. Run 'orvanta_cli devices list' to see available devices.\n",
                 1}});
  EXPECT_EQ(after_handshake(sim), (Methods{"connect_cluster"}));
}

TEST(PlaybackCommands, NavigateWithPlayConnectsAndPlays) {
  Sim sim({"--fail", "playback_play=8"});
  expect_command_cases({{{"navigate", "orvanta:track:abc", "--play"}, "", "Failed to play: playback restricted\n", 1}});
  EXPECT_EQ(after_handshake(sim), (Methods{"playback_play"}));
}

}  // namespace
}  // namespace orvanta::testing
