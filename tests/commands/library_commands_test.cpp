// `library list|contains|add|remove` and `playlist get|create|update|add|
// remove` against the simulator: stdout, stderr and status
// byte for byte, and the values that went out.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "tests/support/command_cases.hpp"

namespace orvanta::testing {
namespace {

using Texts = std::vector<std::string>;

TEST(LibraryCommands, ListAndContainsInTextAndJson) {
  Sim sim;
  expect_command_cases({
      // Newest first; the artists of a library item stand side by side
      // without a comma, and the album isn't shown.
      {{"library", "add", "orvanta:track:streetlampsamba"}, "Added 1 item(s)\n", "", 0},
      {{"library", "list", "--limit", "3", "--offset", "1"},
       "Total: 12 (has_more: yes)\n"
       "  [audiobook] The Last Cartographer  orvanta:audiobook:lastcartographer\n"
       "  [show] The Long Shelf  orvanta:show:thelongshelf\n"
       "  [playlist] Fresh Finds Weekly  orvanta:playlist:freshfinds\n",
       "", 0},
      {{"library", "list", "--type", "track", "--limit", "2"},
       "Total: 5 (has_more: yes)\n"
       "  [track] Streetlamp Samba  orvanta:track:streetlampsamba by Brasswing Collective Pella Moor\n"
       "  [track] Neon Orchard  orvanta:track:neonorchard by Pella Moor\n",
       "", 0},
      {{"library", "list", "--type", "album", "--offset", "1", "--format", "json"},
       R"({"items":[{"uri":"orvanta:album:lanternweather","name":"Lantern Weather","type":"album",)"
       R"("artists":["Nimbus Ferry"]}],"total":2,"has_more":false})"
       "\n",
       "", 0},
      {{"library", "list", "--type", "episode"}, "Total: 0 (has_more: no)\n", "", 0},
      // In the order of the URIs, not the order typed.
      {{"library", "contains", "orvanta:track:slowsnow", "orvanta:album:driftglass"},
       "orvanta:album:driftglass: saved\norvanta:track:slowsnow: not saved\n", "", 0},
      {{"library", "contains", "orvanta:track:slowsnow", "orvanta:album:driftglass", "--format", "json"},
       R"({"contains":{"orvanta:album:driftglass":true,"orvanta:track:slowsnow":false}})"
       "\n",
       "", 0},
  });
  EXPECT_EQ(params_of(sim, "library_list"), (Texts{
                                                R"({"limit":3,"offset":1})",
                                                R"({"type":"track","limit":2})",
                                                R"({"type":"album","offset":1})",
                                                R"({"type":"episode"})",
                                            }));
  EXPECT_EQ(params_of(sim, "library_contains"),
            (Texts{2, R"({"uris":["orvanta:track:slowsnow","orvanta:album:driftglass"]})"}));
}

// The URIs the client could not change are not shown and don't fail the
// command; `library batch` is the place that reports them.
TEST(LibraryCommands, AddAndRemoveReportOnlyTheCount) {
  Sim sim;
  expect_command_cases({
      {{"library", "add", "orvanta:track:nosuch", "--format", "json"}, "Added 0 item(s)\n", "", 0},
      {{"library", "add", "orvanta:track:slowsnow", "orvanta:track:nosuch"}, "Added 1 item(s)\n", "", 0},
      {{"library", "remove", "orvanta:track:slowsnow", "orvanta:album:driftglass", "orvanta:track:nosuch",
        "--format", "json"},
       "Removed 2 item(s)\n", "", 0},
  });
  EXPECT_EQ(params_of(sim, "library_remove"),
            (Texts{R"({"uris":["orvanta:track:slowsnow","orvanta:album:driftglass","orvanta:track:nosuch"]})"}));
}

TEST(PlaylistCommands, GetPrintsTracksAndEpisodesByTheirOwnPositions) {
  Sim sim;
  expect_command_cases({
      {{"playlist", "get", "orvanta:playlist:morningferry", "--offset", "2"},
       "Morning Ferry  orvanta:playlist:morningferry\n"
       "  Owner: mossfern42  Tracks: 5\n"
       "  Desc: Slow starts, warm coffee.\n"
       "   2. Copper Hour by Brasswing Collective  orvanta:track:copperhour\n"
       "   3. Kettle and Rain by Nimbus Ferry  orvanta:track:kettleandrain\n"
       "   4. [episode] Soldering at Midnight  orvanta:episode:tinkerer7\n"
       "      Show: The Tinkerer's Desk\n",
       "", 0},
      // Several artists of a playlist track are joined by ", "; no
      // description, no "Desc:" line.
      {{"playlist", "get", "orvanta:playlist:backroads", "--limit", "1", "--offset", "4"},
       "Back Roads  orvanta:playlist:backroads\n"
       "  Owner: mossfern42  Tracks: 5\n"
       "   4. Streetlamp Samba by Brasswing Collective, Pella Moor  orvanta:track:streetlampsamba\n",
       "", 0},
      {{"playlist", "get", "orvanta:playlist:kitchenjazz", "--no-tracks", "--format", "json"},
       R"({"uri":"orvanta:playlist:kitchenjazz","name":"Kitchen Jazz","description":"Shared with the flat.",)"
       R"("owner":"mossfern42","is_owned":true,"collaborative":true,"is_public":false,"track_count":2,)"
       R"("snapshot_id":"snap-kitchenjazz-3","tracks":[]})"
       "\n",
       "", 0},
  });
  EXPECT_EQ(params_of(sim, "playlist_get"), (Texts{
                                                R"({"uri":"orvanta:playlist:morningferry","include_tracks":true,"offset":2})",
                                                R"({"uri":"orvanta:playlist:backroads","include_tracks":true,"limit":1,"offset":4})",
                                                R"({"uri":"orvanta:playlist:kitchenjazz","include_tracks":false})",
                                            }));
}

TEST(PlaylistCommands, AnEpisodeWithoutAShowIsOneLine) {
  StateFile state(R"({"account":{"user":{"username":"u1","display_name":"U","country":"SE","product":"p","catalogue":"p"}},
    "episodes": [{"uri": "orvanta:episode:lone", "name": "Lone Episode", "show_uri": "orvanta:show:gone"}],
    "tracks": [{"uri": "orvanta:track:bare", "name": "Bare"}],
    "playlists": [{"uri": "orvanta:playlist:p", "name": "P", "owner": "someone",
                   "items": ["orvanta:episode:lone", "orvanta:track:bare"]}]})");
  Sim sim({"--state", state.path});
  expect_command_cases({{{"playlist", "get", "orvanta:playlist:p"},
                     "P  orvanta:playlist:p\n"
                     "  Owner: someone  Tracks: 2\n"
                     "   0. [episode] Lone Episode  orvanta:episode:lone\n"
                     "   1. Bare  orvanta:track:bare\n",
                     "", 0}});
}

TEST(PlaylistCommands, ChangesPrintTheirTextInBothModes) {
  Sim sim;
  const std::string cover = sim.directory() + "/cover.jpg";
  std::ofstream(cover) << "jpeg";
  expect_command_cases({
      {{"playlist", "create", "Road Trip", "--description", "Long drives", "--public", "--image-file", cover},
       "Created: Road Trip  orvanta:playlist:sim1\n", "", 0},
      {{"playlist", "create", "Quiet", "--format", "json"}, "Created: Quiet  orvanta:playlist:sim2\n", "", 0},
      // Visibility flags are accepted by `playlist update` and change nothing.
      {{"playlist", "update", "orvanta:playlist:backroads", "--name", "Byways", "--private", "--format", "json"},
       "Updated: Byways  orvanta:playlist:backroads\n", "", 0},
      {{"playlist", "update", "orvanta:playlist:deepfocus", "--description", "", "--image-file", cover},
       "Updated: Deep Focus  orvanta:playlist:deepfocus\n", "", 0},
      {{"playlist", "add", "orvanta:playlist:deepfocus", "orvanta:track:neonorchard", "orvanta:episode:tinkerer8",
        "--position", "1", "--format", "json"},
       "Added 2 track(s)\n", "", 0},
      {{"playlist", "add", "orvanta:playlist:deepfocus", "orvanta:track:copperhour"}, "Added 1 track(s)\n", "", 0},
      {{"playlist", "remove", "orvanta:playlist:deepfocus", "--positions", "0,2", "--positions", "6", "--format",
        "json"},
       "Removed 3 track(s)\n", "", 0},
  });
  EXPECT_EQ(params_of(sim, "playlist_create"),
            (Texts{
                R"({"name":"Road Trip","description":"Long drives","cover_image_path":")" + cover +
                    R"(","is_public":true})",
                R"({"name":"Quiet","is_public":false})",
            }));
  EXPECT_EQ(params_of(sim, "playlist_update"),
            (Texts{
                R"({"playlist_uri":"orvanta:playlist:backroads","name":"Byways"})",
                R"({"playlist_uri":"orvanta:playlist:deepfocus","description":"","cover_image_path":")" + cover +
                    R"("})",
            }));
  EXPECT_EQ(params_of(sim, "playlist_add_tracks"),
            (Texts{
                R"({"playlist_uri":"orvanta:playlist:deepfocus",)"
                R"("track_uris":["orvanta:track:neonorchard","orvanta:episode:tinkerer8"],"position":1})",
                R"({"playlist_uri":"orvanta:playlist:deepfocus","track_uris":["orvanta:track:copperhour"]})",
            }));
  EXPECT_EQ(params_of(sim, "playlist_remove_tracks"),
            (Texts{R"({"playlist_uri":"orvanta:playlist:deepfocus","positions":[0,2,6]})"}));
}

// The cover is looked for against the working directory before anything is
// sent, and named by its absolute path.
TEST(PlaylistCommands, AMissingCoverImageStopsBeforeAnyRequest) {
  Sim sim;
  const std::string missing = (std::filesystem::current_path() / "no.jpg").string();
  expect_command_cases({
      {{"playlist", "create", "x", "--image-file", "no.jpg"}, "", "cover image file not found: " + missing + "\n", 1},
      {{"playlist", "update", "orvanta:playlist:backroads", "--image-file", "no.jpg"},
       "",
       "cover image file not found: " + missing + "\n",
       1},
  });
  EXPECT_EQ(after_handshake(sim), Texts{});
}

TEST(LibraryCommands, FailuresAreOneLineWithTheCodesWords) {
  Sim sim({"--fail", "library_list=16", "--fail", "library_contains=2", "--fail", "library_add=8",
                  "--fail", "library_remove=4", "--fail", "playlist_get=9", "--fail", "playlist_create=16",
                  "--fail", "playlist_update=2", "--fail", "playlist_add_tracks=7", "--fail",
                  "playlist_remove_tracks=4"});
  expect_command_cases({
      {{"library", "list", "--format", "json"}, "", "library list failed: not logged in\n", 1},
      {{"library", "contains", "orvanta:track:a"}, "", "library contains failed: bad request\n", 1},
      {{"library", "add", "orvanta:track:a"}, "", "library add failed: playback restricted\n", 1},
      {{"library", "remove", "orvanta:track:a"}, "", "library remove failed: internal server error\n", 1},
      {{"playlist", "get", "orvanta:playlist:p", "--format", "json"}, "", "playlist get failed: request timed out\n", 1},
      {{"playlist", "create", "x"}, "", "playlist create failed: not logged in\n", 1},
      {{"playlist", "update", "orvanta:playlist:p", "--name", "y"}, "", "playlist update failed: bad request\n", 1},
      {{"playlist", "add", "orvanta:playlist:p", "orvanta:track:a"}, "", "playlist add failed: cancelled\n", 1},
      {{"playlist", "remove", "orvanta:playlist:p", "--positions", "0"},
       "",
       "playlist remove failed: internal server error\n",
       1},
  });
}

}  // namespace
}  // namespace orvanta::testing
