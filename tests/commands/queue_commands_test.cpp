// `queue [list]|add|remove|move` against the simulator.
#include <gtest/gtest.h>

#include "tests/support/command_cases.hpp"

namespace orvanta::testing {
namespace {

const std::string now_playing = "Now playing: Harbour Lights -- Nimbus Ferry  [context]  orvanta:track:harbourlights\n";

// The printed positions are the ones that remove and move take, and the
// edits print text under --format json too.
TEST(QueueCommands, ListedPositionsAreTheOnesThatEditsTake) {
  Sim sim;
  expect_command_cases({
      {{"queue"},
       now_playing + "\nUp next:\n" +
           "  0. The Ferryman's Waltz -- Nimbus Ferry  [queue]  orvanta:track:ferrymanswaltz\n"
           "  1. Neon Orchard -- Pella Moor  [queue]  orvanta:track:neonorchard\n"
           "  2. Compass Rose -- Quiet Cartography  [queue]  orvanta:track:compassrose\n",
       "", 0},
      {{"queue", "add", "orvanta:episode:tinkerer7", "--format", "json"}, "Added to queue\n", "", 0},
      {{"queue", "remove", "1", "--format", "json"}, "Removed from queue (3 remaining)\n", "", 0},
      {{"queue", "move", "2", "0", "--format", "json"}, "Moved track from position 2 to 0\n", "", 0},
      {{"queue", "list"},
       now_playing + "\nUp next:\n" +
           "  0. Soldering at Midnight -- The Tinkerer's Desk  [queue]  orvanta:episode:tinkerer7\n"
           "  1. The Ferryman's Waltz -- Nimbus Ferry  [queue]  orvanta:track:ferrymanswaltz\n"
           "  2. Compass Rose -- Quiet Cartography  [queue]  orvanta:track:compassrose\n",
       "", 0},
  });
  std::vector<std::string> edits;
  for (const std::string& r : sim.requests()) {
    if (r.find(R"("method":"queue_)") != std::string::npos && r.find("queue_list") == std::string::npos) {
      edits.push_back(r);
    }
  }
  EXPECT_EQ(edits, (std::vector<std::string>{
                       R"({"method":"queue_add","params":{"uri":"orvanta:episode:tinkerer7"}})",
                       R"({"method":"queue_remove","params":{"position":1}})",
                       R"({"method":"queue_move","params":{"from_position":2,"to_position":0}})",
                   }));
}

// Nothing playing and one uncredited track: no " -- "; once it is removed,
// "Queue is empty" follows without a blank line. JSON keeps uid and revision.
TEST(QueueCommands, NothingPlayingAndEmptyQueue) {
  StateFile state(R"({"account":{"user":{"username":"u","display_name":"U","country":"SE","product":"p",)"
                  R"("catalogue":"p"}},"tracks":[{"uri":"orvanta:track:solo","name":"Solo Piece"}],)"
                  R"("queue":[{"uri":"orvanta:track:solo","uid":"q1"}]})");
  Sim sim({"--state", state.path});
  expect_command_cases({
      {{"queue"}, "Nothing currently playing\n\nUp next:\n  0. Solo Piece  [queue]  orvanta:track:solo\n", "", 0},
      {{"queue", "--format", "json"},
       R"({"next_tracks":[{"uri":"orvanta:track:solo","uid":"q1","name":"Solo Piece","artist":"","provider":"queue"}],)"
       R"("revision":1})"
       "\n",
       "", 0},
      {{"queue", "remove", "0"}, "Removed from queue (0 remaining)\n", "", 0},
      {{"queue"}, "Nothing currently playing\nQueue is empty\n", "", 0},
  });
}

TEST(QueueCommands, FailuresAreOneLineOfText) {
  Sim sim({"--fail", "queue_list=16", "--fail", "queue_add=2", "--fail", "queue_remove=8", "--fail",
                  "queue_move=4"});
  expect_command_cases({
      {{"queue", "--format", "json"}, "", "Failed to get queue: not logged in\n", 1},
      {{"queue", "add", "orvanta:track:x"}, "", "Failed to add to queue: bad request\n", 1},
      {{"queue", "remove", "0"}, "", "Failed to remove from queue: playback restricted\n", 1},
      {{"queue", "move", "0", "1"}, "", "Failed to move in queue: internal server error\n", 1},
  });
}

}  // namespace
}  // namespace orvanta::testing
