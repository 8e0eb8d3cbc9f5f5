// `folder list|create|rename|move|remove` of the real CLI against the
// simulator: stdout, stderr and status byte for byte, and what went out.
#include <gtest/gtest.h>

#include "tests/support/command_cases.hpp"

namespace orvanta::testing {
namespace {

using Texts = std::vector<std::string>;

const std::string moods = "orvanta:user:mossfern42:folder:moods";
const std::string evenings = "orvanta:user:mossfern42:folder:evenings";

// The top level has a root without a name, so no root line; depth 1 and 2
// stand two spaces apart, and the answer's order is kept.
TEST(FolderCommands, ListIndentsByDepthInTheAnswersOrder) {
  Sim sim;
  expect_command_cases({
      {{"folder", "list"},
       "Total items: 3\n"
       "  [folder] Moods  " + moods + "\n"
       "  [playlist] Back Roads  orvanta:playlist:backroads\n"
       "  [playlist] Fresh Finds Weekly  orvanta:playlist:freshfinds\n",
       "", 0},
      {{"folder", "list", "--recursive"},
       "Total items: 7\n"
       "  [folder] Moods  " + moods + "\n"
       "    [playlist] Deep Focus  orvanta:playlist:deepfocus\n"
       "    [playlist] Morning Ferry  orvanta:playlist:morningferry\n"
       "    [folder] Evenings  " + evenings + "\n"
       "      [playlist] Kitchen Jazz  orvanta:playlist:kitchenjazz\n"
       "  [playlist] Back Roads  orvanta:playlist:backroads\n"
       "  [playlist] Fresh Finds Weekly  orvanta:playlist:freshfinds\n",
       "", 0},
      {{"folder", "list", "--folder", moods},
       "Total items: 3\n"
       "[folder] Moods\n"
       "  [playlist] Deep Focus  orvanta:playlist:deepfocus\n"
       "  [playlist] Morning Ferry  orvanta:playlist:morningferry\n"
       "  [folder] Evenings  " + evenings + "\n",
       "", 0},
      {{"folder", "list", "--folder", evenings, "--format", "json"},
       R"({"root":{"uri":")" + evenings + R"(","name":"Evenings","type":"folder","parent_uri":")" + moods +
           R"(","depth":0},"items":[{"uri":"orvanta:playlist:kitchenjazz","name":"Kitchen Jazz",)"
           R"("type":"playlist","parent_uri":")" + evenings + R"(","depth":1}],"total_items":1})" + "\n",
       "", 0},
  });
  EXPECT_EQ(params_of(sim, "folder_list"), (Texts{
                                               R"({"recursive":false})",
                                               R"({"recursive":true})",
                                               R"({"folder_uri":")" + moods + R"(","recursive":false})",
                                               R"({"folder_uri":")" + evenings + R"(","recursive":false})",
                                           }));
}

// What the desktop client says is printed as it stands: depth 0 and below
// line up with depth 1, and a move counts what the client reports moved (a
// folder brings its contents along).
TEST(FolderCommands, TheClientsDepthsAndCountsAreTaken) {
  Sim sim({"--answer",
           R"(folder_list={"root":{"uri":"orvanta:user:x:rootlist","name":"","type":"folder","depth":0},"items":[)"
           R"({"uri":"u0","name":"Zero","type":"folder","depth":0},{"uri":"u1","name":"Below","type":"playlist","depth":-1},)"
           R"({"uri":"u3","name":"Three","type":"playlist","depth":3}],"total_items":3})",
           "--answer", R"(folder_move={"moved":3})"});
  expect_command_cases({
      {{"folder", "list"},
       "Total items: 3\n  [folder] Zero  u0\n  [playlist] Below  u1\n      [playlist] Three  u3\n", "", 0},
      {{"folder", "move", moods, evenings, "--to", "root"}, "Moved 6 item(s)\n", "", 0},
  });
}

// Only this wait is bounded; the simulator never answers, and the test's
// runner waits a fraction of the 8 seconds.
TEST(FolderCommands, ListGivesUpAfterItsTimeLimit) {
  Sim sim({"--hang", "folder_list"});
  sim.shorten_waits(std::chrono::milliseconds(50));
  expect_command_cases({{{"folder", "list"},
                     "",
                     "folder list timed out after 8s while reading the playlist folder hierarchy.\n",
                     1}});
}

TEST(FolderCommands, CreateRenameAndRemovePrintTextInBothModes) {
  Sim sim;
  expect_command_cases({
      {{"folder", "create", "Late Night", "--in", moods}, "Created: Late Night  orvanta:user:mossfern42:folder:sim1\n",
       "", 0},
      {{"folder", "create", "Top", "--format", "json"}, "Created: Top  orvanta:user:mossfern42:folder:sim2\n", "", 0},
      {{"folder", "rename", evenings, "Dusk", "--format", "json"}, "Renamed to: Dusk  " + evenings + "\n", "", 0},
      {{"folder", "remove", "orvanta:user:mossfern42:folder:sim2", "--format", "json"}, "Removed 1 item(s)\n", "", 0},
      {{"folder", "remove", moods, "--keep-contents"}, "Removed 1 item(s)\n", "", 0},
  });
  EXPECT_EQ(params_of(sim, "folder_create"), (Texts{
                                                 R"({"name":"Late Night","parent_folder_uri":")" + moods + R"("})",
                                                 R"({"name":"Top"})",
                                             }));
  EXPECT_EQ(params_of(sim, "folder_rename"), (Texts{R"({"folder_uri":")" + evenings + R"(","name":"Dusk"})"}));
  EXPECT_EQ(params_of(sim, "folder_remove"),
            (Texts{
                R"({"folder_uri":"orvanta:user:mossfern42:folder:sim2","keep_contents":false})",
                R"({"folder_uri":")" + moods + R"(","keep_contents":true})",
            }));
}

// A destination other than "root" is looked up among the folders of the
// whole hierarchy first; then each URI goes in a request of its own.
TEST(FolderCommands, MoveChecksTheDestinationThenMovesOneAtATime) {
  Sim sim;
  expect_command_cases({{{"folder", "move", "orvanta:playlist:backroads", "orvanta:playlist:freshfinds", "--to", evenings},
                     "Moved 2 item(s)\n", "", 0}});
  EXPECT_EQ(after_handshake(sim), (Texts{"folder_list", "folder_move", "folder_move"}));
  EXPECT_EQ(params_of(sim, "folder_list"), (Texts{R"({"recursive":true})"}));
  EXPECT_EQ(params_of(sim, "folder_move"),
            (Texts{
                R"({"uris":["orvanta:playlist:backroads"],"destination_folder_uri":")" + evenings + R"("})",
                R"({"uris":["orvanta:playlist:freshfinds"],"destination_folder_uri":")" + evenings + R"("})",
            }));

  // "root", given or implied, is taken as it stands without a lookup.
  expect_command_cases({{{"folder", "move", "orvanta:playlist:backroads", "--to", "root", "--format", "json"},
                     "Moved 1 item(s)\n", "", 0}});
  EXPECT_EQ(after_handshake(sim), (Texts{"folder_move"}));
  expect_command_cases({{{"folder", "move", "orvanta:playlist:freshfinds"}, "Moved 1 item(s)\n", "", 0}});
  EXPECT_EQ(after_handshake(sim), (Texts{"folder_move"}));
  EXPECT_EQ(params_of(sim, "folder_move").back(),
            R"({"uris":["orvanta:playlist:freshfinds"],"destination_folder_uri":"root"})");
}

TEST(FolderCommands, MoveStopsAtTheFirstFailureOrAnUnknownDestination) {
  Sim sim;
  expect_command_cases({
      // Only entries of type "folder" qualify as a destination.
      {{"folder", "move", "orvanta:playlist:backroads", "--to", "orvanta:playlist:freshfinds"},
       "",
       "folder move failed: destination folder not found in current library hierarchy: orvanta:playlist:freshfinds\n",
       1},
      // The client refuses the second URI, which it doesn't know; the third
      // is never sent.
      {{"folder", "move", "orvanta:playlist:backroads", "orvanta:playlist:nosuch", "orvanta:playlist:freshfinds",
        "--to", moods},
       "",
       "folder move failed after moving 1/3 item(s): bad request\n",
       1},
  });
  EXPECT_EQ(after_handshake(sim), (Texts{"folder_list", "folder_move", "folder_move"}));
}

TEST(FolderCommands, FailuresAreOneLineWithTheCodesWords) {
  Sim sim({"--fail", "folder_list=16", "--fail", "folder_create=2", "--fail", "folder_rename=8", "--fail",
                  "folder_move=4", "--fail", "folder_remove=9"});
  expect_command_cases({
      {{"folder", "list", "--format", "json"}, "", "folder list failed: not logged in\n", 1},
      {{"folder", "create", "x"}, "", "folder create failed: bad request\n", 1},
      {{"folder", "rename", evenings, "y"}, "", "folder rename failed: playback restricted\n", 1},
      {{"folder", "move", "orvanta:playlist:backroads", "--to", moods},
       "",
       "folder move failed while validating destination folder: not logged in\n",
       1},
      {{"folder", "move", "orvanta:playlist:backroads", "orvanta:playlist:freshfinds", "--to", "root"},
       "",
       "folder move failed after moving 0/2 item(s): internal server error\n",
       1},
      {{"folder", "remove", moods}, "", "folder remove failed: request timed out\n", 1},
  });
}

}  // namespace
}  // namespace orvanta::testing
