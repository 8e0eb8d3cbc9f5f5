// `search`, `lookup`, `taste`, `history top|recent` and `now-playing` of the
// real CLI against the simulator: stdout, stderr and status byte for byte,
// and the values that went out.
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "tests/support/process.hpp"
#include "tests/support/sim_process.hpp"

namespace orvanta::testing {
namespace {

struct Case {
  std::vector<std::string> args;
  std::string out;
  std::string err;
  int status;
};

std::string shown(const std::vector<std::string>& args) {
  std::string text;
  for (const auto& a : args) text += " [" + a + "]";
  return text;
}

void expect_cases(const std::vector<Case>& cases) {
  for (const Case& c : cases) {
    ProcessResult r = run_cli(c.args);
    EXPECT_EQ(r.out, c.out) << shown(c.args);
    EXPECT_EQ(r.err, c.err) << shown(c.args);
    EXPECT_EQ(r.status, c.status) << shown(c.args);
  }
}

// The params of every logged request of `method`, in order.
std::vector<std::string> params_of(const SimProcess& sim, const std::string& method) {
  const std::string head = R"({"method":")" + method + R"(","params":)";
  std::vector<std::string> params;
  for (const std::string& r : sim.requests()) {
    if (r.compare(0, head.size(), head) == 0) params.push_back(r.substr(head.size(), r.size() - head.size() - 1));
  }
  return params;
}

// A simulator state of our own, for the layouts the built-in one never
// produces. Removed with the object.
class StateFile {
 public:
  explicit StateFile(const std::string& json)
      : path_((std::filesystem::temp_directory_path() /
               ("orvanta_content_state_" + std::to_string(::getpid()) + ".json"))
                  .string()) {
    std::ofstream(path_) << json;
  }
  ~StateFile() { std::filesystem::remove(path_); }
  StateFile(const StateFile&) = delete;
  StateFile& operator=(const StateFile&) = delete;
  const std::string& path() const { return path_; }

 private:
  std::string path_;
};

const std::string account =
    R"("account":{"user":{"username":"u1","display_name":"U","country":"SE","product":"premium","catalogue":"premium"}})";

// One of each kind of search entry, some without credits, paused on a track
// nobody is credited for, with `order` as the client's section order.
std::string edge_state(const std::string& order) {
  return "{" + account + R"(,
    "artists": [{"uri": "orvanta:artist:alpha", "name": "Alpha Echo"}],
    "albums": [{"uri": "orvanta:album:echoes", "name": "Echoes", "artist_uris": ["orvanta:artist:alpha"]}],
    "tracks": [{"uri": "orvanta:track:echo", "name": "Echo Song"}],
    "episodes": [{"uri": "orvanta:episode:echo1", "name": "Echo Episode"}],
    "playlists": [{"uri": "orvanta:playlist:echolist", "name": "Echo List", "owner": ""}],
    "search_categories_order": )" + order + R"(,
    "search_recommendations": {"title": "Made for U", "playlists": [
        {"uri": "orvanta:playlist:mix", "name": "Echo Mix", "author": "orvanta"},
        {"uri": "orvanta:playlist:raw", "name": "Raw Echo"}]},
    "history": [{"uri": "orvanta:track:echo", "played_seconds": 3599},
                {"uri": "orvanta:album:echoes", "played_seconds": 7200}],
    "player": {"track_uri": "orvanta:track:echo", "is_playing": false}})";
}

TEST(ContentCommands, SearchFollowsTheClientsSectionOrder) {
  SimProcess sim;
  expect_cases({
      // The built-in client lists the top hit, then tracks before artists.
      {{"search", "e", "--limit", "1"},
       "Top Hit:\n"
       "  Nimbus Ferry  orvanta:artist:nimbusferry\n"
       "Tracks:\n"
       "  Harbour Lights by Nimbus Ferry  orvanta:track:harbourlights\n"
       "Artists:\n"
       "  Nimbus Ferry  orvanta:artist:nimbusferry\n"
       "Albums:\n"
       "  Lantern Weather by Nimbus Ferry  orvanta:album:lanternweather\n"
       "Playlists:\n"
       "  Morning Ferry by mossfern42  orvanta:playlist:morningferry\n"
       "Shows:\n"
       "  The Long Shelf  orvanta:show:thelongshelf\n"
       "Episodes:\n"
       "  Ep. 41: Reading Maps That Lie  orvanta:episode:longshelf41\n"
       "Audiobooks:\n"
       "  The Last Cartographer by Maren Oakhollow  orvanta:audiobook:lastcartographer\n",
       "", 0},
      {{"search", "samba", "--type", "track"},
       "Tracks:\n  Streetlamp Samba by Brasswing Collective, Pella Moor  orvanta:track:streetlampsamba\n", "", 0},
      {{"search", "cart", "--type", "audiobook", "--format", "json"},
       R"({"artists":[],"tracks":[],"albums":[],"playlists":[],"shows":[],"episodes":[],)"
       R"("audiobooks":[{"uri":"orvanta:audiobook:lastcartographer","name":"The Last Cartographer",)"
       R"("authors":["Maren Oakhollow"]}],)"
       R"("categories_order":["topHit","tracks","artists","albums","playlists","shows","audioepisodes","audiobooks"]})"
       "\n",
       "", 0},
      // Nothing found is no failure.
      {{"search", "zzzz"}, "", "", 0},
  });
  EXPECT_EQ(params_of(sim, "search"), (std::vector<std::string>{
                                          R"({"query":"e","limit":1})",
                                          R"({"query":"samba","type":"track"})",
                                          R"({"query":"cart","type":"audiobook"})",
                                          R"({"query":"zzzz"})",
                                      }));
}

// Only the named sections print, each once per mention; unknown words and
// "episodes" (the client says "audioepisodes") print nothing. Entries
// without credits have no " by ".
TEST(ContentCommands, SearchWithAnOrderOfItsOwn) {
  StateFile state(edge_state(R"(["artists", "tracks", "episodes", "podcasts", "topRecommendations", "playlists"])"));
  SimProcess sim({"--state", state.path()});
  expect_cases({{{"search", "echo"},
                 "Artists:\n"
                 "  Alpha Echo  orvanta:artist:alpha\n"
                 "Tracks:\n"
                 "  Echo Song  orvanta:track:echo\n"
                 "Recommendations (Made for U):\n"
                 "  Echo Mix by orvanta  orvanta:playlist:mix\n"
                 "  Raw Echo  orvanta:playlist:raw\n"
                 "Playlists:\n"
                 "  Echo List  orvanta:playlist:echolist\n",
                 "", 0}});
}

TEST(ContentCommands, SearchWithoutAnOrderUsesTheFixedOne) {
  StateFile state(edge_state("[]"));
  SimProcess sim({"--state", state.path()});
  expect_cases({{{"search", "echo"},
                 "Top Hit:\n"
                 "  Alpha Echo  orvanta:artist:alpha\n"
                 "Recommendations (Made for U):\n"
                 "  Echo Mix by orvanta  orvanta:playlist:mix\n"
                 "  Raw Echo  orvanta:playlist:raw\n"
                 "Tracks:\n"
                 "  Echo Song  orvanta:track:echo\n"
                 "Artists:\n"
                 "  Alpha Echo  orvanta:artist:alpha\n"
                 "Albums:\n"
                 "  Echoes by Alpha Echo  orvanta:album:echoes\n"
                 "Playlists:\n"
                 "  Echo List  orvanta:playlist:echolist\n"
                 "Episodes:\n"
                 "  Echo Episode  orvanta:episode:echo1\n",
                 "", 0}});
}

TEST(ContentCommands, LookupPrintsResolvedEntitiesAndWarnsAboutTheRest) {
  SimProcess sim;
  expect_cases({
      {{"lookup", "orvanta:track:harbourlights", "orvanta:track:nosuch", "orvanta:show:thelongshelf"},
       "[track] Harbour Lights\n"
       "  By: Nimbus Ferry  (orvanta:artist:nimbusferry)\n"
       "  From: Lantern Weather  (orvanta:album:lanternweather)\n"
       "  duration:            3:34\n"
       "  release_date:        2021-09-17\n"
       "\n"
       "[show] The Long Shelf\n"
       "  Two friends read the books everybody owns and nobody finishes.\n"
       "  By: Ashgrove Audio\n"
       "  rating:              4.7\n"
       "\n",
       "warning: could not resolve orvanta:track:nosuch\n", 0},
      // A key too long for the column pushes its value right; it isn't cut.
      {{"lookup", "orvanta:episode:tinkerer7", "--fields", "entity_type,orvanta_release_date,bpm"},
       "[episode] Soldering at Midnight\n"
       "  Why every project goes wrong after eleven.\n"
       "  From: The Tinkerer's Desk  (orvanta:show:tinkerersdesk)\n"
       "  duration:            33:00\n"
       "  release_date:        2024-11-05\n"
       "  entity_type:         episode\n"
       "\n",
       "", 0},
      {{"lookup", "orvanta:track:copperhour", "--fields", "orvanta_release_date"},
       "[track] Copper Hour\n"
       "  By: Brasswing Collective  (orvanta:artist:brasswing)\n"
       "  From: Brass at Dusk  (orvanta:album:brassatdusk)\n"
       "  duration:            4:58\n"
       "  release_date:        2018-10-26\n"
       "  orvanta_release_date: 2018-10-26\n"
       "\n",
       "", 0},
      // Nothing resolved is a failure, in JSON too, which still shows all.
      {{"lookup", "orvanta:track:nosuch"}, "", "warning: could not resolve orvanta:track:nosuch\n", 1},
      {{"lookup", "orvanta:track:nosuch", "--format", "json"},
       R"({"entities":[{"uri":"orvanta:track:nosuch","type":"track","name":"","contributors":[],"metadata":[]}]})"
       "\n",
       "warning: could not resolve orvanta:track:nosuch\n", 1},
  });
  EXPECT_EQ(params_of(sim, "lookup"),
            (std::vector<std::string>{
                R"({"uris":["orvanta:track:harbourlights","orvanta:track:nosuch","orvanta:show:thelongshelf"]})",
                R"({"uris":["orvanta:episode:tinkerer7"],"fields":["entity_type","orvanta_release_date","bpm"]})",
                R"({"uris":["orvanta:track:copperhour"],"fields":["orvanta_release_date"]})",
                R"({"uris":["orvanta:track:nosuch"]})",
                R"({"uris":["orvanta:track:nosuch"]})",
            }));
}

TEST(ContentCommands, TasteShowsTheTextsAndKeepsTheUrisForJson) {
  SimProcess sim;
  expect_cases({
      {{"taste"},
       "Musical Identity:\n"
       "  Acoustic storytelling with a soft spot for brass and late-night synths.\n"
       "\n"
       "Content Rhythms:\n"
       "  Ambient focus music on weekday mornings, surf rock and synth-pop on Friday evenings.\n"
       "\n"
       "What Makes You Distinctive:\n"
       "  You replay whole albums in order far more often than most listeners.\n"
       "\n"
       "Podcast & Audiobook Taste:\n"
       "  Book talk, tinkering and slow cooking; long episodes over short ones.\n",
       "", 0},
      {{"taste", "--format", "json"},
       R"({"musical_identity":"Acoustic storytelling with a soft spot for brass and late-night synths.",)"
       R"("content_rhythms":"Ambient focus music on weekday mornings, surf rock and synth-pop on Friday evenings.",)"
       R"("what_makes_you_distinctive":"You replay whole albums in order far more often than most listeners.",)"
       R"("podcast_and_audiobook_taste":"Book talk, tinkering and slow cooking; long episodes over short ones.",)"
       R"("artist_uris":["orvanta:artist:nimbusferry","orvanta:artist:pellamoor","orvanta:artist:brasswing"],)"
       R"("show_uris":["orvanta:show:thelongshelf","orvanta:show:slowkitchen"],)"
       R"("audiobook_uris":["orvanta:audiobook:lastcartographer"]})"
       "\n",
       "", 0},
  });
}

TEST(ContentCommands, HistoryTopCountsHoursAndRecentShowsWhen) {
  SimProcess sim;
  expect_cases({
      {{"history", "top", "--type", "track", "--limit", "3"},
       " 1. Harbour Lights  orvanta:track:harbourlights  (25h)\n"
       " 2. Glass Tide  orvanta:track:glasstide  (17h)\n"
       " 3. Neon Orchard  orvanta:track:neonorchard  (11h)\n",
       "", 0},
      {{"history", "recent", "--limit", "2"},
       "Glass Tide  orvanta:track:glasstide  2025-03-03T08:02:55Z\n"
       "Harbour Lights  orvanta:track:harbourlights  2025-03-03T07:41:12Z\n",
       "", 0},
      {{"history", "top", "--type", "album", "--format", "json"},
       R"({"items":[{"uri":"orvanta:album:lanternweather","name":"Lantern Weather","played_seconds":120600}]})"
       "\n",
       "", 0},
      {{"history", "recent", "--type", "episode", "--format", "json"},
       R"({"items":[{"uri":"orvanta:episode:longshelf41","name":"Ep. 41: Reading Maps That Lie",)"
       R"("last_played_at":"2025-02-27T19:05:33Z"}]})"
       "\n",
       "", 0},
  });
  EXPECT_EQ(params_of(sim, "history_top"),
            (std::vector<std::string>{R"({"type":"track","limit":3})", R"({"type":"album"})"}));
  EXPECT_EQ(params_of(sim, "history_recent"),
            (std::vector<std::string>{R"({"limit":2})", R"({"type":"episode"})"}));
}

TEST(ContentCommands, NowPlayingTellsPlayingFromPaused) {
  SimProcess sim;
  expect_cases({
      {{"now-playing"},
       "Harbour Lights \xE2\x80\x94 Nimbus Ferry  orvanta:track:harbourlights\n"
       "Context: Morning Ferry\n"
       "Status: Playing\n",
       "", 0},
      {{"now-playing", "--format", "json"},
       R"({"currently_playing":{"description":"Harbour Lights )"
       "\xE2\x80\x94"
       R"( Nimbus Ferry","uri":"orvanta:track:harbourlights","context_description":"Morning Ferry","is_playing":true}})"
       "\n",
       "", 0},
  });
}

// Whole hours are truncated; a paused track without a context has two lines.
TEST(ContentCommands, HoursTruncateAndPausedTrackWithoutContext) {
  StateFile state(edge_state("[]"));
  SimProcess sim({"--state", state.path()});
  expect_cases({
      {{"history", "top"}, " 1. Echoes  orvanta:album:echoes  (2h)\n 2. Echo Song  orvanta:track:echo  (0h)\n", "", 0},
      {{"now-playing"}, "Echo Song  orvanta:track:echo\nStatus: Paused\n", "", 0},
  });
}

// With nothing playing, JSON is the response without `currently_playing`,
// not the sentence; a profile without its podcast text ends after the third.
TEST(ContentCommands, EmptyAnswersAreNoFailures) {
  StateFile state("{" + account + "}");
  SimProcess sim({"--state", state.path()});
  expect_cases({
      {{"now-playing"}, "Nothing currently playing\n", "", 0},
      {{"now-playing", "--format", "json"}, "{}\n", "", 0},
      {{"taste"}, "Musical Identity:\n  \n\nContent Rhythms:\n  \n\nWhat Makes You Distinctive:\n  \n", "", 0},
      {{"history", "recent"}, "", "", 0},
  });
}

TEST(ContentCommands, FailuresAreOneLineOfTextInBothModes) {
  SimProcess sim({"--fail", "search=16", "--fail", "lookup=2", "--fail", "taste_profile=4", "--fail",
                  "history_top=9", "--fail", "history_recent=8", "--fail", "now_playing=999"});
  expect_cases({
      {{"search", "x"}, "", "Search failed: not logged in\n", 1},
      {{"search", "x", "--format", "json"}, "", "Search failed: not logged in\n", 1},
      {{"lookup", "orvanta:track:x"}, "", "Lookup failed: bad request\n", 1},
      {{"taste", "--format", "json"}, "", "Failed to get taste profile: internal server error\n", 1},
      {{"history", "top"}, "", "Failed to get top history: request timed out\n", 1},
      {{"history", "recent", "--format", "json"}, "", "Failed to get recent history: playback restricted\n", 1},
      {{"now-playing"}, "", "Failed to get now playing: desktop_api_error_999\n", 1},
  });
}

}  // namespace
}  // namespace orvanta::testing
