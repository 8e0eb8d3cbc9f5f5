// `rondo [status]|create|leave|end|members|kick|permissions` of the real CLI
// against the simulator.
#include <gtest/gtest.h>

#include "tests/support/command_cases.hpp"

namespace orvanta::testing {
namespace {

const std::string no_session = "No active Rondo session\n";

// Without a session only `rondo status` answers in JSON (the record says
// `active` false); members and permissions give the sentence in both formats.
// Create, kick and the permission update print text under --format json too.
TEST(RondoCommands, SessionFromCreateToEnd) {
  Sim sim;
  const std::string members_json =
      R"({"session_id":"rondo-1","is_session_owner":true,"active":true,"member_count":3,"queue_only_mode":false,)"
      R"("volume_control_enabled":true,"members":[)"
      R"({"username":"mossfern42","display_name":"Ilsabet Quorne","is_current_user":true},)"
      R"({"username":"juniper.vale","display_name":"Juniper Vale","is_current_user":false},)"
      R"({"username":"otto.brannick","display_name":"Otto Brannick","is_current_user":false}],)"
      R"("join_token":"join-rondo-1"})"
      "\n";
  expect_command_cases({
      {{"rondo", "--format", "json"},
       R"({"session_id":"","is_session_owner":false,"active":false,"member_count":0,"queue_only_mode":false,)"
       R"("volume_control_enabled":false,"members":[]})"
       "\n",
       "", 0},
      {{"rondo"}, no_session, "", 0},
      {{"rondo", "members", "--format", "json"}, no_session, "", 0},
      {{"rondo", "permissions", "--format", "json"}, no_session, "", 0},
      {{"rondo", "create", "--format", "json"}, "Rondo created: rondo-1\n", "", 0},
      {{"rondo", "status"},
       "Rondo Session: rondo-1\nRole: Host\nMembers: 3\nQueue-only mode: off\nVolume control: on\n"
       "\nParticipants:\n"
       "  Ilsabet Quorne (mossfern42) [you]\n  Juniper Vale (juniper.vale)\n  Otto Brannick (otto.brannick)\n",
       "", 0},
      {{"rondo", "members", "--format", "json"}, members_json, "", 0},
      {{"rondo", "kick", "juniper.vale", "--format", "json"}, "Kicked juniper.vale from Rondo\n", "", 0},
      {{"rondo", "members"},
       "Rondo members (2):\n  Ilsabet Quorne (mossfern42) [you]\n  Otto Brannick (otto.brannick)\n", "", 0},
      {{"rondo", "permissions", "--queue-only", "on", "--format", "json"},
       "Queue-only mode: on\nVolume control: on\n", "", 0},
      {{"rondo", "permissions", "--volume-control", "off"}, "Queue-only mode: on\nVolume control: off\n", "", 0},
      {{"rondo", "permissions", "--format", "json"}, "{\"queue_only_mode\":true,\"volume_control_enabled\":false}\n",
       "", 0},
      {{"rondo", "permissions"}, "Queue-only mode: on\nVolume control: off\n", "", 0},
      {{"rondo", "end", "--format", "json"}, "Rondo session ended\n", "", 0},
      {{"rondo", "leave"}, "", "Failed to leave Rondo: bad request\n", 1},
  });
  EXPECT_EQ(params_of(sim, "rondo_create"), (std::vector<std::string>{R"({"activate":true})"}));
  EXPECT_EQ(params_of(sim, "rondo_kick"), (std::vector<std::string>{R"({"member_id":"juniper.vale"})"}));
  // Only the flag that was given goes out.
  EXPECT_EQ(params_of(sim, "rondo_permissions"),
            (std::vector<std::string>{R"({"queue_only_mode":true})", R"({"volume_control":false})"}));
}

// A guest's view: the heading counts what the session reports (one member
// still joining is not listed), and a member without a username gets no
// parentheses.
TEST(RondoCommands, ParticipantSeesTheReportedCount) {
  StateFile state(
      R"({"account":{"user":{"username":"u","display_name":"U","country":"SE","product":"p","catalogue":"p"}},)"
      R"("rondo":{"active":true,"session_id":"rondo-x","is_session_owner":false,"queue_only_mode":true,)"
      R"("volume_control_enabled":false,"member_count":3,"members":[)"
      R"({"username":"","display_name":"Host Person","is_current_user":false},)"
      R"({"username":"u","display_name":"U","is_current_user":true}]}})");
  Sim sim({"--state", state.path});
  const std::string lines = "  Host Person\n  U (u) [you]\n";
  expect_command_cases({
      {{"rondo"},
       "Rondo Session: rondo-x\nRole: Participant\nMembers: 3\nQueue-only mode: on\nVolume control: off\n"
       "\nParticipants:\n" + lines,
       "", 0},
      {{"rondo", "members"}, "Rondo members (3):\n" + lines, "", 0},
      {{"rondo", "leave", "--format", "json"}, "Left Rondo session\n", "", 0},
  });
}

TEST(RondoCommands, FailuresAreTheirOwnLines) {
  Sim sim({"--fail", "rondo_status=16", "--fail", "rondo_create=2", "--fail", "rondo_leave=9", "--fail",
                  "rondo_end=3", "--fail", "rondo_kick=4", "--fail", "rondo_permissions=8"});
  expect_command_cases({
      {{"rondo", "--format", "json"}, "", "Failed to get Rondo status: not logged in\n", 1},
      {{"rondo", "members"}, "", "Failed to get Rondo members: not logged in\n", 1},
      {{"rondo", "permissions", "--format", "json"}, "", "Failed to get Rondo permissions: not logged in\n", 1},
      {{"rondo", "permissions", "--volume-control", "on"}, "", "Failed to update Rondo permissions: playback restricted\n",
       1},
      {{"rondo", "create"}, "", "Failed to create Rondo: bad request\n", 1},
      {{"rondo", "leave"}, "", "Failed to leave Rondo: request timed out\n", 1},
      {{"rondo", "end"}, "", "Failed to end Rondo: unauthorized request\n", 1},
      {{"rondo", "kick", "alice"}, "", "Failed to kick member: internal server error\n", 1},
  });
}

}  // namespace
}  // namespace orvanta::testing
