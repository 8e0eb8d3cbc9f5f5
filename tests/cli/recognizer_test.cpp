#include "cli/recognizer.hpp"

#include <gtest/gtest.h>

#include <clocale>
#include <string>
#include <vector>

#include "command_line_fixture.hpp"

namespace orvanta::cli {
namespace {

using testing::CommandLineTest;
using Words = std::vector<std::string>;
using Texts = std::vector<std::string>;
using RecogniseTest = CommandLineTest;

// One row of a grammar table: the words behind the program name, and what
// the record holds afterwards. CommandId::None with no error is the bare
// usage failure.
struct Case {
  Words words;
  CommandId command;
  std::string argument = "";
  std::string error = "";
};

class GrammarTest : public CommandLineTest {
 protected:
  void check(const std::vector<Case>& cases) {
    for (const Case& c : cases) {
      parse(c.words);
      SCOPED_TRACE(typed());
      EXPECT_EQ(line.command(), c.command);
      EXPECT_EQ(line.argument(), c.argument);
      EXPECT_EQ(line.error_text(), c.error);
      EXPECT_EQ(line.unknown_word(), "");
      EXPECT_FALSE(line.help_requested());
    }
  }
};

constexpr CommandId none = CommandId::None;

TEST_F(RecogniseTest, NoArgumentsGiveTheBareRecord) {
  parse({});
  EXPECT_EQ(line.command(), none);
  EXPECT_EQ(line.program_name(), "orvanta_cli");
  EXPECT_EQ(line.argc(), 1);
  EXPECT_EQ(line.error_text(), "");
  EXPECT_EQ(line.unknown_word(), "");

  const char* const nothing[] = {nullptr};
  const CommandLine empty = parse_command_line(0, nothing);
  EXPECT_EQ(empty.program_name(), "orvanta_cli");
  EXPECT_EQ(empty.command(), none);
}

TEST_F(RecogniseTest, UnknownFirstWordsAreKeptForTheUnknownCommandPage) {
  const Texts cases[] = {{"nosuch"}, {"help"}, {"Status"}, {"stat"}, {"pauses"}, {""},
                         {"-x"},     {"--format", "json", "status"}};
  for (const Texts& words : cases) {
    parse(words);
    EXPECT_EQ(line.command(), none) << typed();
    EXPECT_EQ(line.unknown_word(), words.front()) << typed();
    EXPECT_EQ(line.error_text(), "") << typed();
  }
  // The --format pre-scan has run all the same.
  EXPECT_TRUE(line.json_output());
}

TEST_F(RecogniseTest, FormatCountsAnywhereAndTheLastOneDecides) {
  const struct {
    Words words;
    bool json;
  } cases[] = {
      {{"next", "--bogus", "--format", "json"}, true},
      {{"pause", "--format", "json", "--format", "text"}, false},
      {{"status", "--format", "xml", "--format", "json"}, true},
      {{"status", "--format", "json", "--format"}, true},
      {{"status", "--format"}, false},
      {{"open", "--format", "json"}, true},
  };
  for (const auto& c : cases) {
    parse(c.words);
    EXPECT_EQ(line.json_output(), c.json) << typed();
    EXPECT_NE(line.command(), none) << typed();
  }
}

TEST_F(RecogniseTest, VersionFlagWinsOverEverything) {
  const Words cases[] = {{"--version"},
                         {"play", "--help", "--version"},
                         {"nosuch", "--version"},
                         {"search", "--name", "--version"},
                         {"-h", "--version"},
                         {"seek", "x", "--version"}};
  for (const Words& words : cases) {
    parse(words);
    EXPECT_EQ(line.command(), CommandId::Version) << typed();
    EXPECT_FALSE(line.help_requested()) << typed();
    EXPECT_EQ(line.error_text(), "") << typed();
  }
}

TEST_F(RecogniseTest, HelpTopicAndSubtopic) {
  const struct {
    Words words;
    std::string topic;
    std::string subtopic;
  } cases[] = {
      {{"-h"}, "", ""},
      {{"--help", "search"}, "", ""},
      {{"history", "--help"}, "history", ""},
      {{"history", "top", "--help"}, "history", "top"},
      {{"history", "nosuch", "-h"}, "history", "nosuch"},
      {{"search", "--limit", "x", "--help"}, "search", ""},
      {{"nosuch", "--help"}, "nosuch", ""},
      {{"pod", "--help"}, "pod", ""},
      {{"pod", "upload", "--help"}, "pod", "upload"},
      {{"pod", "shows", "--help"}, "pod shows", ""},
      {{"pod", "shows", "create", "--help"}, "pod shows", "create"},
      {{"pod", "episodes", "--show-id", "x", "-h"}, "pod episodes", ""},
      {{"pod", "timeline", "get", "--help"}, "pod timeline", "get"},
      {{"pod", "-h", "shows"}, "pod", ""},
      {{"devices", "", "--help"}, "devices", ""},
  };
  for (const auto& c : cases) {
    parse(c.words);
    SCOPED_TRACE(typed());
    EXPECT_TRUE(line.help_requested());
    EXPECT_EQ(line.help_topic(), c.topic);
    EXPECT_EQ(line.help_subtopic(), c.subtopic);
  }
}

// Under help the command is still recognised; main ignores it.
TEST_F(RecogniseTest, HelpStillRecognisesTheCommand) {
  parse({"pause", "--help"});
  EXPECT_EQ(line.command(), CommandId::Pause);
  parse({"search", "q", "--limit", "x", "--help"});
  EXPECT_EQ(line.error_text(), "--limit requires a positive integer, got 'x'");
  parse({"nosuch", "--help"});
  EXPECT_EQ(line.unknown_word(), "nosuch");
  parse({"--help", "pause"});
  EXPECT_EQ(line.command(), none);
}

TEST_F(GrammarTest, PlainPlaybackWordsIgnoreWhatFollows) {
  check({
      {{"status"}, CommandId::Status},
      {{"resume"}, CommandId::Resume},
      {{"pause", "--bogus", "x"}, CommandId::Pause},
      {{"next", "--limit", "0"}, CommandId::Next},
      {{"prev"}, CommandId::Previous},
      {{"previous"}, CommandId::Previous},
      {{"me"}, CommandId::Me},
      {{"taste", "--limit"}, CommandId::Taste},
      {{"now-playing"}, CommandId::NowPlaying},
      {{"version", "--bogus"}, CommandId::Version},
  });
}

TEST_F(GrammarTest, RepeatAndShuffle) {
  const std::string repeat = "repeat argument must be 'off', 'context', or 'track', got '";
  check({
      {{"repeat"}, CommandId::Repeat},
      {{"repeat", "--format", "json"}, CommandId::Repeat},
      {{"repeat", "off"}, CommandId::Repeat, "off"},
      {{"repeat", "context"}, CommandId::Repeat, "context"},
      {{"repeat", "track", "--bogus"}, CommandId::Repeat, "track"},
      {{"repeat", "TRACK"}, none, "", repeat + "TRACK'"},
      {{"repeat", ""}, none, "", repeat + "'"},
      {{"shuffle"}, none, "", "shuffle requires an argument: on or off"},
      {{"shuffle", "-on"}, none, "", "shuffle requires an argument: on or off"},
      {{"shuffle", "on"}, CommandId::Shuffle, "on"},
      {{"shuffle", "off"}, CommandId::Shuffle, "off"},
      {{"shuffle", "true"}, none, "", "shuffle requires 'on' or 'off', got 'true'"},
  });
}

TEST_F(GrammarTest, SpeedAndVolumeTakeABoundedFloat) {
  const std::string speed = "speed requires a float between 0.0 and 2.0, got '";
  const std::string volume = "volume requires a float between 0.0 and 1.0, got '";
  check({
      {{"speed"}, none},
      {{"speed", "-1"}, none},
      {{"speed", "2"}, CommandId::Speed, "2"},
      {{"speed", "0"}, CommandId::Speed, "0"},
      {{"speed", " 1.5"}, CommandId::Speed, " 1.5"},
      {{"speed", "2.01"}, none, "", speed + "2.01'"},
      {{"speed", "nan"}, none, "", speed + "nan'"},
      {{"speed", "1,5"}, none, "", speed + "1,5'"},
      {{"speed", ""}, none, "", speed + "'"},
      {{"volume", "-1"}, none},
      {{"volume", "--format", "json"}, none},
      {{"volume", "2"}, none, "", volume + "2'"},
      {{"volume", "1"}, CommandId::Volume, "1"},
      {{"volume", "0.25", "--bogus"}, CommandId::Volume, "0.25"},
      {{"volume", "inf"}, none, "", volume + "inf'"},
  });
}

TEST_F(GrammarTest, SeekTakesANegativeNumberButNoFlagInItsPlace) {
  const std::string seek = "seek requires an integer position in milliseconds, got '";
  check({
      {{"seek"}, none},
      {{"seek", "-x"}, none},
      {{"seek", "-"}, none},
      {{"seek", "--relative"}, none},
      {{"seek", "-30000", "--relative"}, CommandId::Seek, "-30000"},
      {{"seek", "+5"}, CommandId::Seek, "+5"},
      {{"seek", " 5"}, CommandId::Seek, " 5"},
      {{"seek", "1.5"}, none, "", seek + "1.5'"},
      {{"seek", "-1x"}, none, "", seek + "-1x'"},
      {{"seek", ""}, none, "", seek + "'"},
      {{"seek", "1000", "--limit", "0"}, none, "1000",
       "--limit requires a positive integer, got '0'"},
  });
  parse({"seek", "-30000", "--relative"});
  EXPECT_TRUE(line.relative());
}

TEST_F(GrammarTest, SearchAndLookup) {
  const std::string lookup = "lookup URIs must start with 'orvanta:', got '";
  check({
      {{"search"}, none},
      {{"search", "--limit", "5"}, none},
      {{"search", "q", "--limit"}, none, "q", "--limit requires a value"},
      {{"search", "foo", "--text", "bar"}, CommandId::Search, "bar"},
      {{"search", "q", "--type", "album", "extra"}, CommandId::Search, "q"},
      {{"lookup"}, none},
      {{"lookup", "orvanta:a", "x"}, none, "", lookup + "x'"},
      {{"lookup", "orvanta:a", "-x"}, none, "", lookup + "-x'"},
      {{"lookup", ""}, none, "", lookup + "'"},
      {{"lookup", "--fields", "name"}, CommandId::Lookup},
      {{"lookup", "orvanta:a", "--bogus"}, none, "", "unknown option '--bogus'"},
  });
  parse({"search", "q", "--type", "album", "--limit", "+5"});
  EXPECT_EQ(line.type_filter(), std::optional<std::string_view>("album"));
  EXPECT_EQ(line.limit(), 5);
}

TEST_F(RecogniseTest, UriWalkStopsCollectingAtTheFirstFlag) {
  const struct {
    Words words;
    Texts uris;
  } cases[] = {
      {{"lookup", "orvanta:a", "orvanta:b", "--fields", "name,uri"}, {"orvanta:a", "orvanta:b"}},
      {{"lookup", "orvanta:a", "--format", "json", "orvanta:b"}, {"orvanta:a"}},
      {{"library", "contains", "orvanta:a", "orvanta:b"}, {"orvanta:a", "orvanta:b"}},
      {{"library", "add", "--format", "json"}, {}},
      {{"folder", "move", "orvanta:folder:f", "--to", "root"}, {"orvanta:folder:f"}},
      {{"playlist", "add", "orvanta:p", "orvanta:t1", "orvanta:t2"}, {"orvanta:t1", "orvanta:t2"}},
  };
  for (const auto& c : cases) {
    parse(c.words);
    EXPECT_EQ(line.uris(), c.uris) << typed();
    EXPECT_EQ(line.error_text(), "") << typed();
  }
}

// `play` without a URI resumes, even when a flag failed: the failure text is
// kept but never shown. Only --device makes it a play whose failures stand.
TEST_F(GrammarTest, PlayWithoutAUriTurnsIntoResume) {
  check({
      {{"play"}, CommandId::Resume},
      {{"play", "--nonsense"}, CommandId::Resume, "", "unknown option '--nonsense'"},
      {{"play", "--device"}, CommandId::Resume, "", "--device requires a value"},
      {{"play", "--device", "Kitchen"}, CommandId::Play},
      {{"play", "--device", "Kitchen", "--bogus"}, none, "", "unknown option '--bogus'"},
      {{"play", "orvanta:track:a", "extra", "words"}, CommandId::Play, "orvanta:track:a"},
      {{"play", "track:a"}, none, "", "play URI must start with 'orvanta:', got 'track:a'"},
      {{"play", "orvanta:x", "--bogus"}, none, "orvanta:x", "unknown option '--bogus'"},
  });
  parse({"play", "orvanta:x", "--attribution", "a", "--agentic-product-type", "t"});
  EXPECT_EQ(line.attribution(), "a");
  EXPECT_EQ(line.agentic_product_type(), "t");
}

TEST_F(GrammarTest, NavigateWalksItsOwnWords) {
  const std::string unknown = "unknown navigate option '";
  check({
      {{"navigate"}, none, "", "navigate requires a URI argument"},
      {{"navigate", "-x"}, none, "", "navigate requires a URI argument"},
      {{"navigate", "https://x"}, none, "",
       "navigate URI must start with 'orvanta:', got 'https://x'"},
      {{"navigate", "orvanta:x", "--play"}, CommandId::Navigate, "orvanta:x"},
      {{"navigate", "orvanta:x", "--format"}, none, "orvanta:x", "--format requires a value"},
      {{"navigate", "orvanta:x", "extra"}, none, "orvanta:x", unknown + "extra'"},
      {{"navigate", "orvanta:x", "--limit", "5"}, none, "orvanta:x", unknown + "--limit'"},
      {{"navigate", "orvanta:x", ""}, none, "orvanta:x", unknown + "'"},
  });
  parse({"navigate", "orvanta:x", "--format", "json", "--play"});
  EXPECT_TRUE(line.json_output());
  EXPECT_TRUE(line.play_after());
  parse({"navigate", "orvanta:x", "--format", "--play"});  // --play is the format's value
  EXPECT_FALSE(line.json_output());
  EXPECT_FALSE(line.play_after());
  parse({"navigate", "orvanta:x", "-h", "--play"});
  EXPECT_EQ(line.command(), CommandId::Navigate);
  EXPECT_TRUE(line.play_after());
}

TEST_F(RecogniseTest, OpenKeepsEveryWordUnexamined) {
  parse({"open", "orvanta:x", "--bogus", "", "-h"});
  EXPECT_EQ(line.command(), CommandId::Open);
  EXPECT_EQ(line.arguments(), (Texts{"orvanta:x", "--bogus", "", "-h"}));
  EXPECT_EQ(line.error_text(), "");
}

TEST_F(GrammarTest, HistoryHasNoDefault) {
  check({
      {{"history"}, none},
      {{"history", "nosuch"}, none},
      {{"history", "--limit", "3"}, none},
      {{"history", "top", "--limit", "3"}, CommandId::HistoryTop},
      {{"history", "recent", "--offset", "2"}, CommandId::HistoryRecent},
      {{"history", "top", "--offset", "-1"}, none, "",
       "--offset requires a non-negative integer, got '-1'"},
  });
}

TEST_F(GrammarTest, Devices) {
  const std::string volume = "devices volume requires a float between 0.0 and 1.0, got '";
  check({
      {{"devices"}, CommandId::DevicesList},
      {{"devices", "list", "--format", "json"}, CommandId::DevicesList},
      {{"devices", "--format", "json"}, CommandId::DevicesList},
      {{"devices", "--bogus"}, none, "", "unknown option '--bogus'"},
      {{"devices", "-x"}, none},
      {{"devices", ""}, none},
      {{"devices", "transfer"}, none},
      {{"devices", "transfer", "Kitchen", "--bogus"}, CommandId::DevicesTransfer, "Kitchen"},
      {{"devices", "info", "d1"}, CommandId::DevicesInfo, "d1"},
      {{"devices", "volume", "0.5"}, CommandId::DevicesVolume, "0.5"},
      {{"devices", "volume", "-1"}, none, "", volume + "-1'"},
      {{"devices", "volume", "1.5"}, none, "", volume + "1.5'"},
      {{"devices", "nosuch", "x"}, none},
  });
  parse({"devices", "volume", "0.5", "Kitchen"});
  EXPECT_EQ(line.arguments(), Texts{"Kitchen"});
  parse({"devices", "volume", "0.5", "-Kitchen"});
  EXPECT_EQ(line.arguments(), Texts{});
}

TEST_F(GrammarTest, LibraryAndPlaylist) {
  const std::string library = "library URIs must start with 'orvanta:', got '";
  const std::string playlist = "playlist URI must start with 'orvanta:', got '";
  check({
      {{"library"}, CommandId::LibraryList},
      {{"library", "list", "--limit", "5", "--offset", "0"}, CommandId::LibraryList},
      {{"library", "--limit", "5"}, none},
      {{"library", "contains", "orvanta:a"}, CommandId::LibraryContains},
      {{"library", "add", "orvanta:a"}, CommandId::LibraryAdd},
      {{"library", "remove", "x"}, none, "", library + "x'"},
      {{"library", "add"}, none},
      {{"library", "batch", "--stop-on-error"}, CommandId::LibraryBatch},
      {{"playlist"}, none},
      {{"playlist", "get"}, none},
      {{"playlist", "get", "orvanta:p", "--no-tracks"}, CommandId::PlaylistGet, "orvanta:p"},
      {{"playlist", "get", "p"}, none, "", playlist + "p'"},
      {{"playlist", "create", "Road trip", "--public"}, CommandId::PlaylistCreate, "Road trip"},
      {{"playlist", "update", "orvanta:p", "--name", "n"}, CommandId::PlaylistUpdate, "orvanta:p"},
      {{"playlist", "update", "x"}, none, "", playlist + "x'"},
      {{"playlist", "remove", "orvanta:p", "--positions", "0,2"}, CommandId::PlaylistRemove,
       "orvanta:p"},
      {{"playlist", "add", "orvanta:p"}, none},
      {{"playlist", "add", "orvanta:p", "orvanta:t"}, CommandId::PlaylistAdd, "orvanta:p"},
      {{"playlist", "add", "p", "orvanta:t"}, none, "", playlist + "p'"},
      {{"playlist", "add", "orvanta:p", "t"}, none, "orvanta:p",
       "playlist URIs must start with 'orvanta:', got 't'"},
      {{"playlist", "nosuch", "x"}, none},
  });
  parse({"playlist", "remove", "orvanta:p", "--positions", "0,2"});
  EXPECT_EQ(line.positions(), (std::vector<std::int32_t>{0, 2}));
}

// folder list, bare or named, is the one caller with a list of allowed flags.
TEST_F(GrammarTest, Folder) {
  const std::string only = "folder list only supports --format, --recursive, and --folder.";
  const std::string positional =
      "folder list does not accept positional arguments; use `--folder <uri>` to list a "
      "specific folder.";
  const std::string uri = "folder URI must start with 'orvanta:', got '";
  check({
      {{"folder"}, CommandId::FolderList},
      {{"folder", "list", "--recursive", "--folder", "orvanta:f", "", "--format", "json"},
       CommandId::FolderList},
      {{"folder", "--recursive"}, none},
      {{"folder", "list", "--limit", "5"}, none, "", only},
      {{"folder", "list", "-"}, none, "", only},
      {{"folder", "list", "x"}, none, "", positional},
      {{"folder", "list", "--folder", "x"}, none, "",
       "--folder must be a Orvanta URI (orvanta:...), got 'x'"},
      {{"folder", "create", "Mixes", "--in", "orvanta:f"}, CommandId::FolderCreate, "Mixes"},
      {{"folder", "create"}, none},
      {{"folder", "rename", "orvanta:f", "New"}, CommandId::FolderRename, "orvanta:f"},
      {{"folder", "rename", "orvanta:f"}, none},
      {{"folder", "rename", "f", "New"}, none, "", uri + "f'"},
      {{"folder", "remove", "orvanta:f", "--keep-contents"}, CommandId::FolderRemove, "orvanta:f"},
      {{"folder", "remove", "f"}, none, "", uri + "f'"},
      {{"folder", "move", "orvanta:f", "--to", "root"}, CommandId::FolderMove},
      {{"folder", "move", "f"}, none, "", uri + "f'"},
  });
  parse({"folder", "rename", "orvanta:f", "New", "--bogus"});
  EXPECT_EQ(line.arguments(), Texts{"New"});
  parse({"folder", "list", "--recursive", "--folder", "orvanta:f"});
  EXPECT_TRUE(line.recursive());
  EXPECT_EQ(line.folder_uri(), "orvanta:f");
}

TEST_F(GrammarTest, Queue) {
  const std::string move = "queue move requires two non-negative integer positions";
  check({
      {{"queue"}, CommandId::QueueList},
      {{"queue", "list"}, CommandId::QueueList},
      {{"queue", "--format", "json"}, CommandId::QueueList},
      {{"queue", "-x"}, none},
      {{"queue", "add", "orvanta:t", "--bogus"}, CommandId::QueueAdd, "orvanta:t"},
      {{"queue", "add", "t"}, none, "", "queue add URI must start with 'orvanta:', got 't'"},
      {{"queue", "add"}, none},
      {{"queue", "remove", "3"}, CommandId::QueueRemove},
      {{"queue", "remove", "-1"}, none, "",
       "queue remove requires a non-negative integer position, got '-1'"},
      {{"queue", "move", "1", "2"}, CommandId::QueueMove},
      {{"queue", "move", "1", "x"}, none, "", move},
      {{"queue", "move", "-1", "2"}, none, "", move},
      {{"queue", "move", "1"}, none},
  });
  parse({"queue", "remove", " 4"});
  EXPECT_EQ(line.position(), 4);
  parse({"queue", "move", "4294967297", "+2"});
  EXPECT_EQ(line.positions(), (std::vector<std::int32_t>{1, 2}));
}

TEST_F(GrammarTest, Rondo) {
  check({
      {{"rondo"}, CommandId::RondoStatus},
      {{"rondo", "status", "--format", "json"}, CommandId::RondoStatus},
      {{"rondo", "--format", "json"}, CommandId::RondoStatus},
      {{"rondo", "create", "--bogus"}, CommandId::RondoCreate},
      {{"rondo", "leave"}, CommandId::RondoLeave},
      {{"rondo", "end"}, CommandId::RondoEnd},
      {{"rondo", "members", "--format", "json"}, CommandId::RondoMembers},
      {{"rondo", "members", "--bogus"}, none, "", "unknown option '--bogus'"},
      {{"rondo", "kick"}, none, "", "rondo kick requires a username argument"},
      {{"rondo", "kick", "alice", "--bogus"}, CommandId::RondoKick, "alice"},
      {{"rondo", "permissions", "--queue-only", "on"}, CommandId::RondoPermissions},
      {{"rondo", "permissions", "--volume-control", "x"}, none, "",
       "--volume-control requires 'on' or 'off', got 'x'"},
      {{"rondo", "nosuch"}, none},
  });
}

// A verb without its id falls through to the list, where the verb is an
// ignored positional; `pod` and `pod timeline` have no default.
TEST_F(GrammarTest, PodLevels) {
  check({
      {{"pod"}, none},
      {{"pod", "nosuch"}, none},
      {{"pod", "upload"}, none},
      {{"pod", "upload", "--name"}, CommandId::PodUpload, "--name"},
      {{"pod", "upload", "song.mp3", "--name", "x"}, CommandId::PodUpload, "song.mp3"},
      {{"pod", "shows"}, CommandId::PodShows},
      {{"pod", "shows", "list"}, CommandId::PodShows},
      {{"pod", "shows", "delete"}, CommandId::PodShows},
      {{"pod", "shows", "create", "--name", "n"}, CommandId::PodShowsCreate},
      {{"pod", "shows", "delete", "s1"}, CommandId::PodShowsDelete, "s1"},
      {{"pod", "shows", "delete", "s1", "--limit", "0"}, none, "s1",
       "--limit requires a positive integer, got '0'"},
      {{"pod", "shows", "--bogus"}, none, "", "unknown option '--bogus'"},
      {{"pod", "episodes"}, CommandId::PodEpisodes},
      {{"pod", "episodes", "--show-id", "x"}, CommandId::PodEpisodes},
      {{"pod", "episodes", "create", "--file", "a.mp3"}, CommandId::PodEpisodesCreate},
      {{"pod", "episodes", "status"}, CommandId::PodEpisodes},
      {{"pod", "episodes", "status", "e1"}, CommandId::PodEpisodesStatus, "e1"},
      {{"pod", "episodes", "delete"}, CommandId::PodEpisodes},
      {{"pod", "episodes", "delete", "e1"}, CommandId::PodEpisodesDelete, "e1"},
      {{"pod", "timeline"}, none},
      {{"pod", "timeline", "list"}, none},
      {{"pod", "timeline", "get"}, none},
      {{"pod", "timeline", "get", "e1"}, CommandId::PodTimelineGet, "e1"},
      {{"pod", "timeline", "set", "--from-file", "t.json"}, CommandId::PodTimelineSet},
      {{"pod", "timeline", "delete"}, none},
      {{"pod", "timeline", "delete", "e1"}, CommandId::PodTimelineDelete, "e1"},
  });
  parse({"pod", "episodes", "--show-id", "x"});
  EXPECT_EQ(line.show_id(), "x");
}

TEST(FloatInRange, ComparesAsFloatsWithBothEndsIncluded) {
  const struct {
    const char* text;
    float max;
    bool in_range;
  } cases[] = {
      {"0", 1.0F, true},          {"1", 1.0F, true},          {"2", 2.0F, true},
      {"-0", 1.0F, true},         {" 0.5", 1.0F, true},       {"0x1p-1", 1.0F, true},
      {"1e-50", 1.0F, true},      {"1.0000001", 1.0F, false}, {"-0.1", 1.0F, false},
      {"nan", 1.0F, false},       {"inf", 2.0F, false},       {"0.5 ", 1.0F, false},
      {"", 1.0F, false},          {"1,5", 2.0F, false},       {".", 1.0F, false},
      // Rounds to 1.0F, so it counts as the upper end itself.
      {"1.00000005", 1.0F, true},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(is_float_in_range(c.text, c.max), c.in_range) << "'" << c.text << "'";
  }
}

// A decimal comma in the environment's locale must not make "0,5" a number.
TEST(FloatInRange, ReadsNumbersInTheCLocale) {
  const char* names[] = {"de_DE.UTF-8", "de_DE.utf8", "fr_FR.UTF-8", "fr_FR.utf8"};
  const char* chosen = nullptr;
  for (const char* name : names) {
    if (std::setlocale(LC_NUMERIC, name) != nullptr) {
      chosen = name;
      break;
    }
  }
  if (chosen == nullptr) GTEST_SKIP() << "no locale with a decimal comma is installed";
  const bool comma = is_float_in_range("0,5", 1.0F);
  const bool point = is_float_in_range("0.5", 1.0F);
  std::setlocale(LC_NUMERIC, "C");
  EXPECT_FALSE(comma) << chosen;
  EXPECT_TRUE(point) << chosen;
}

}  // namespace
}  // namespace orvanta::cli
