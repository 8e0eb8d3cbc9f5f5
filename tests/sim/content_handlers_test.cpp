// Search, lookup and history: what the content commands print from.
#include <gtest/gtest.h>

#include "tests/sim/handler_fixture.hpp"

namespace orvanta::sim::testing {
namespace {

using link::DesktopApiError;

class ContentHandlers : public HandlerTest {};

TEST_F(ContentHandlers, SearchMatchesNamesAndArtistsWithoutCase) {
  auto all = call<m::Search>({.query = "PELLA", .type = {}, .limit = {}}).result;
  ASSERT_EQ(all.artists.size(), 1U);
  EXPECT_EQ(all.top_hit->uri, "orvanta:artist:pellamoor");
  // Tracks are found by their artists as well as by their names.
  EXPECT_EQ(all.tracks.size(), 4U);
  EXPECT_EQ(all.tracks[0].artists, (std::vector<std::string>{"Brasswing Collective", "Pella Moor"}));
  EXPECT_EQ(all.categories_order.front(), "topHit");

  auto tracks = call<m::Search>({.query = "pella", .type = "track", .limit = 2}).result;
  EXPECT_TRUE(tracks.artists.empty());
  EXPECT_EQ(tracks.tracks.size(), 2U);
  EXPECT_FALSE(tracks.top_hit.has_value());
  EXPECT_EQ(refusal(call<m::Search>({.query = "", .type = {}, .limit = {}}), DesktopApiError::bad_request),
            "The search query is empty");
}

TEST_F(ContentHandlers, LookupShowsDefaultAndAskedFieldsAndLeavesUnknownsNameless) {
  auto found = call<m::Lookup>({.uris = {"orvanta:track:copperhour", "orvanta:track:lost"},
                                .fields = std::vector<std::string>{"camelot_key", "duration", "no_such_field"}})
                   .result;
  ASSERT_EQ(found.entities.size(), 2U);
  const auto& track = found.entities[0];
  EXPECT_EQ(track.name, "Copper Hour");
  EXPECT_EQ(track.parent->name, "Brass at Dusk");
  EXPECT_EQ(track.contributors.at(0).uri, "orvanta:artist:brasswing");
  std::vector<std::string> fields;
  for (const auto& f : track.metadata) fields.push_back(f.field + "=" + f.value);
  EXPECT_EQ(fields, (std::vector<std::string>{"duration=4:58", "release_date=2018-10-26", "camelot_key=6B"}));
  EXPECT_EQ(found.entities[1].name, "");
  EXPECT_EQ(found.entities[1].type, "track");
}

TEST_F(ContentHandlers, HistoryTopSortsByTimeListenedAndRecentByLastPlay) {
  auto top = call<m::HistoryTop>({.type = "track", .limit = 2}).result;
  ASSERT_EQ(top.items.size(), 2U);
  EXPECT_EQ(top.items[0].uri, "orvanta:track:harbourlights");
  EXPECT_EQ(top.items[0].played_seconds, 91800);
  EXPECT_EQ(top.items[1].uri, "orvanta:track:glasstide");
  EXPECT_FALSE(top.items[0].last_played_at.has_value());

  auto recent = call<m::HistoryRecent>({.type = {}, .limit = 1}).result;
  ASSERT_EQ(recent.items.size(), 1U);
  EXPECT_EQ(recent.items[0].name, "Glass Tide");
  EXPECT_EQ(recent.items[0].last_played_at, "2025-03-03T08:02:55Z");
}

}  // namespace
}  // namespace orvanta::sim::testing
