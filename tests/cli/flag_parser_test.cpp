#include "cli/flag_parser.hpp"

#include <gtest/gtest.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "command_line_fixture.hpp"

namespace orvanta::cli {
namespace {

using testing::CommandLineTest;
using Words = std::vector<std::string>;
using Texts = std::vector<std::string>;
using FlagsTest = CommandLineTest;

TEST_F(FlagsTest, TextFlagsStoreTheirValueInTheirOwnField) {
  using Field = const CommandLine::OptionalText& (CommandLine::*)() const;
  const struct {
    std::string flag;
    std::string value;
    Field field;
  } cases[] = {
      {"--in", "orvanta:folder:a", &CommandLine::in_uri},
      {"--to", "orvanta:folder:abc", &CommandLine::to_uri},
      {"--to", "root", &CommandLine::to_uri},
      {"--uri", "anything", &CommandLine::uri},
      {"--name", "Road trip", &CommandLine::name},
      {"--file", "a.mp3", &CommandLine::file},
      {"--body", "b", &CommandLine::body},
      {"--voice", "v", &CommandLine::voice},
      {"--state", "online", &CommandLine::state},
      {"--state", "offline", &CommandLine::state},
      {"--title", "t", &CommandLine::title},
      {"--folder", "orvanta:folder:f", &CommandLine::folder_uri},
      {"--device", "Kitchen Speaker", &CommandLine::device},
      {"--show-id", "s", &CommandLine::show_id},
      {"--new-show", "n", &CommandLine::new_show},
      {"--language", "en", &CommandLine::language},
      {"--subtitle", "st", &CommandLine::subtitle},
      {"--agent-uri", "au", &CommandLine::agent_uri},
      {"--from-file", "m.json", &CommandLine::from_file},
      {"--image-url", "iu", &CommandLine::image_url},
      {"--image-file", "i.png", &CommandLine::image_file},
      {"--entity-uri", "orvanta:", &CommandLine::entity_uri},
      {"--episode-id", "e", &CommandLine::episode_id},
      {"--launch-uri", "lu", &CommandLine::launch_uri},
      {"--description", "d", &CommandLine::description},
      {"--attribution", "at", &CommandLine::attribution},
      {"--agentic-product-type", "apt", &CommandLine::agentic_product_type},
  };
  for (const auto& c : cases) {
    parse_only_flags({c.flag, c.value});
    SCOPED_TRACE(typed());
    EXPECT_EQ(line.error_text(), "");
    EXPECT_EQ(line.command(), CommandId::Search);
    EXPECT_EQ((line.*c.field)(), c.value);
  }
}

TEST_F(FlagsTest, SwitchesTurnOnTheirOwnField) {
  using Field = bool (CommandLine::*)() const;
  const struct {
    std::string flag;
    Field field;
  } cases[] = {
      {"--public", &CommandLine::is_public},          {"--submit", &CommandLine::submit},
      {"--relative", &CommandLine::relative},        {"--no-tracks", &CommandLine::no_tracks},
      {"--recursive", &CommandLine::recursive},      {"--keep-contents", &CommandLine::keep_contents},
      {"--stop-on-error", &CommandLine::stop_on_error}, {"--sent-by-agent", &CommandLine::sent_by_agent},
  };
  for (const auto& c : cases) {
    parse_only_flags({"--format", "text"});
    EXPECT_FALSE((line.*c.field)()) << c.flag;
    parse_only_flags({c.flag, "positional"});
    EXPECT_TRUE((line.*c.field)()) << c.flag;
    EXPECT_EQ(line.error_text(), "") << c.flag;
  }
}

// Validation follows strtoll: blanks and a sign in front are fine, an
// overflow saturates and passes, and the stored value is strtol's narrowed
// to 32 bits without a range check.
TEST_F(FlagsTest, NumberFlagsStoreTheNarrowedStrtolValue) {
  using Field = CommandLine::OptionalNumber (CommandLine::*)() const;
  const struct {
    std::string flag;
    std::string value;
    Field field;
    std::int32_t stored;
  } cases[] = {
      {"--limit", "5", &CommandLine::limit, 5},
      {"--limit", " 7", &CommandLine::limit, 7},
      {"--limit", "+5", &CommandLine::limit, 5},
      {"--limit", "007", &CommandLine::limit, 7},
      {"--limit", "4294967297", &CommandLine::limit, 1},
      {"--limit", "2147483648", &CommandLine::limit, INT32_MIN},
      {"--limit", "99999999999999999999", &CommandLine::limit, -1},
      {"--width", "640", &CommandLine::width, 640},
      {"--height", "\t480", &CommandLine::height, 480},
      {"--offset", "0", &CommandLine::offset, 0},
      {"--offset", "-0", &CommandLine::offset, 0},
      {"--position", "3", &CommandLine::position, 3},
      {"--silence-ms", "0", &CommandLine::silence_ms, 0},
  };
  for (const auto& c : cases) {
    parse_only_flags({c.flag, c.value});
    SCOPED_TRACE(typed());
    EXPECT_EQ(line.error_text(), "");
    EXPECT_EQ((line.*c.field)(), std::optional<std::int32_t>(c.stored));
  }
}

TEST_F(FlagsTest, FailuresStoreTheirTextAndDropTheCommand) {
  const struct {
    Words words;
    std::string error;
  } cases[] = {
      {{"--limit", "0"}, "--limit requires a positive integer, got '0'"},
      {{"--limit", "-1"}, "--limit requires a positive integer, got '-1'"},
      {{"--limit", "10abc"}, "--limit requires a positive integer, got '10abc'"},
      {{"--limit", "7 "}, "--limit requires a positive integer, got '7 '"},
      {{"--limit", ""}, "--limit requires a positive integer, got ''"},
      {{"--limit", "0x10"}, "--limit requires a positive integer, got '0x10'"},
      {{"--limit", "-99999999999999999999"},
       "--limit requires a positive integer, got '-99999999999999999999'"},
      {{"--width", "0"}, "--width requires a positive integer, got '0'"},
      {{"--height", "1e3"}, "--height requires a positive integer, got '1e3'"},
      {{"--offset", "-1"}, "--offset requires a non-negative integer, got '-1'"},
      {{"--position", "1.0"}, "--position requires a non-negative integer, got '1.0'"},
      {{"--silence-ms", "-5"}, "--silence-ms requires a non-negative integer, got '-5'"},
      {{"--in", "spotify:x"}, "--in must be a Orvanta URI (orvanta:...), got 'spotify:x'"},
      {{"--in", "orvanta"}, "--in must be a Orvanta URI (orvanta:...), got 'orvanta'"},
      {{"--folder", "Orvanta:f"}, "--folder must be a Orvanta URI (orvanta:...), got 'Orvanta:f'"},
      {{"--to", "Root"}, "--to must be a Orvanta URI or 'root', got 'Root'"},
      {{"--entity-uri", "x"}, "--entity-uri must start with 'orvanta:', got 'x'"},
      {{"--state", "away"}, "--state requires 'online' or 'offline', got 'away'"},
      {{"--queue-only", "yes"}, "--queue-only requires 'on' or 'off', got 'yes'"},
      {{"--volume-control", "ON"}, "--volume-control requires 'on' or 'off', got 'ON'"},
      {{"--role", "user"}, "unknown role 'user'; valid values: assistant, tool_call"},
      {{"--positions", "0,x"}, "--positions values must be non-negative integers, got 'x'"},
      {{"--positions", "1,,2"}, "--positions values must be non-negative integers, got ''"},
      {{"-x"}, "unknown option '-x'"},
      {{"--"}, "unknown option '--'"},
      {{"--limit=5"}, "unknown option '--limit=5'"},
      {{"--LIMIT", "5"}, "unknown option '--LIMIT'"},
      {{"--lim", "5"}, "unknown option '--lim'"},
      {{"---limit", "5"}, "unknown option '---limit'"},
      {{"-h"}, "unknown option '-h'"},
      {{"--help"}, "unknown option '--help'"},
      {{"--version"}, "unknown option '--version'"},
      {{"--limit"}, "--limit requires a value"},
      {{"--name"}, "--name requires a value"},
      {{"--format"}, "--format requires a value"},
      {{"--hierarchy-id"}, "--hierarchy-id requires a value"},
      {{"--agentic-product-type"}, "--agentic-product-type requires a value"},
      {{"--limit", "0", "--offset", "-1"}, "--limit requires a positive integer, got '0'"},
      {{"-x", "--limit"}, "unknown option '-x'"},
      {{"", "--limit", "0"}, "--limit requires a positive integer, got '0'"},
  };
  for (const auto& c : cases) {
    parse_only_flags(c.words);
    SCOPED_TRACE(typed());
    EXPECT_EQ(line.error_text(), c.error);
    EXPECT_EQ(line.command(), CommandId::None);
  }
}

TEST_F(FlagsTest, FlagsThatPassLeaveNoError) {
  const Words cases[] = {
      {"--name", "--public"},  // a value is the next word, whatever it looks like
      {"x", "-", "a", "", "positional"},
      {"--queue-only", "on", "--volume-control", "off"},
      {"--role", "assistant"},
      {"--format", "json", "--limit", "1", "--offset", "0", "--to", "root"},
  };
  for (const Words& words : cases) {
    parse_only_flags(words);
    SCOPED_TRACE(typed());
    EXPECT_EQ(line.error_text(), "");
    EXPECT_EQ(line.command(), CommandId::Search);
  }
  parse_only_flags({"--name", "--public"});
  EXPECT_EQ(line.name(), "--public");
  EXPECT_FALSE(line.is_public());
  parse_only_flags({"--queue-only", "on", "--volume-control", "off"});
  EXPECT_EQ(line.queue_only(), std::optional<bool>(true));
  EXPECT_EQ(line.volume_control(), std::optional<bool>(false));
}

TEST_F(FlagsTest, LaterFlagsWinExceptForPositions) {
  parse_only_flags({"--public", "--private"});
  EXPECT_FALSE(line.is_public());
  parse_only_flags({"--private"});
  EXPECT_FALSE(line.is_public());
  parse_only_flags({"--private", "--public"});
  EXPECT_TRUE(line.is_public());
  parse_only_flags({"--name", "a", "--name", "b", "--limit", "1", "--limit", "2"});
  EXPECT_EQ(line.name(), "b");
  EXPECT_EQ(line.limit(), 2);
  parse_only_flags({"--text", "a", "--hierarchy-id", "b"});
  EXPECT_EQ(line.argument(), "b");
  parse_only_flags({"--type", "album"});
  EXPECT_EQ(line.type_filter(), std::optional<std::string_view>("album"));
}

TEST_F(FlagsTest, OnlyTheExactWordJsonSelectsJson) {
  const struct {
    Words words;
    bool json;
  } cases[] = {
      {{"--format", "json"}, true},
      {{"--format", "xml"}, false},
      {{"--format", "JSON"}, false},
      {{"--format", "json "}, false},
      {{"--format", "json", "--format", "xml"}, false},
  };
  for (const auto& c : cases) {
    parse_only_flags(c.words);
    EXPECT_EQ(line.json_output(), c.json) << typed();
    EXPECT_EQ(line.error_text(), "") << typed();
  }
}

TEST_F(FlagsTest, FieldsSplitAtCommasAndStartOverWhenRepeated) {
  const struct {
    Words words;
    Texts fields;
  } cases[] = {
      {{"--fields", "name,uri"}, {"name", "uri"}},
      {{"--fields", "a,,b"}, {"a", "", "b"}},
      {{"--fields", "a,"}, {"a"}},
      {{"--fields", ",a"}, {"", "a"}},
      {{"--fields", ","}, {""}},
      {{"--fields", ""}, {}},
      {{"--fields", "a,b", "--fields", "c"}, {"c"}},
  };
  for (const auto& c : cases) {
    parse_only_flags(c.words);
    ASSERT_TRUE(line.fields().has_value()) << typed();
    EXPECT_EQ(*line.fields(), c.fields) << typed();
  }
  parse_only_flags({"--limit", "1"});
  EXPECT_FALSE(line.fields().has_value());
}

// Unlike --fields, a repeated --positions adds to the list, and a bad piece
// keeps the pieces before it although the run ends in a usage error.
TEST_F(FlagsTest, PositionsAccumulateAndKeepPiecesBeforeAFailure) {
  const struct {
    Words words;
    std::vector<std::int32_t> positions;
    bool fails;
  } cases[] = {
      {{"--positions", "0,1,"}, {0, 1}, false},
      {{"--positions", " 1,+2"}, {1, 2}, false},
      {{"--positions", "1", "--positions", "2,3"}, {1, 2, 3}, false},
      {{"--positions", ""}, {}, false},
      {{"--positions", "4,5,x,6"}, {4, 5}, true},
      {{"--positions", "4", "--positions", "-1"}, {4}, true},
  };
  for (const auto& c : cases) {
    parse_only_flags(c.words);
    SCOPED_TRACE(typed());
    EXPECT_EQ(line.positions(), c.positions);
    EXPECT_EQ(line.command() == CommandId::None, c.fails);
  }
}

// --role is the one failure that does not end the walk.
TEST_F(FlagsTest, RoleWalkGoesOnAfterAFailure) {
  const std::string bad_role = "unknown role 'x'; valid values: assistant, tool_call";
  const struct {
    Words words;
    Role role;
    std::string error;
  } cases[] = {
      {{"--sent-by-agent"}, Role::assistant, ""},
      {{"--sent-by-agent", "--role", "tool_call"}, Role::tool_call, ""},
      {{"--role", "tool_call", "--sent-by-agent"}, Role::tool_call, ""},
      {{"--role", "x", "--role", "assistant"}, Role::assistant, bad_role},
      {{"--role", "x", "--sent-by-agent"}, Role::assistant, bad_role},
      {{"--role", "x", "--limit", "0"}, Role::none, "--limit requires a positive integer, got '0'"},
      {{"--role", "x", "--bogus"}, Role::none, "unknown option '--bogus'"},
  };
  for (const auto& c : cases) {
    parse_only_flags(c.words);
    SCOPED_TRACE(typed());
    EXPECT_EQ(line.role(), c.role);
    EXPECT_EQ(line.error_text(), c.error);
    EXPECT_EQ(line.command() == CommandId::None, !c.error.empty());
  }
  parse_only_flags({"--role", "x", "--limit", "5"});
  EXPECT_EQ(line.limit(), 5);
  EXPECT_EQ(line.error_text(), bad_role);
}

TEST_F(FlagsTest, AnEarlierFailureOrAnEmptyRangeIsLeftAlone) {
  const int argc = set_words({"--limit", "0", "--name", "n"});
  CommandLine failed;
  detail::writable(failed).error_text = "first";
  parse_flags(failed, argc, argv(), 1);
  EXPECT_EQ(failed.error_text(), "first");
  EXPECT_FALSE(failed.name().has_value());

  CommandLine fresh;
  detail::writable(fresh).command = CommandId::Search;
  parse_flags(fresh, argc, argv(), argc);
  EXPECT_EQ(fresh.command(), CommandId::Search);
}

TEST_F(FlagsTest, AllowedListAndMessagesNarrowTheFlags) {
  const std::string_view allowed[] = {"--format", "--folder"};
  const struct {
    Words words;
    std::string_view unknown_message;
    std::string_view positional_message;
    std::string error;
  } cases[] = {
      {{"--format", "json", "", "--folder", "orvanta:f"}, "not that", "no words", ""},
      {{"--limit", "5"}, "not that", "no words", "not that"},
      {{"-"}, "not that", "no words", "not that"},
      {{"word"}, "not that", "no words", "no words"},
      {{"--folder", "x"}, "not that", "", "--folder must be a Orvanta URI (orvanta:...), got 'x'"},
      {{"--limit", "5"}, "", "", "unknown option '--limit'"},
      {{"word", "-x"}, "", "", "unknown option '-x'"},
  };
  for (const auto& c : cases) {
    line = CommandLine{};
    const int argc = set_words(c.words);
    parse_flags(line, argc, argv(), 1, allowed, std::size(allowed), c.unknown_message,
                c.positional_message);
    EXPECT_EQ(line.error_text(), c.error) << typed();
  }
  // Without a list every flag counts, and only a positional message applies.
  line = CommandLine{};
  const int argc = set_words({"--limit", "5", "word"});
  parse_flags(line, argc, argv(), 1, nullptr, 0, "", "no words");
  EXPECT_EQ(line.error_text(), "no words");
  EXPECT_EQ(line.limit(), 5);
}

TEST(NumberPredicates, FollowStrtollInTheCLocale) {
  const struct {
    const char* text;
    bool positive;
    bool non_negative;
  } cases[] = {
      {"1", true, true},       {"0", false, true},      {"-0", false, true},
      {"+5", true, true},      {" 7", true, true},      {"\n\t7", true, true},
      {"-1", false, false},    {"7 ", false, false},    {"", false, false},
      {" ", false, false},     {"+", false, false},     {"-", false, false},
      {"10abc", false, false}, {"0x10", false, false}, {"1e3", false, false},
      {"1,000", false, false}, {"99999999999999999999", true, true},
      {"-99999999999999999999", false, false},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(is_positive_integer(c.text), c.positive) << "'" << c.text << "'";
    EXPECT_EQ(is_non_negative_integer(c.text), c.non_negative) << "'" << c.text << "'";
  }
}

TEST(StartsWith, ComparesBytesAndNeedsTheWholePrefix) {
  EXPECT_TRUE(starts_with("orvanta:track:1", "orvanta:"));
  EXPECT_TRUE(starts_with("orvanta:", "orvanta:"));
  EXPECT_FALSE(starts_with("orvanta", "orvanta:"));
  EXPECT_FALSE(starts_with("Orvanta:track:1", "orvanta:"));
  EXPECT_FALSE(starts_with(" orvanta:x", "orvanta:"));
  EXPECT_TRUE(starts_with("", ""));
}

}  // namespace
}  // namespace orvanta::cli
