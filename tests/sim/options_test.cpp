// The simulator's command line and the fault flags' values.
#include <gtest/gtest.h>

#include "sim/options.hpp"

namespace orvanta::sim {
namespace {

std::variant<SimOptions, std::string> parse(std::vector<std::string_view> args) { return parse_options(args); }

std::string refusal(std::vector<std::string_view> args) {
  auto parsed = parse(std::move(args));
  return std::holds_alternative<std::string>(parsed) ? std::get<std::string>(parsed) : "(accepted)";
}

// The defaults and the flags the end-to-end harness passes are seen at work
// in tests/e2e; these are the ones no run there uses.
TEST(SimOptions, FlagsLandInTheirMembers) {
  const SimOptions o = std::get<SimOptions>(parse({"--port", "7770", "--port", "0", "--state", "s", "--close-after", "3"}));
  EXPECT_EQ(o.ports, (std::vector<std::uint16_t>{7770, 0}));
  EXPECT_EQ(o.state_file, "s");
  EXPECT_EQ(o.faults.close_after, 3U);
}

TEST(SimOptions, FaultFlagsParseTheirValues) {
  const SimOptions o = std::get<SimOptions>(
      parse({"--fail", "playback_play=8", "--fail", "me=7:desktop_api_failure_source", "--fail", "search=5:elsewhere",
             "--delay", "now_playing=250", "--hang", "queue_list", "--wrong-id", "me", "--garbage-frame",
             "search", "--garbage-frame", "lookup=oversize"}));
  const FaultPlan& f = o.faults;
  ASSERT_NE(f.failure_for("playback_play"), nullptr);
  EXPECT_EQ(f.failure_for("playback_play")->code, 8);
  EXPECT_EQ(f.failure_for("playback_play")->category, "desktop_api");
  EXPECT_EQ(f.failure_for("playback_play")->message, "injected failure: playback restricted");
  EXPECT_EQ(f.failure_for("me")->message, "injected failure: remote playback not allowed");
  EXPECT_EQ(f.failure_for("search")->category, "elsewhere");
  EXPECT_EQ(f.failure_for("search")->message, "injected failure");
  EXPECT_EQ(f.failure_for("lookup"), nullptr);
  EXPECT_EQ(f.delay_for("now_playing"), std::chrono::milliseconds(250));
  EXPECT_TRUE(f.hangs("queue_list"));
  EXPECT_FALSE(f.hangs("queue_add"));
  EXPECT_TRUE(f.answers_with_wrong_id("me"));
  EXPECT_EQ(f.garbage_for("search"), GarbageKind::stray_byte);
  EXPECT_EQ(f.garbage_for("lookup"), GarbageKind::oversized_length);
}

TEST(SimOptions, RefusalsSayWhatIsWrong) {
  const std::pair<std::vector<std::string_view>, std::string> cases[] = {
      {{"--bogus"}, "unknown option '--bogus' (see --help)"},
      {{"--port"}, "--port needs a value"},
      {{"--port", "70000"}, "--port needs a port number, not '70000'"},
      {{"--close-after", "0"}, "--close-after needs a count of 1 or more, not '0'"},
      {{"--fail", "playback_play"}, "--fail takes METHOD=CODE[:CATEGORY], not 'playback_play'"},
      {{"--fail", "me=eight"}, "--fail needs a whole number as CODE, not 'eight'"},
      {{"--fail", "me=0"}, "--fail needs a CODE other than 0, which means success"},
      {{"--delay", "me=-1"}, "--delay needs milliseconds as a whole number, not '-1'"},
      {{"--hang", "Me"}, "'Me' is not a method of the Partner API"},
      {{"--garbage-frame", "me=huge"}, "--garbage-frame takes stray or oversize, not 'huge'"},
      {{"--answer", "me={\"a\":1} x"}, "--answer needs one JSON value after 'me=', not '{\"a\":1} x'"},
      {{"--reject-hello", "--silent-hello"}, "--reject-hello and --silent-hello exclude each other"},
  };
  for (const auto& [args, reason] : cases) EXPECT_EQ(refusal(args), reason) << args.front();
}

}  // namespace
}  // namespace orvanta::sim
