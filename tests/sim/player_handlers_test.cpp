// Playback, queue, device and Rondo handlers, and the notifications their
// changes send.
#include <gtest/gtest.h>

#include "tests/sim/handler_fixture.hpp"

namespace orvanta::sim::testing {
namespace {

using link::DesktopApiError;

class PlayerHandlers : public HandlerTest {
 protected:
  std::vector<std::string> queue_uris() {
    std::vector<std::string> uris;
    const auto listed = call<m::QueueList>();
    for (const auto& item : listed.result.next_tracks) uris.push_back(item.uri);
    return uris;
  }
  std::string now_playing_uri() {
    const auto now = call<m::NowPlaying>();
    return now.result.currently_playing ? now.result.currently_playing->uri : "";
  }
};

TEST_F(PlayerHandlers, PlayingAPlaylistStartsItsFirstItemInContext) {
  ASSERT_TRUE(call<m::PlaybackPlay>({"orvanta:playlist:backroads", "orvanta_cli", {}, {}}).ok());
  auto now = call<m::NowPlaying>().result.currently_playing;
  EXPECT_EQ(now->uri, "orvanta:track:undertowboogie");
  EXPECT_EQ(now->description, "Undertow Boogie \xE2\x80\x94 Halvard & the Lowtides");
  EXPECT_EQ(now->context_description, "Back Roads");
  EXPECT_TRUE(now->is_playing);
  EXPECT_EQ(refusal(call<m::PlaybackPlay>({"orvanta:track:nowhere", "", {}, {}}), DesktopApiError::bad_request),
            "Unknown URI: orvanta:track:nowhere");
}

TEST_F(PlayerHandlers, NextTakesTheQueueFirstThenTheContext) {
  call<m::PlaybackNext>({});
  EXPECT_EQ(now_playing_uri(), "orvanta:track:ferrymanswaltz");
  EXPECT_EQ(queue_uris().size(), 2U);
  state.queue.clear();
  call<m::PlaybackPlay>({"orvanta:playlist:deepfocus", "", {}, {}});
  call<m::PlaybackNext>({});
  EXPECT_EQ(now_playing_uri(), "orvanta:track:slowsnow");
  call<m::PlaybackPrevious>({});
  EXPECT_EQ(now_playing_uri(), "orvanta:track:glasstide");
}

TEST_F(PlayerHandlers, PauseResumeAndSeekStayWithinTheTrack) {
  call<m::PlaybackPause>();
  EXPECT_FALSE(call<m::NowPlaying>().result.currently_playing->is_playing);
  call<m::PlaybackResume>();
  EXPECT_TRUE(state.player.is_playing);
  call<m::PlaybackSeek>({.position_ms = 10000, .is_relative = true});
  EXPECT_EQ(state.player.position_ms, 52000);
  call<m::PlaybackSeek>({.position_ms = -5000, .is_relative = false});
  EXPECT_EQ(state.player.position_ms, 0);
  call<m::PlaybackSeek>({.position_ms = 999999, .is_relative = false});
  EXPECT_EQ(state.player.position_ms, 214000);
  state.player.track_uri.reset();
  EXPECT_EQ(refusal(call<m::PlaybackPause>(), DesktopApiError::bad_request),
            "Nothing is playing, so there is nothing to pause");
  EXPECT_FALSE(call<m::NowPlaying>().result.currently_playing.has_value());
}

TEST_F(PlayerHandlers, SettingsRefuseValuesOutsideTheirRange) {
  EXPECT_TRUE(call<m::PlaybackRepeat>({.repeat = "track"}).ok());
  EXPECT_EQ(state.player.repeat, "track");
  EXPECT_EQ(refusal(call<m::PlaybackRepeat>({.repeat = "all"}), DesktopApiError::bad_request),
            "Repeat mode must be off, context or track, not 'all'");
  EXPECT_TRUE(call<m::PlaybackSpeed>({.playback_speed = 150}).ok());
  EXPECT_FALSE(call<m::PlaybackSpeed>({.playback_speed = 201}).ok());
  EXPECT_TRUE(call<m::PlaybackVolume>({.volume_percentage = 0.3}).ok());
  EXPECT_EQ(state.devices[0].volume, 30);
  EXPECT_EQ(refusal(call<m::PlaybackVolume>({.volume_percentage = 1.5}), DesktopApiError::bad_request),
            "Volume must be between 0.0 and 1.0");
}

TEST_F(PlayerHandlers, QueueMoveReordersAndRemoveCounts) {
  ASSERT_TRUE(call<m::QueueMove>({.from_position = 2, .to_position = 0}).ok());
  EXPECT_EQ(queue_uris(), (std::vector<std::string>{"orvanta:track:compassrose", "orvanta:track:ferrymanswaltz",
                                                    "orvanta:track:neonorchard"}));
  EXPECT_EQ(call<m::QueueRemove>({.position = 1}).result.remaining, 2);
  EXPECT_EQ(refusal(call<m::QueueRemove>({.position = 2}), DesktopApiError::bad_request),
            "Position 2 is outside the queue, which has 2 upcoming track(s)");
  EXPECT_FALSE(call<m::QueueMove>({.from_position = 0, .to_position = -1}).ok());
  const std::uint64_t revision = call<m::QueueList>().result.revision;
  ASSERT_TRUE(call<m::QueueAdd>({.uri = "orvanta:episode:longshelf42"}).ok());
  EXPECT_EQ(queue_uris().back(), "orvanta:episode:longshelf42");
  EXPECT_GT(call<m::QueueList>().result.revision, revision);
  EXPECT_EQ(refusal(call<m::QueueAdd>({.uri = "orvanta:artist:pellamoor"}), DesktopApiError::bad_request),
            "Only tracks and episodes can be queued, and orvanta:artist:pellamoor is neither");
}

TEST_F(PlayerHandlers, VolumeWithoutADeviceGoesToTheActiveOne) {
  ASSERT_TRUE(call<m::ConnectSetVolume>({.device_id = "", .volume = 12}).ok());
  EXPECT_EQ(call<m::ConnectDeviceInfo>({.device_id = "Studio Desktop"}).result.volume, 12);
  ASSERT_TRUE(call<m::ConnectSetVolume>({.device_id = "Hallway Phone", .volume = 55}).ok());
  EXPECT_EQ(call<m::ConnectDeviceInfo>({.device_id = "71f3c8e0a4b2"}).result.volume, 55);
  EXPECT_FALSE(call<m::ConnectSetVolume>({.device_id = "", .volume = 101}).ok());
}

TEST_F(PlayerHandlers, OnlyTheHostEndsAJoinedSession) {
  state.rondo.active = true;
  state.rondo.session_id = "rondo-elsewhere";
  state.rondo.is_session_owner = false;
  EXPECT_EQ(refusal(call<m::RondoEnd>(), DesktopApiError::unauthorized_request),
            "Only the host of the Rondo session can end it");
  EXPECT_TRUE(call<m::RondoLeave>().ok());
  EXPECT_FALSE(state.rondo.active);
}

}  // namespace
}  // namespace orvanta::sim::testing
