// What the simulator decides that no command shows: every operation
// answered, the refusals of the dispatcher, the queue's bounds, the timeline
// rules of `pod timeline set`, and the state file's refusals. The commands'
// own runs against the simulator, on the default state and on state files,
// are in tests/commands.
#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <fstream>

#include "messages/operations.hpp"
#include "sim/bounded_file.hpp"
#include "sim/dispatcher.hpp"
#include "sim/fixture.hpp"
#include "sim/timeline_file.hpp"

namespace orvanta::sim {
namespace {

// Whatever a request holds, the answer is a result the client can decode
// or a failure with a code and words; no operation is left unanswered.
TEST(Dispatcher, EveryOperationAnswersWithItsRecordOrAReason) {
  SimState state = default_state();
  Dispatcher dispatcher(state);
  int answered = 0;
  messages::for_each_operation([&]<class Op>(std::type_identity<Op>) {
    const std::string params = json::encode(messages::record_codec<typename Op::Request>(), {}).str();
    Outcome outcome = dispatcher.run(Op::name, params);
    if (outcome.ok()) {
      typename Op::Response response;
      EXPECT_TRUE(json::try_decode(messages::record_codec<typename Op::Response>(), *outcome.result, response))
          << Op::name << ": " << *outcome.result;
    } else {
      EXPECT_NE(outcome.failure.code, 0) << Op::name;
      EXPECT_NE(outcome.failure.code, 1) << Op::name << " has no handler";
      EXPECT_FALSE(outcome.failure.message.empty()) << Op::name;
    }
    ++answered;
  });
  EXPECT_EQ(answered, 94);
}

// The unknown-method and missing-field texts are checked on the wire in
// session_test.cpp. The default queue has three upcoming tracks.
TEST(Dispatcher, RefusesUnknownMethodsBadParametersAndPositionsPastTheQueue) {
  SimState state = default_state();
  Dispatcher dispatcher(state);
  EXPECT_EQ(dispatcher.run("Me", "{}").failure.code, 1);  // method names are matched exactly
  Outcome bad = dispatcher.run("playback_seek", R"({"position_ms":"soon"})");
  EXPECT_EQ(bad.failure.code, 2);
  EXPECT_EQ(bad.failure.message, "The parameters of playback_seek don't fit: Invalid integer at byte 16");
  EXPECT_EQ(dispatcher.run("me", "[]").failure.code, 2);
  EXPECT_EQ(dispatcher.run("queue_remove", R"({"position":3})").failure.message,
            "Position 3 is outside the queue, which has 3 upcoming track(s)");
  EXPECT_EQ(dispatcher.run("queue_move", R"({"from_position":0,"to_position":3})").failure.code, 2);
  EXPECT_EQ(dispatcher.run("queue_remove", R"({"position":2})").result, R"({"remaining":2})");
}

// Logged out, every operation but the login ones is refused; the
// subscription's first notice goes to the subscriber alone, the login's to
// every subscriber.
TEST(Dispatcher, LoggedOutUserGetsNotLoggedInUntilLogin) {
  SimState state = default_state();
  state.account.logged_in = false;
  Dispatcher dispatcher(state);
  Outcome refused = dispatcher.run("me", "{}");
  EXPECT_EQ(refused.failure.code, 16);
  EXPECT_EQ(refused.failure.message, "Nobody is logged in to the desktop client");
  EXPECT_FALSE(dispatcher.run("playback_pause", "{}").ok());
  Outcome subscribed = dispatcher.run("login_state_subscription", "{}");
  ASSERT_EQ(subscribed.notices.size(), 1U);
  EXPECT_FALSE(subscribed.notices[0].broadcast);
  Outcome login = dispatcher.run("connect_login", R"({"source":"zeroconf"})");
  ASSERT_EQ(login.notices.size(), 1U);
  EXPECT_EQ(login.notices[0].params, R"({"logged_in":true})");
  EXPECT_TRUE(login.notices[0].broadcast);
  EXPECT_TRUE(dispatcher.run("me", "{}").ok());
}

std::string refusal_of(const TimelineParse& parsed) {
  return std::holds_alternative<std::string>(parsed) ? std::get<std::string>(parsed) : "(accepted)";
}

TEST(TimelineRules, ItemsAreNumberedFromTheEpisode) {
  auto parsed = parse_timeline(R"({"items":[
      {"chapter":{"title":"Intro","start_time_ms":0}},
      {"link":{"start_time_ms":5000,"duration_ms":1000,"url":"https://example.org/a"}},
      {"chapter":{"title":"Main","start_time_ms":30000,"description":"The meat"}}]})",
                               "ep1");
  ASSERT_TRUE(std::holds_alternative<std::vector<messages::TimelineItem>>(parsed)) << refusal_of(parsed);
  const auto& items = std::get<std::vector<messages::TimelineItem>>(parsed);
  ASSERT_EQ(items.size(), 3U);
  EXPECT_EQ(items[0].chapter->chapter_uri, "orvanta:chapter:ep1-0");
  EXPECT_EQ(items[1].link->companion_uri, "orvanta:companion:ep1-1");
  EXPECT_EQ(items[2].chapter->description, "The meat");
}

TEST(TimelineRules, EachBrokenRuleIsNamed) {
  const std::pair<const char*, const char*> cases[] = {
      {R"({"items":[{"chapter":{"title":"Only","start_time_ms":0}}]})",
       "A timeline needs at least 2 chapters, and this one has 1"},
      {R"({"items":[{"chapter":{"title":"Late","start_time_ms":1500}},{"chapter":{"title":"B","start_time_ms":90000}}]})",
       "The first chapter must start at 0 ms, but \"Late\" starts at 1500 ms"},
      {R"({"items":[{"chapter":{"title":"A","start_time_ms":0}},{"chapter":{"title":"B","start_time_ms":29999}}]})",
       "Chapters must be at least 30 s apart, but \"A\" starts at 0 ms and \"B\" at 29999 ms"},
      {R"({"items":[{"chapter":{"title":"A","start_time_ms":0}},{"chapter":{"title":"B","start_time_ms":60000}},
                    {"chapter":{"title":"C","start_time_ms":40000}}]})",
       "Chapters must be at least 30 s apart, but \"B\" starts at 60000 ms and \"C\" at 40000 ms"},
      {R"({"items":[{"chapter":{"title":"A","start_time_ms":0},"link":{"start_time_ms":0,"duration_ms":1,"url":"u"}}]})",
       "Timeline item 0 must hold exactly one of chapter, image, link or orvanta_entity"},
      {R"({"items":[{"chapter":{"title":"A","start_time_ms":0}},{}]})",
       "Timeline item 1 must hold exactly one of chapter, image, link or orvanta_entity"},
      {R"({"items":[{"chapter":{"start_time_ms":0}}]})",
       "The timeline file is not valid: Missing required field(s) at byte 40"},
      {R"([1,2])", "The timeline file is not valid: Unexpected input at byte 0"},
  };
  for (const auto& [text, reason] : cases) EXPECT_EQ(refusal_of(parse_timeline(text, "e")), reason) << text;
}

std::string temp_path(const std::string& name) {
  return (std::filesystem::temp_directory_path() / ("orvanta_sim_" + name)).string();
}

TEST(StateFile, RefusalsNameTheFileAndTheByte) {
  const std::string path = temp_path("broken.json");
  std::ofstream(path) << R"({"account":{"user":{"username":"x"}},"tracks":[{"uri":"a"}]})";
  auto loaded = load_state_file(path);
  ASSERT_TRUE(std::holds_alternative<std::string>(loaded));
  EXPECT_EQ(std::get<std::string>(loaded),
            "the state file " + path + " is not valid: Missing required field(s) at byte 35");
  std::remove(path.c_str());
  EXPECT_EQ(std::get<std::string>(load_state_file(path)), "cannot read the state file " + path);
  // Only a regular file, and not a huge one: /dev/zero would never end.
  EXPECT_EQ(std::get<std::string>(load_state_file("/dev/zero")), "the state file /dev/zero is not a regular file");
  const std::string huge = temp_path("huge.json");
  std::filesystem::resize_file((std::ofstream(huge), huge), file_size_limit + 1);
  EXPECT_EQ(std::get<std::string>(load_state_file(huge)), "the state file " + huge + " is larger than 16 MiB");
  std::remove(huge.c_str());
}

TEST(StateFile, LoadingMarksTheActiveDeviceFromItsId) {
  SimState state = default_state();
  state.active_device_id = state.devices[2].device_id;
  const std::string path = temp_path("switched.json");
  ASSERT_EQ(write_state_file(path, state), "");
  const SimState loaded = std::get<SimState>(load_state_file(path));
  EXPECT_FALSE(loaded.devices[0].is_active);
  EXPECT_TRUE(loaded.devices[2].is_active);
  std::remove(path.c_str());
}

}  // namespace
}  // namespace orvanta::sim
