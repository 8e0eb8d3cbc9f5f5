// `search`, `lookup`, `taste`, `history top|recent` and `now-playing` of the
// real CLI against the simulator: stdout, stderr and status byte for byte,
// and the values that went out.
#include <gtest/gtest.h>

#include "tests/support/cli_cases.hpp"

namespace orvanta::testing {
namespace {

const std::string account =
    R"("account":{"user":{"username":"u1","display_name":"U","country":"SE","product":"p","catalogue":"p"}})";

// One of each kind of search entry, some without credits, paused on a track
// nobody is credited for, with `order` as the client's section order.
std::string edge_state(const std::string& order) {
  return "{" + account + R"(,
    "artists": [{"uri": "orvanta:artist:alpha", "name": "Alpha Echo"}, {"uri": "orvanta:artist:b", "name": "Bo"}],
    "albums": [{"uri": "orvanta:album:echoes", "name": "Echoes",
                "artist_uris": ["orvanta:artist:alpha", "orvanta:artist:b"]}],
    "tracks": [{"uri": "orvanta:track:echo", "name": "Echo Song"}],
    "episodes": [{"uri": "orvanta:episode:echo1", "name": "Echo Episode"}],
    "shows": [{"uri": "orvanta:show:echoshow", "name": "Echo Show"}],
    "audiobooks": [{"uri": "orvanta:audiobook:echobook", "name": "Echo Book", "authors": ["", "Cy"]}],
    "playlists": [{"uri": "orvanta:playlist:echolist", "name": "Echo List", "owner": ""}],
    "search_categories_order": )" + order + R"(,
    "search_recommendations": {"title": "Made for U", "playlists": [
        {"uri": "orvanta:playlist:mix", "name": "Echo Mix", "author": "orvanta"},
        {"uri": "orvanta:playlist:raw", "name": "Raw Echo"}]},
    "history": [{"uri": "orvanta:track:echo", "played_seconds": 3599},
                {"uri": "orvanta:album:echoes", "played_seconds": 7200}],
    "player": {"track_uri": "orvanta:track:echo", "is_playing": false},
    "taste": {"musical_identity": "M", "content_rhythms": "C", "what_makes_you_distinctive": "W",
              "podcast_and_audiobook_taste": "P", "artist_uris": [], "show_uris": [], "audiobook_uris": []}})";
}

TEST(ContentCommands, SearchSendsItsFiltersAndFindingNothingIsNoFailure) {
  SimProcess sim;
  expect_cli_cases({
      {{"search", "cart", "--type", "audiobook", "--format", "json"},
       R"({"artists":[],"tracks":[],"albums":[],"playlists":[],"shows":[],"episodes":[],)"
       R"("audiobooks":[{"uri":"orvanta:audiobook:lastcartographer","name":"The Last Cartographer",)"
       R"("authors":["Maren Oakhollow"]}],)"
       R"("categories_order":["topHit","tracks","artists","albums","playlists","shows","audioepisodes","audiobooks"]})"
       "\n",
       "", 0},
      {{"search", "zzzz", "--limit", "5"}, "", "", 0},
  });
  EXPECT_EQ(params_of(sim, "search"), (std::vector<std::string>{
                                          R"({"query":"cart","type":"audiobook"})",
                                          R"({"query":"zzzz","limit":5})",
                                      }));
}

// Only the named sections print, each once per mention; unknown words and
// "episodes" (the client says "audioepisodes") print nothing. Entries
// without credits have no " by ", and several are joined by ", ", an empty
// name too.
TEST(ContentCommands, SearchWithAnOrderOfItsOwn) {
  StateFile state(edge_state(R"(["artists", "tracks", "episodes", "podcasts", "topRecommendations",
                                 "playlists", "audiobooks", "artists"])"));
  SimProcess sim({"--state", state.path});
  expect_cli_cases({{{"search", "echo"},
                 "Artists:\n"
                 "  Alpha Echo  orvanta:artist:alpha\n"
                 "Tracks:\n"
                 "  Echo Song  orvanta:track:echo\n"
                 "Recommendations (Made for U):\n"
                 "  Echo Mix by orvanta  orvanta:playlist:mix\n"
                 "  Raw Echo  orvanta:playlist:raw\n"
                 "Playlists:\n"
                 "  Echo List  orvanta:playlist:echolist\n"
                 "Audiobooks:\n"
                 "  Echo Book by , Cy  orvanta:audiobook:echobook\n"
                 "Artists:\n"
                 "  Alpha Echo  orvanta:artist:alpha\n",
                 "", 0}});
}

// Without an order from the client, the fixed one. Whole hours are
// truncated; a paused track without a context has two lines; the podcast
// taste comes last, after a blank line.
TEST(ContentCommands, SearchWithoutAnOrderHistoryAndPausedTrack) {
  StateFile state(edge_state("[]"));
  SimProcess sim({"--state", state.path});
  expect_cli_cases({{{"search", "echo"},
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
                 "  Echoes by Alpha Echo, Bo  orvanta:album:echoes\n"
                 "Playlists:\n"
                 "  Echo List  orvanta:playlist:echolist\n"
                 "Shows:\n"
                 "  Echo Show  orvanta:show:echoshow\n"
                 "Episodes:\n"
                 "  Echo Episode  orvanta:episode:echo1\n"
                 "Audiobooks:\n"
                 "  Echo Book by , Cy  orvanta:audiobook:echobook\n",
                 "", 0},
                {{"history", "top"},
                 " 1. Echoes  orvanta:album:echoes  (2h)\n 2. Echo Song  orvanta:track:echo  (0h)\n",
                 "", 0},
                {{"now-playing"}, "Echo Song  orvanta:track:echo\nStatus: Paused\n", "", 0},
                {{"taste"},
                 "Musical Identity:\n  M\n\nContent Rhythms:\n  C\n\nWhat Makes You Distinctive:\n  W\n"
                 "\nPodcast & Audiobook Taste:\n  P\n",
                 "", 0}});
}

TEST(ContentCommands, LookupPrintsResolvedEntitiesAndWarnsAboutTheRest) {
  SimProcess sim;
  expect_cli_cases({
      // A key too long for the column pushes its value right; it isn't cut.
      {{"lookup", "orvanta:track:copperhour", "orvanta:track:nosuch", "orvanta:show:thelongshelf", "--fields",
        "orvanta_release_date,bpm"},
       "[track] Copper Hour\n"
       "  By: Brasswing Collective  (orvanta:artist:brasswing)\n"
       "  From: Brass at Dusk  (orvanta:album:brassatdusk)\n"
       "  duration:            4:58\n"
       "  release_date:        2018-10-26\n"
       "  orvanta_release_date: 2018-10-26\n"
       "  bpm:                 118\n"
       "\n"
       "[show] The Long Shelf\n"
       "  Two friends read the books everybody owns and nobody finishes.\n"
       "  By: Ashgrove Audio\n"
       "  rating:              4.7\n"
       "\n",
       "warning: could not resolve orvanta:track:nosuch\n", 0},
      // Nothing resolved is a failure, in JSON too, which still shows all.
      {{"lookup", "orvanta:track:nosuch"}, "", "warning: could not resolve orvanta:track:nosuch\n", 1},
      {{"lookup", "orvanta:track:nosuch", "--format", "json"},
       R"({"entities":[{"uri":"orvanta:track:nosuch","type":"track","name":"","contributors":[],"metadata":[]}]})"
       "\n",
       "warning: could not resolve orvanta:track:nosuch\n", 1},
  });
  EXPECT_EQ(params_of(sim, "lookup"),
            (std::vector<std::string>{
                R"({"uris":["orvanta:track:copperhour","orvanta:track:nosuch","orvanta:show:thelongshelf"],)"
                R"("fields":["orvanta_release_date","bpm"]})",
                R"({"uris":["orvanta:track:nosuch"]})",
                R"({"uris":["orvanta:track:nosuch"]})",
            }));
}

TEST(ContentCommands, HistoryTopCountsHoursAndRecentShowsWhen) {
  SimProcess sim;
  expect_cli_cases({
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
  });
  EXPECT_EQ(params_of(sim, "history_top"),
            (std::vector<std::string>{R"({"type":"track","limit":3})", R"({"type":"album"})"}));
  EXPECT_EQ(params_of(sim, "history_recent"),
            (std::vector<std::string>{R"({"limit":2})"}));
}

TEST(ContentCommands, NowPlayingTellsPlayingFromPaused) {
  SimProcess sim;
  expect_cli_cases({
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

// With nothing playing, JSON is the response without `currently_playing`,
// not the sentence; a profile without its podcast text ends after the third.
TEST(ContentCommands, EmptyAnswersAreNoFailures) {
  StateFile state("{" + account + "}");
  SimProcess sim({"--state", state.path});
  expect_cli_cases({
      {{"now-playing"}, "Nothing currently playing\n", "", 0},
      {{"now-playing", "--format", "json"}, "{}\n", "", 0},
      {{"taste"}, "Musical Identity:\n  \n\nContent Rhythms:\n  \n\nWhat Makes You Distinctive:\n  \n", "", 0},
      // The URI lists show in JSON only.
      {{"taste", "--format", "json"},
       R"({"musical_identity":"","content_rhythms":"","what_makes_you_distinctive":"",)"
       R"("artist_uris":[],"show_uris":[],"audiobook_uris":[]})"
       "\n",
       "", 0},
      {{"history", "recent"}, "", "", 0},
  });
}

TEST(ContentCommands, FailuresAreOneLineOfTextInBothModes) {
  SimProcess sim({"--fail", "search=16", "--fail", "lookup=2", "--fail", "taste_profile=4", "--fail",
                  "history_top=9", "--fail", "history_recent=8", "--fail", "now_playing=999"});
  expect_cli_cases({
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
