// The requests and most answers of search, lookup, taste and history are
// pinned byte for byte by the command tests (tests/commands); here the
// members those never show: every image, the listener count, the top hit,
// the recommendations, the lookup parent and metadata, the history dates.
#include "messages/content.hpp"

#include <gtest/gtest.h>

#include "record_check.hpp"

namespace orvanta::messages {
namespace {

using test::check_record;

TEST(SearchRecords, WireForms) {
  // 3000000000 does not fit 32 bits: the listener count is 64-bit.
  check_record(search_response_codec,
               {.artists = {{.uri = "orvanta:artist:1", .name = "Band", .monthly_listeners = 3000000000, .image = "a"}},
                .tracks = {{.uri = "orvanta:track:1", .name = "Song", .artists = {"Band"}, .image = "t"}},
                .albums = {{.uri = "orvanta:album:1", .name = "LP", .artists = {"Band"}, .image = "l"}},
                .playlists = {{.uri = "orvanta:playlist:1", .name = "Mix", .author = "ada", .image = "p"}},
                .shows = {{.uri = "orvanta:show:1", .name = "Talk", .image = "s"}},
                .episodes = {{.uri = "orvanta:episode:1", .name = "Ep 1", .image = "e"}},
                .audiobooks = {{.uri = "orvanta:audiobook:1", .name = "Novel", .authors = {"W"}, .image = "b"}},
                .top_hit = SearchTopHit{.uri = "orvanta:artist:1", .name = "Band", .image = "h"},
                .top_recommendations = SearchRecommendations{.title = "For you"},
                .categories_order = {"artists", "tracks"}},
               R"({"artists":[{"uri":"orvanta:artist:1","name":"Band","monthly_listeners":3000000000,"image":"a"}],)"
               R"("tracks":[{"uri":"orvanta:track:1","name":"Song","artists":["Band"],"image":"t"}],)"
               R"("albums":[{"uri":"orvanta:album:1","name":"LP","artists":["Band"],"image":"l"}],)"
               R"("playlists":[{"uri":"orvanta:playlist:1","name":"Mix","author":"ada","image":"p"}],)"
               R"("shows":[{"uri":"orvanta:show:1","name":"Talk","image":"s"}],)"
               R"("episodes":[{"uri":"orvanta:episode:1","name":"Ep 1","image":"e"}],)"
               R"("audiobooks":[{"uri":"orvanta:audiobook:1","name":"Novel","authors":["W"],"image":"b"}],)"
               R"("top_hit":{"uri":"orvanta:artist:1","name":"Band","image":"h"},)"
               R"("top_recommendations":{"title":"For you","playlists":[]},)"
               R"("categories_order":["artists","tracks"]})",
               "artists tracks albums playlists shows episodes audiobooks categories_order");
}

TEST(LookupAndHistoryRecords, WireForms) {
  check_record(lookup_entity_codec,
               {.uri = "orvanta:track:1",
                .type = "track",
                .name = "Song",
                .description = "Live",
                .parent = LookupParent{.name = "LP", .uri = "orvanta:album:2"},
                .contributors = {{.name = "Band", .uri = "orvanta:artist:1"}},
                .image_url = "https://i/t",
                .metadata = {{.field = "duration_ms", .value = "345000"}}},
               R"({"uri":"orvanta:track:1","type":"track","name":"Song","description":"Live",)"
               R"("parent":{"name":"LP","uri":"orvanta:album:2"},)"
               R"("contributors":[{"name":"Band","uri":"orvanta:artist:1"}],)"
               R"("image_url":"https://i/t","metadata":[{"field":"duration_ms","value":"345000"}]})",
               "uri type name contributors metadata");
  check_record(history_item_codec,
               {.uri = "orvanta:track:1", .name = "Song", .played_seconds = 5000000000,
                .last_played_at = "2024-05-01T10:00:00Z"},
               R"({"uri":"orvanta:track:1","name":"Song","played_seconds":5000000000,)"
               R"("last_played_at":"2024-05-01T10:00:00Z"})", "uri name");
}

}  // namespace
}  // namespace orvanta::messages
