// The default state, its file form, and the dispatcher's answers to every
// operation of the catalogue.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <map>

#include "sim/bounded_file.hpp"
#include "sim/catalogue.hpp"
#include "sim/state_codec.hpp"
#include "tests/sim/handler_fixture.hpp"

namespace orvanta::sim::testing {
namespace {

std::string temp_path(const std::string& name) {
  return (std::filesystem::temp_directory_path() / ("orvanta_sim_" + name)).string();
}

// Every URI the default state mentions must name something in it, or the
// commands would show dangling names.
TEST(DefaultState, EveryReferenceResolves) {
  const SimState state = default_state();
  auto expect_known = [&](const std::string& uri) { EXPECT_TRUE(exists(state, uri)) << uri; };
  for (const Track& t : state.tracks) {
    for (const auto& a : t.artist_uris) expect_known(a);
    expect_known(t.album_uri);
  }
  for (const Album& a : state.albums) std::for_each(a.artist_uris.begin(), a.artist_uris.end(), expect_known);
  for (const Episode& e : state.episodes) expect_known(e.show_uri);
  for (const Playlist& p : state.playlists) {
    for (const auto& item : p.items) EXPECT_TRUE(is_playable_item(state, item)) << item;
  }
  for (const SavedItem& s : state.library) expect_known(s.uri);
  for (const Play& p : state.history) expect_known(p.uri);
  for (const QueueEntry& q : state.queue) EXPECT_TRUE(is_playable_item(state, q.uri)) << q.uri;
  for (const auto& uri : state.taste.artist_uris) expect_known(uri);
  expect_known(*state.player.track_uri);
  expect_known(*state.player.context_uri);
  for (const PodroomEpisode& e : state.podroom.episodes) {
    EXPECT_TRUE(std::any_of(state.podroom.shows.begin(), state.podroom.shows.end(),
                            [&](const PodroomShow& s) { return s.show_uri == e.show_uri; }));
  }
}

// Each playlist and folder stands exactly once in the folder tree.
TEST(DefaultState, FolderTreeHoldsEachEntryOnce) {
  const SimState state = default_state();
  std::map<std::string, int> seen;
  for (const auto& uri : state.sidebar) ++seen[uri];
  for (const Folder& f : state.folders) {
    for (const auto& uri : f.children) ++seen[uri];
  }
  for (const Playlist& p : state.playlists) EXPECT_EQ(seen[p.uri], 1) << p.uri;
  for (const Folder& f : state.folders) EXPECT_EQ(seen[f.uri], 1) << f.uri;
  EXPECT_EQ(seen.size(), state.playlists.size() + state.folders.size());
}

TEST(StateFile, DumpThenLoadKeepsEveryField) {
  SimState state = default_state();
  state.next_id = 42;
  state.player.volume = 0.25;
  const std::string path = temp_path("dump.json");
  ASSERT_EQ(write_state_file(path, state), "");
  auto loaded = load_state_file(path);
  ASSERT_TRUE(std::holds_alternative<SimState>(loaded)) << std::get<std::string>(loaded);
  EXPECT_EQ(encode_state(std::get<SimState>(loaded)), encode_state(state));
  std::remove(path.c_str());
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

class DispatcherTest : public HandlerTest {};

// The unknown-method and missing-field texts are checked on the wire in
// session_test.cpp.
TEST_F(DispatcherTest, UnknownMethodsAndBadParametersAreRefused) {
  EXPECT_EQ(dispatcher.run("Me", "{}").failure.code, 1);  // method names are matched exactly
  Outcome bad = dispatcher.run("playback_seek", R"({"position_ms":"soon"})");
  EXPECT_EQ(bad.failure.code, 2);
  EXPECT_EQ(bad.failure.message, "The parameters of playback_seek don't fit: Invalid integer at byte 16");
  EXPECT_EQ(dispatcher.run("me", "[]").failure.code, 2);
}

TEST_F(DispatcherTest, LoggedOutUserGetsNotLoggedInUntilLogin) {
  state.account.logged_in = false;
  EXPECT_EQ(refusal(call<m::Me>(), link::DesktopApiError::not_logged_in), "Nobody is logged in to the desktop client");
  EXPECT_FALSE(call<m::PlaybackPause>().ok());

  // The subscription's first notice goes to the subscriber alone.
  auto subscribed = call<m::LoginStateSubscription>();
  ASSERT_EQ(subscribed.notices.size(), 1U);
  EXPECT_FALSE(subscribed.notices[0].broadcast);

  auto login = call<m::ConnectLogin>();
  ASSERT_TRUE(login.ok());
  ASSERT_EQ(login.notices.size(), 1U);
  EXPECT_EQ(login.notices[0].params, R"({"logged_in":true})");
  EXPECT_TRUE(login.notices[0].broadcast);
  EXPECT_EQ(call<m::Me>().result.username, "mossfern42");
}

}  // namespace
}  // namespace orvanta::sim::testing
