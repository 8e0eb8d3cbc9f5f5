#include "cli/flag_parser.hpp"

#include <gtest/gtest.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "command_line_fixture.hpp"

namespace orvanta::cli {
namespace {

using Words = std::vector<std::string>;
using L = CommandLine;
using FlagsTest = testing::CommandLineTest;

// A value landing in the wrong field is the fault a flag table invites. The
// flags whose values the command tests see go out in requests are left to
// them, and so are the ones no command reads.
TEST_F(FlagsTest, EveryValueFlagStoresIntoItsOwnField) {
  using Field = const CommandLine::OptionalText& (CommandLine::*)() const;
  const struct {
    std::string flag, value;
    Field field;
  } cases[] = {
      {"--to", "orvanta:folder:abc", &L::to_uri}, {"--file", "a.mp3", &L::file},
      {"--state", "offline", &L::state},          {"--entity-uri", "orvanta:", &L::entity_uri},
      {"--attribution", "at", &L::attribution},   {"--agentic-product-type", "apt", &L::agentic_product_type},
  };
  for (const auto& c : cases) {
    parse_only_flags({c.flag, c.value});
    SCOPED_TRACE(typed());
    EXPECT_EQ(line.error_text(), "");
    EXPECT_EQ(line.command(), CommandId::Search);
    EXPECT_EQ((line.*c.field)(), c.value);
  }
}

// Validation follows strtoll: blanks and a sign in front pass, and so does
// an overflow, which saturates. The stored value is strtol's narrowed to
// 32 bits without a range check.
TEST_F(FlagsTest, NumberFlagsStoreTheNarrowedStrtolValue) {
  using Field = CommandLine::OptionalNumber (CommandLine::*)() const;
  const struct {
    std::string flag, value;
    Field field;
    std::int32_t stored;
  } cases[] = {
      {"--limit", " 7", &L::limit, 7},         {"--limit", "+5", &L::limit, 5},
      {"--limit", "4294967297", &L::limit, 1}, {"--limit", "2147483648", &L::limit, INT32_MIN},
      {"--limit", "99999999999999999999", &L::limit, -1},
      {"--offset", "0", &L::offset, 0},        {"--position", "3", &L::position, 3},
  };
  for (const auto& c : cases) {
    parse_only_flags({c.flag, c.value});
    EXPECT_EQ((line.*c.field)(), std::optional<std::int32_t>(c.stored)) << typed();
    EXPECT_EQ(line.error_text(), "") << typed();
  }
}

TEST_F(FlagsTest, FailuresStoreTheirTextAndDropTheCommand) {
  const std::pair<Words, std::string> cases[] = {
      {{"--limit", "0"}, "--limit requires a positive integer, got '0'"},
      {{"--width", "-1"}, "--width requires a positive integer, got '-1'"},
      {{"--height", ""}, "--height requires a positive integer, got ''"},
      {{"--offset", "-1"}, "--offset requires a non-negative integer, got '-1'"},
      {{"--position", "1.0"}, "--position requires a non-negative integer, got '1.0'"},
      {{"--silence-ms", "-5"}, "--silence-ms requires a non-negative integer, got '-5'"},
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
      {{"--limit=5"}, "unknown option '--limit=5'"},
      {{"--LIMIT", "5"}, "unknown option '--LIMIT'"},
      {{"--lim", "5"}, "unknown option '--lim'"},
      {{"--limit"}, "--limit requires a value"},
      {{"--limit", "0", "--offset", "-1"}, "--limit requires a positive integer, got '0'"},
      {{"", "--limit", "0"}, "--limit requires a positive integer, got '0'"},
  };
  for (const auto& [words, error] : cases) {
    parse_only_flags(words);
    EXPECT_EQ(line.error_text(), error) << typed();
    EXPECT_EQ(line.command(), CommandId::None) << typed();
  }
}

TEST_F(FlagsTest, ValuesAreTheNextWordAndLoneWordsAreIgnored) {
  parse_only_flags({"--name", "--public", "x", "-", "", "--format", "json"});
  EXPECT_EQ(line.name(), "--public");
  EXPECT_FALSE(line.is_public());
  EXPECT_TRUE(line.json_output());
  EXPECT_EQ(line.error_text(), "");
  parse_only_flags({"--queue-only", "on", "--volume-control", "off", "--type", "album"});
  EXPECT_EQ(line.queue_only(), std::optional<bool>(true));
  EXPECT_EQ(line.volume_control(), std::optional<bool>(false));
  EXPECT_EQ(line.type_filter(), std::optional<std::string_view>("album"));
}

TEST_F(FlagsTest, LaterFlagsWin) {
  const std::pair<Words, bool> visibility[] = {
      {{"--public", "--private"}, false}, {{"--private"}, false}, {{"--private", "--public"}, true}};
  for (const auto& [words, is_public] : visibility) {
    parse_only_flags(words);
    EXPECT_EQ(line.is_public(), is_public) << typed();
  }
  const std::pair<Words, bool> formats[] = {
      {{"--format", "json"}, true}, {{"--format", "xml"}, false}, {{"--format", "JSON"}, false},
      {{"--format", "json", "--format", "xml"}, false}};
  for (const auto& [words, json] : formats) {
    parse_only_flags(words);
    EXPECT_EQ(line.json_output(), json) << typed();
  }
  parse_only_flags({"--limit", "1", "--limit", "2", "--text", "a", "--hierarchy-id", "b"});
  EXPECT_EQ(line.limit(), 2);
  EXPECT_EQ(line.argument(), "b");
}

TEST_F(FlagsTest, FieldsSplitAtCommasAndStartOverWhenRepeated) {
  const std::pair<Words, std::vector<std::string>> cases[] = {
      {{"--fields", "name,uri"}, {"name", "uri"}}, {{"--fields", "a,,b"}, {"a", "", "b"}},
      {{"--fields", "a,"}, {"a"}},                 {{"--fields", ",a"}, {"", "a"}},
      {{"--fields", ""}, {}},                      {{"--fields", "a,b", "--fields", "c"}, {"c"}},
  };
  for (const auto& [words, fields] : cases) {
    parse_only_flags(words);
    EXPECT_EQ(line.fields(), fields) << typed();
  }
  parse_only_flags({});
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
      {{"--positions", "4,5,x,6"}, {4, 5}, true},
  };
  for (const auto& c : cases) {
    parse_only_flags(c.words);
    EXPECT_EQ(line.positions(), c.positions) << typed();
    EXPECT_EQ(line.command() == CommandId::None, c.fails) << typed();
  }
}

// --role is the one failure that does not end the walk.
TEST_F(FlagsTest, RoleWalkGoesOnAfterAFailure) {
  const std::string bad = "unknown role 'x'; valid values: assistant, tool_call";
  const struct {
    Words words;
    Role role;
    std::string error;
  } cases[] = {
      {{"--sent-by-agent"}, Role::assistant, ""},
      {{"--sent-by-agent", "--role", "tool_call"}, Role::tool_call, ""},
      {{"--role", "tool_call", "--sent-by-agent"}, Role::tool_call, ""},
      {{"--role", "x", "--role", "assistant"}, Role::assistant, bad},
      {{"--role", "x", "--sent-by-agent"}, Role::assistant, bad},
      {{"--role", "x", "--limit", "0"}, Role::none, "--limit requires a positive integer, got '0'"},
  };
  for (const auto& c : cases) {
    parse_only_flags(c.words);
    EXPECT_EQ(line.role(), c.role) << typed();
    EXPECT_EQ(line.error_text(), c.error) << typed();
    EXPECT_EQ(line.command() == CommandId::None, !c.error.empty()) << typed();
  }
  parse_only_flags({"--role", "x", "--limit", "5"});
  EXPECT_EQ(line.limit(), 5);
}

TEST_F(FlagsTest, AnEarlierFailureOrAnEmptyRangeIsLeftAlone) {
  const int argc = set_words({"--limit", "0", "--name", "n"});
  CommandLine failed;
  detail::writable(failed).error_text = "first";
  parse_flags(failed, argc, argv(), 1);
  EXPECT_EQ(failed.error_text(), "first");
  EXPECT_FALSE(failed.name().has_value());
  parse_flags(failed, argc, argv(), argc);
  EXPECT_EQ(failed.error_text(), "first");
}

TEST(NumberPredicates, FollowStrtollInTheCLocale) {
  const struct {
    const char* text;
    bool positive, non_negative;
  } cases[] = {
      {"1", true, true},      {"0", false, true},      {"-0", false, true},     {"+5", true, true},
      {" 7", true, true},     {"\n\t7", true, true},   {"-1", false, false},    {"7 ", false, false},
      {"", false, false},     {" ", false, false},     {"+", false, false},     {"10abc", false, false},
      {"0x10", false, false}, {"1e3", false, false},   {"1,000", false, false},
      {"99999999999999999999", true, true},            {"-99999999999999999999", false, false},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(is_positive_integer(c.text), c.positive) << "'" << c.text << "'";
    EXPECT_EQ(is_non_negative_integer(c.text), c.non_negative) << "'" << c.text << "'";
  }
}

}  // namespace
}  // namespace orvanta::cli
