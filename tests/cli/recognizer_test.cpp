#include "cli/recognizer.hpp"

#include <gtest/gtest.h>

#include <clocale>
#include <cstdint>
#include <string>
#include <vector>

#include "command_line_fixture.hpp"

namespace orvanta::cli {
namespace {

using Words = std::vector<std::string>;
using Texts = std::vector<std::string>;
using RecogniseTest = testing::CommandLineTest;

constexpr CommandId none = CommandId::None;

// One route of the grammar: the words behind the program name, and what the
// record holds afterwards. `none` with no error is the bare usage failure.
struct Route {
  Words words;
  CommandId command;
  std::string argument = "";
  std::string error = "";
};

class GrammarTest : public testing::CommandLineTest {
 protected:
  void check(const std::vector<Route>& routes) {
    for (const Route& route : routes) {
      parse(route.words);
      SCOPED_TRACE(typed());
      EXPECT_EQ(line.command(), route.command);
      EXPECT_EQ(line.argument(), route.argument);
      EXPECT_EQ(line.error_text(), route.error);
      EXPECT_EQ(line.unknown_word(), "");
    }
  }
};

TEST_F(RecogniseTest, NoArgumentsGiveTheBareRecord) {
  parse({});
  EXPECT_EQ(line.command(), none);
  EXPECT_EQ(line.program_name(), "orvanta_cli");
  EXPECT_EQ(line.error_text(), "");
  EXPECT_EQ(line.unknown_word(), "");
  const char* const nothing[] = {nullptr};
  EXPECT_EQ(parse_command_line(0, nothing).program_name(), "orvanta_cli");
}

// A global flag in front of the command is an unknown command too.
TEST_F(RecogniseTest, UnknownFirstWordsAreKeptForTheUnknownCommandPage) {
  const Words cases[] = {{"Status"}, {"stat"}, {"list"}, {""}, {"--format", "json", "status"}};
  for (const Words& words : cases) {
    parse(words);
    EXPECT_EQ(line.command(), none) << typed();
    EXPECT_EQ(line.unknown_word(), words.front()) << typed();
  }
  EXPECT_TRUE(line.json_output());
}

// --format counts also for commands that read no flags; the last one with a
// word behind it decides.
TEST_F(RecogniseTest, FormatPreScanCoversEveryCommand) {
  const std::pair<Words, bool> cases[] = {
      {{"next", "--bogus", "--format", "json"}, true},
      {{"pause", "--format", "json", "--format", "text"}, false},
      {{"status", "--format", "json", "--format"}, true},
  };
  for (const auto& [words, json] : cases) {
    parse(words);
    EXPECT_EQ(line.json_output(), json) << typed();
    EXPECT_NE(line.command(), none) << typed();
  }
}

TEST_F(RecogniseTest, VersionFlagWinsOverEverything) {
  const Words cases[] = {{"search", "--name", "--version"}, {"seek", "x", "--version"}};
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
    std::string topic, subtopic;
  } cases[] = {
      {{"--help", "search"}, "", ""},
      {{"history", "--help"}, "history", ""},
      {{"history", "top", "--help"}, "history", "top"},
      {{"pod", "--help"}, "pod", ""},
      {{"pod", "upload", "--help"}, "pod", "upload"},
      {{"pod", "shows", "--help"}, "pod shows", ""},
      {{"pod", "shows", "create", "--help"}, "pod shows", "create"},
      {{"pod", "timeline", "-h", "get"}, "pod timeline", ""},
  };
  for (const auto& c : cases) {
    parse(c.words);
    SCOPED_TRACE(typed());
    EXPECT_TRUE(line.help_requested());
    EXPECT_EQ(line.help_topic(), c.topic);
    EXPECT_EQ(line.help_subtopic(), c.subtopic);
  }
  // The command is still recognised; main looks at the help request first.
  parse({"pause", "--help"});
  EXPECT_EQ(line.command(), CommandId::Pause);
}

TEST_F(GrammarTest, PlaybackWords) {
  const std::string repeat = "repeat argument must be 'off', 'context', or 'track', got '";
  const std::string speed = "speed requires a float between 0.0 and 2.0, got '";
  const std::string volume = "volume requires a float between 0.0 and 1.0, got '";
  check({
      {{"pause", "--bogus"}, CommandId::Pause}, {{"next", "--limit", "0"}, CommandId::Next},
      {{"repeat", "TRACK"}, none, "", repeat + "TRACK'"},
      {{"shuffle", "-on"}, none, "", "shuffle requires an argument: on or off"},
      {{"shuffle", "true"}, none, "", "shuffle requires 'on' or 'off', got 'true'"},
      {{"speed"}, none},
      {{"speed", " 2"}, CommandId::Speed, " 2"},
      {{"speed", "2.01"}, none, "", speed + "2.01'"},
      {{"volume", "-1"}, none},
      {{"volume", "0.25", "--bogus"}, CommandId::Volume, "0.25"},
      {{"volume", "2"}, none, "", volume + "2'"},
  });
}

// A leading '-' is a flag unless a digit follows: `seek -10` goes back.
TEST_F(GrammarTest, SeekSearchAndLookup) {
  const std::string seek = "seek requires an integer position in milliseconds, got '";
  const std::string lookup = "lookup URIs must start with 'orvanta:', got '";
  check({
      {{"seek", "-"}, none},
      {{"seek", "--relative"}, none},
      {{"seek", "+5"}, CommandId::Seek, "+5"},
      {{"seek", "1.5"}, none, "", seek + "1.5'"},
      {{"seek", "-1x"}, none, "", seek + "-1x'"},
      {{"seek", "1000", "--limit", "0"}, none, "1000", "--limit requires a positive integer, got '0'"},
      {{"search"}, none},
      {{"search", "q", "--limit"}, none, "q", "--limit requires a value"},
      {{"search", "foo", "--text", "bar"}, CommandId::Search, "bar"},
      {{"lookup"}, none},
      {{"lookup", "orvanta:a", "-x"}, none, "", lookup + "-x'"},
      {{"lookup", "--fields", "name"}, CommandId::Lookup},
      {{"lookup", "orvanta:a", "--bogus"}, none, "", "unknown option '--bogus'"},
  });
}

// `play` without a URI resumes even when a flag failed: the failure text is
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
  });
}

TEST_F(GrammarTest, NavigateWalksItsOwnWords) {
  const std::string unknown = "unknown navigate option '";
  check({
      {{"navigate", "-x"}, none, "", "navigate requires a URI argument"},
      {{"navigate", "x:y"}, none, "", "navigate URI must start with 'orvanta:', got 'x:y'"},
      {{"navigate", "orvanta:x", "-h", "--play"}, CommandId::Navigate, "orvanta:x"},
      {{"navigate", "orvanta:x", "--format"}, none, "orvanta:x", "--format requires a value"},
      {{"navigate", "orvanta:x", "extra"}, none, "orvanta:x", unknown + "extra'"},
  });
  parse({"navigate", "orvanta:x", "--format", "json", "--play"});
  EXPECT_TRUE(line.json_output());
  EXPECT_TRUE(line.play_after());
  parse({"navigate", "orvanta:x", "--format", "--play"});  // --play is the format's value
  EXPECT_FALSE(line.play_after());
  parse({"open", "orvanta:x", "--bogus", "", "-h"});
  EXPECT_EQ(line.command(), CommandId::Open);
  EXPECT_EQ(line.arguments(), (Texts{"orvanta:x", "--bogus", "", "-h"}));
}

TEST_F(GrammarTest, HistoryDevicesAndLibrary) {
  const std::string volume = "devices volume requires a float between 0.0 and 1.0, got '";
  check({
      {{"history"}, none},
      {{"devices", "--bogus"}, none, "", "unknown option '--bogus'"},
      {{"devices", "-x"}, none},
      {{"devices", "transfer", "Kitchen", "--bogus"}, CommandId::DevicesTransfer, "Kitchen"},
      {{"devices", "volume", "-1"}, none, "", volume + "-1'"},
      {{"library"}, CommandId::LibraryList},
      {{"library", "--limit", "5"}, none},
      {{"library", "add", "x"}, none, "", "library URIs must start with 'orvanta:', got 'x'"},
  });
  parse({"devices", "volume", "0.5", "Kitchen"});
  EXPECT_EQ(line.arguments(), Texts{"Kitchen"});
  parse({"devices", "volume", "0.5", "-Kitchen"});
  EXPECT_EQ(line.arguments(), Texts{});
}

TEST_F(GrammarTest, Playlist) {
  const std::string uri = "playlist URI must start with 'orvanta:', got '";
  check({
      {{"playlist"}, none},
      {{"playlist", "get", "p"}, none, "", uri + "p'"},
      {{"playlist", "remove", "orvanta:p", "--bogus"}, none, "orvanta:p", "unknown option '--bogus'"},
      {{"playlist", "add", "orvanta:p"}, none},
      {{"playlist", "add", "p", "orvanta:t"}, none, "", uri + "p'"},
      {{"playlist", "add", "orvanta:p", "t"}, none, "orvanta:p",
       "playlist URIs must start with 'orvanta:', got 't'"},
  });
}

// folder list, bare or named, is the one caller with a list of allowed flags.
TEST_F(GrammarTest, Folder) {
  const std::string only = "folder list only supports --format, --recursive, and --folder.";
  const std::string positional =
      "folder list does not accept positional arguments; use `--folder <uri>` to list a specific folder.";
  const std::string uri = "folder URI must start with 'orvanta:', got '";
  check({
      {{"folder", "list", "--recursive", "", "--folder", "orvanta:f"}, CommandId::FolderList},
      {{"folder", "--recursive"}, none},
      {{"folder", "list", "--limit", "5"}, none, "", only},
      {{"folder", "list", "-"}, none, "", only},
      {{"folder", "list", "x"}, none, "", positional},
      {{"folder", "rename", "orvanta:f"}, none},
      {{"folder", "rename", "f", "New"}, none, "", uri + "f'"},
      {{"folder", "remove", "f"}, none, "", uri + "f'"},
      {{"folder", "move", "f"}, none, "", uri + "f'"},
  });
  parse({"folder"});
  EXPECT_EQ(line.command(), CommandId::FolderList);
}

TEST_F(GrammarTest, QueueAndRondo) {
  const std::string move = "queue move requires two non-negative integer positions";
  check({
      {{"queue", "add", "orvanta:t", "--bogus"}, CommandId::QueueAdd, "orvanta:t"},
      {{"queue", "add", "t"}, none, "", "queue add URI must start with 'orvanta:', got 't'"},
      {{"queue", "remove", "-1"}, none, "", "queue remove requires a non-negative integer position, got '-1'"},
      {{"queue", "move", "1", "x"}, none, "", move},
      {{"queue", "move", "1"}, none},
      {{"rondo", "create", "--bogus"}, CommandId::RondoCreate},
      {{"rondo", "members", "--bogus"}, none, "", "unknown option '--bogus'"},
      {{"rondo", "kick"}, none, "", "rondo kick requires a username argument"},
      {{"rondo", "kick", "alice", "--bogus"}, CommandId::RondoKick, "alice"},
      {{"rondo", "nosuch"}, none},
  });
  parse({"queue", "remove", " 4"});
  EXPECT_EQ(line.command(), CommandId::QueueRemove);
  EXPECT_EQ(line.position(), 4);
  parse({"queue", "move", "4294967297", "+2"});
  EXPECT_EQ(line.command(), CommandId::QueueMove);
  EXPECT_EQ(line.positions(), (std::vector<std::int32_t>{1, 2}));
}

// A verb without its id falls through to the list, where the verb is an
// ignored positional; `pod` and `pod timeline` have no default.
TEST_F(GrammarTest, PodLevels) {
  check({
      {{"pod"}, none},
      {{"pod", "upload"}, none},
      {{"pod", "upload", "--name"}, CommandId::PodUpload, "--name"},
      {{"pod", "shows", "delete"}, CommandId::PodShows},
      {{"pod", "shows", "delete", "s1", "--limit", "0"}, none, "s1",
       "--limit requires a positive integer, got '0'"},
      {{"pod", "shows", "--bogus"}, none, "", "unknown option '--bogus'"},
      {{"pod", "episodes", "list", "--show-id", "x"}, CommandId::PodEpisodes},
      {{"pod", "episodes", "create"}, CommandId::PodEpisodesCreate},
      {{"pod", "episodes", "status"}, CommandId::PodEpisodes},
      {{"pod", "timeline"}, none},
      {{"pod", "timeline", "get"}, none},
      {{"pod", "timeline", "set"}, CommandId::PodTimelineSet},
  });
}

TEST(FloatInRange, ComparesAsFloatsWithBothEndsIncluded) {
  const struct {
    const char* text;
    float max;
    bool in_range;
  } cases[] = {
      {"0", 1.0F, true},      {"1", 1.0F, true},          {"-0", 1.0F, true},    {" 0.5", 1.0F, true},
      {"0x1p-1", 1.0F, true}, {"1.0000001", 1.0F, false}, {"-0.1", 1.0F, false}, {"nan", 1.0F, false},
      {"inf", 2.0F, false},   {"0.5 ", 1.0F, false},      {"", 1.0F, false},     {"1,5", 2.0F, false},
      {"1.00000005", 1.0F, true},  // rounds to 1.0F, the upper end itself
  };
  for (const auto& c : cases) {
    EXPECT_EQ(is_float_in_range(c.text, c.max), c.in_range) << "'" << c.text << "'";
  }
}

// A decimal comma in the environment's locale must not make "0,5" a number.
TEST(FloatInRange, ReadsNumbersInTheCLocale) {
  const char* chosen = nullptr;
  for (const char* name : {"de_DE.UTF-8", "de_DE.utf8", "fr_FR.UTF-8", "fr_FR.utf8"}) {
    if (chosen == nullptr && std::setlocale(LC_NUMERIC, name) != nullptr) chosen = name;
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
