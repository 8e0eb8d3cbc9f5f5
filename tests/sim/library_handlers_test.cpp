// Library, playlist and folder handlers: each change shows in what the
// other operations report afterwards.
#include <gtest/gtest.h>

#include "tests/sim/handler_fixture.hpp"

namespace orvanta::sim::testing {
namespace {

using link::DesktopApiError;

const std::string slow_snow = "orvanta:track:slowsnow";
const std::string deep_focus = "orvanta:playlist:deepfocus";
const std::string moods = "orvanta:user:mossfern42:folder:moods";
const std::string evenings = "orvanta:user:mossfern42:folder:evenings";

class LibraryHandlers : public HandlerTest {
 protected:

  std::vector<std::string> items_of(const std::string& playlist) {
    std::vector<std::string> uris;
    const auto got = call<m::PlaylistGet>({playlist, true, {}, {}});
    for (const auto& t : got.result.tracks) uris.push_back(t.uri);
    return uris;
  }

  // The folder list as "depth uri" lines, to compare a tree at a glance.
  std::vector<std::string> tree(std::optional<std::string> folder = {}) {
    std::vector<std::string> lines;
    const auto listed = call<m::FolderList>({std::move(folder), true});
    for (const auto& item : listed.result.items) {
      lines.push_back(std::to_string(item.depth) + " " + item.uri);
    }
    return lines;
  }
};

TEST_F(LibraryHandlers, ListFiltersByTypeAndPages) {
  auto tracks = call<m::LibraryList>({.type = "track", .limit = 3, .offset = 1}).result;
  EXPECT_EQ(tracks.total, 4);
  ASSERT_EQ(tracks.items.size(), 3U);
  EXPECT_FALSE(tracks.has_more);
  EXPECT_EQ(tracks.items[0].uri, "orvanta:track:copperhour");
  EXPECT_EQ(tracks.items[0].artists, std::vector<std::string>{"Brasswing Collective"});
  EXPECT_EQ(tracks.items[0].album, "Brass at Dusk");
  EXPECT_TRUE(call<m::LibraryList>({.type = "album", .limit = 1, .offset = {}}).result.has_more);
}

TEST_F(LibraryHandlers, AddTracksInsertsAtPositionWithANewSnapshot) {
  const std::string before = call<m::PlaylistGet>({deep_focus, false, {}, {}}).result.snapshot_id;
  auto added = call<m::PlaylistAddTracks>({deep_focus, {"orvanta:track:copperhour", "orvanta:episode:tinkerer8"}, 1});
  ASSERT_TRUE(added.ok());
  EXPECT_EQ(added.result.added, 2);
  EXPECT_NE(added.result.snapshot_id, before);
  EXPECT_EQ(items_of(deep_focus), (std::vector<std::string>{"orvanta:track:glasstide", "orvanta:track:copperhour",
                                                            "orvanta:episode:tinkerer8", slow_snow,
                                                            "orvanta:track:mapsofnowhere",
                                                            "orvanta:track:compassrose"}));
  auto got = call<m::PlaylistGet>({deep_focus, true, {}, {}}).result;
  EXPECT_EQ(got.snapshot_id, added.result.snapshot_id);
  EXPECT_EQ(got.track_count, 6);
  EXPECT_EQ(got.tracks[2].type, "episode");
  EXPECT_EQ(got.tracks[2].show_name, "The Tinkerer's Desk");
  EXPECT_EQ(got.tracks[2].position, 2);
}

TEST_F(LibraryHandlers, AddTracksRefusesWhatItCannotPlace) {
  EXPECT_EQ(refusal(call<m::PlaylistAddTracks>({deep_focus, {"orvanta:track:copperhour"}, 5}),
                    DesktopApiError::bad_request),
            "Position 5 is outside the playlist, which has 4 item(s)");
  EXPECT_EQ(refusal(call<m::PlaylistAddTracks>({deep_focus, {"orvanta:album:driftglass"}, {}}),
                    DesktopApiError::bad_request),
            "Not a track or an episode: orvanta:album:driftglass");
  EXPECT_EQ(refusal(call<m::PlaylistAddTracks>({"orvanta:playlist:freshfinds", {slow_snow}, {}}),
                    DesktopApiError::unauthorized_request),
            "Playlist 'Fresh Finds Weekly' belongs to orvanta and can't be changed");
  EXPECT_EQ(refusal(call<m::PlaylistAddTracks>({"orvanta:playlist:gone", {slow_snow}, {}}),
                    DesktopApiError::bad_request),
            "No playlist orvanta:playlist:gone");
  EXPECT_EQ(items_of(deep_focus).size(), 4U);
  // Without a position the tracks go to the end.
  call<m::PlaylistAddTracks>({deep_focus, {"orvanta:track:copperhour"}, {}});
  EXPECT_EQ(items_of(deep_focus).back(), "orvanta:track:copperhour");
}

TEST_F(LibraryHandlers, RemoveTracksTakesEachPositionOnce) {
  auto removed = call<m::PlaylistRemoveTracks>({deep_focus, {3, 0, 3}});
  EXPECT_EQ(removed.result.removed, 2);
  EXPECT_EQ(items_of(deep_focus), (std::vector<std::string>{slow_snow, "orvanta:track:mapsofnowhere"}));
  EXPECT_EQ(refusal(call<m::PlaylistRemoveTracks>({deep_focus, {2}}), DesktopApiError::bad_request),
            "Position 2 is outside the playlist, which has 2 item(s)");
}

TEST_F(LibraryHandlers, FolderListShowsDepthAndParents) {
  auto listed = call<m::FolderList>({{}, true}).result;
  EXPECT_EQ(listed.root.name, "");
  EXPECT_EQ(listed.total_items, 7);
  EXPECT_FALSE(listed.items[0].parent_uri.has_value());
  EXPECT_EQ(listed.items[4].uri, "orvanta:playlist:kitchenjazz");
  EXPECT_EQ(listed.items[4].parent_uri, evenings);
  EXPECT_EQ(listed.items[4].depth, 3);
  EXPECT_EQ(call<m::FolderList>({{}, false}).result.total_items, 3);

  auto inside = call<m::FolderList>({evenings, false}).result;
  EXPECT_EQ(inside.root.name, "Evenings");
  EXPECT_EQ(inside.root.parent_uri, moods);
  EXPECT_EQ(inside.items.size(), 1U);
}

TEST_F(LibraryHandlers, MoveReparentsAndRefusesCycles) {
  auto moved = call<m::FolderMove>({{"orvanta:playlist:backroads", evenings}, "root"});
  EXPECT_EQ(moved.result.moved, 2);
  EXPECT_EQ(tree(), (std::vector<std::string>{"1 " + moods, "2 " + deep_focus, "2 orvanta:playlist:morningferry",
                                              "1 orvanta:playlist:freshfinds", "1 orvanta:playlist:backroads",
                                              "1 " + evenings, "2 orvanta:playlist:kitchenjazz"}));
  EXPECT_EQ(refusal(call<m::FolderMove>({{moods}, moods}), DesktopApiError::bad_request),
            "A folder can't be moved into itself: " + moods);
  call<m::FolderMove>({{evenings}, moods});
  EXPECT_EQ(refusal(call<m::FolderMove>({{moods}, evenings}), DesktopApiError::bad_request),
            "A folder can't be moved into itself: " + moods);
  EXPECT_EQ(refusal(call<m::FolderMove>({{deep_focus}, "orvanta:user:mossfern42:folder:gone"}),
                    DesktopApiError::bad_request),
            "No playlist folder orvanta:user:mossfern42:folder:gone");
}

}  // namespace
}  // namespace orvanta::sim::testing
