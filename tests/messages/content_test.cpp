#include "messages/content.hpp"

#include <gtest/gtest.h>

#include "record_check.hpp"

namespace orvanta::messages {
namespace {

using test::check_record;

TEST(SearchRecords, WireForms) {
  check_record(search_request_codec, {.query = "blue in green", .type = "track", .limit = 5},
               R"({"query":"blue in green","type":"track","limit":5})",
               {.required = "query", .optional = "type limit"});
  // 3000000000 does not fit 32 bits: the listener count is 64-bit.
  check_record(search_artist_codec,
               {.uri = "orvanta:artist:1", .name = "Band", .monthly_listeners = 3000000000, .image = "https://i/a"},
               R"({"uri":"orvanta:artist:1","name":"Band","monthly_listeners":3000000000,"image":"https://i/a"})",
               {.required = "uri name", .optional = "monthly_listeners image"});
  check_record(search_track_codec,
               {.uri = "orvanta:track:1", .name = "Song", .artists = {"A", "B"}, .image = "https://i/t"},
               R"({"uri":"orvanta:track:1","name":"Song","artists":["A","B"],"image":"https://i/t"})",
               {.required = "uri name artists", .optional = "image"});
  check_record(search_album_codec, {.uri = "orvanta:album:1", .name = "LP", .artists = {"A"}, .image = "https://i/l"},
               R"({"uri":"orvanta:album:1","name":"LP","artists":["A"],"image":"https://i/l"})",
               {.required = "uri name artists", .optional = "image"});
  check_record(search_playlist_codec,
               {.uri = "orvanta:playlist:1", .name = "Mix", .author = "ada", .image = "https://i/p"},
               R"({"uri":"orvanta:playlist:1","name":"Mix","author":"ada","image":"https://i/p"})",
               {.required = "uri name", .optional = "author image"});
  check_record(search_show_codec, {.uri = "orvanta:show:1", .name = "Talk", .image = "https://i/s"},
               R"({"uri":"orvanta:show:1","name":"Talk","image":"https://i/s"})",
               {.required = "uri name", .optional = "image"});
  check_record(search_episode_codec, {.uri = "orvanta:episode:1", .name = "Ep 1", .image = "https://i/e"},
               R"({"uri":"orvanta:episode:1","name":"Ep 1","image":"https://i/e"})",
               {.required = "uri name", .optional = "image"});
  check_record(search_audiobook_codec,
               {.uri = "orvanta:audiobook:1", .name = "Novel", .authors = {"W"}, .image = "https://i/b"},
               R"({"uri":"orvanta:audiobook:1","name":"Novel","authors":["W"],"image":"https://i/b"})",
               {.required = "uri name authors", .optional = "image"});
  check_record(search_top_hit_codec, {.uri = "orvanta:artist:1", .name = "Band", .image = "https://i/a"},
               R"({"uri":"orvanta:artist:1","name":"Band","image":"https://i/a"})",
               {.required = "uri name", .optional = "image"});
  check_record(search_recommendations_codec,
               {.title = "For you", .playlists = {{.uri = "orvanta:playlist:2", .name = "Chill"}}},
               R"({"title":"For you","playlists":[{"uri":"orvanta:playlist:2","name":"Chill"}]})",
               {.required = "title playlists"});
  check_record(search_response_codec,
               {.artists = {{.uri = "orvanta:artist:1", .name = "Band"}},
                .tracks = {{.uri = "orvanta:track:1", .name = "Song", .artists = {"Band"}}},
                .albums = {{.uri = "orvanta:album:1", .name = "LP", .artists = {"Band"}}},
                .playlists = {{.uri = "orvanta:playlist:1", .name = "Mix"}},
                .shows = {{.uri = "orvanta:show:1", .name = "Talk"}},
                .episodes = {{.uri = "orvanta:episode:1", .name = "Ep 1"}},
                .audiobooks = {{.uri = "orvanta:audiobook:1", .name = "Novel", .authors = {"W"}}},
                .top_hit = SearchTopHit{.uri = "orvanta:artist:1", .name = "Band"},
                .top_recommendations = SearchRecommendations{.title = "For you"},
                .categories_order = {"artists", "tracks"}},
               R"({"artists":[{"uri":"orvanta:artist:1","name":"Band"}],)"
               R"("tracks":[{"uri":"orvanta:track:1","name":"Song","artists":["Band"]}],)"
               R"("albums":[{"uri":"orvanta:album:1","name":"LP","artists":["Band"]}],)"
               R"("playlists":[{"uri":"orvanta:playlist:1","name":"Mix"}],)"
               R"("shows":[{"uri":"orvanta:show:1","name":"Talk"}],)"
               R"("episodes":[{"uri":"orvanta:episode:1","name":"Ep 1"}],)"
               R"("audiobooks":[{"uri":"orvanta:audiobook:1","name":"Novel","authors":["W"]}],)"
               R"("top_hit":{"uri":"orvanta:artist:1","name":"Band"},)"
               R"("top_recommendations":{"title":"For you","playlists":[]},)"
               R"("categories_order":["artists","tracks"]})",
               {.required = "artists tracks albums playlists shows episodes audiobooks categories_order",
                .optional = "top_hit top_recommendations"});
}

TEST(LookupRecords, WireForms) {
  check_record(lookup_request_codec, {.uris = {"orvanta:track:1", "orvanta:album:2"}, .fields = {{"name"}}},
               R"({"uris":["orvanta:track:1","orvanta:album:2"],"fields":["name"]})",
               {.required = "uris", .optional = "fields"});
  check_record(lookup_parent_codec, {.name = "LP", .uri = "orvanta:album:2"},
               R"({"name":"LP","uri":"orvanta:album:2"})", {.required = "name uri"});
  check_record(lookup_contributor_codec, {.name = "Band", .uri = "orvanta:artist:1"},
               R"({"name":"Band","uri":"orvanta:artist:1"})", {.required = "name", .optional = "uri"});
  check_record(lookup_metadata_field_codec, {.field = "release_date", .value = "1959"},
               R"({"field":"release_date","value":"1959"})", {.required = "field value"});
  check_record(lookup_entity_codec,
               {.uri = "orvanta:track:1",
                .type = "track",
                .name = "Song",
                .description = "Live",
                .parent = LookupParent{.name = "LP", .uri = "orvanta:album:2"},
                .contributors = {{.name = "Band"}},
                .image_url = "https://i/t",
                .metadata = {{.field = "duration_ms", .value = "345000"}}},
               R"({"uri":"orvanta:track:1","type":"track","name":"Song","description":"Live",)"
               R"("parent":{"name":"LP","uri":"orvanta:album:2"},"contributors":[{"name":"Band"}],)"
               R"("image_url":"https://i/t","metadata":[{"field":"duration_ms","value":"345000"}]})",
               {.required = "uri type name contributors metadata", .optional = "description parent image_url"});
  check_record(lookup_response_codec,
               {.entities = {{.uri = "orvanta:show:1", .type = "show", .name = "Talk"}}},
               R"({"entities":[{"uri":"orvanta:show:1","type":"show","name":"Talk","contributors":[],"metadata":[]}]})",
               {.required = "entities"});
}

TEST(TasteAndHistoryRecords, WireForms) {
  check_record(taste_profile_response_codec,
               {.musical_identity = "jazz",
                .content_rhythms = "mornings",
                .what_makes_you_distinctive = "B-sides",
                .podcast_and_audiobook_taste = "history",
                .artist_uris = {"orvanta:artist:1"},
                .show_uris = {"orvanta:show:1"},
                .audiobook_uris = {"orvanta:audiobook:1"}},
               R"({"musical_identity":"jazz","content_rhythms":"mornings","what_makes_you_distinctive":"B-sides",)"
               R"("podcast_and_audiobook_taste":"history","artist_uris":["orvanta:artist:1"],)"
               R"("show_uris":["orvanta:show:1"],"audiobook_uris":["orvanta:audiobook:1"]})",
               {.required = "musical_identity content_rhythms what_makes_you_distinctive artist_uris show_uris "
                            "audiobook_uris",
                .optional = "podcast_and_audiobook_taste"});
  check_record(history_top_request_codec, {.type = "artist", .limit = 10}, R"({"type":"artist","limit":10})",
               {.optional = "type limit"});
  check_record(history_recent_request_codec, {.type = "track", .limit = 50}, R"({"type":"track","limit":50})",
               {.optional = "type limit"});
  check_record(history_item_codec,
               {.uri = "orvanta:track:1", .name = "Song", .played_seconds = 5000000000,
                .last_played_at = "2024-05-01T10:00:00Z"},
               R"({"uri":"orvanta:track:1","name":"Song","played_seconds":5000000000,)"
               R"("last_played_at":"2024-05-01T10:00:00Z"})",
               {.required = "uri name", .optional = "played_seconds last_played_at"});
  check_record(history_top_response_codec, {.items = {{.uri = "orvanta:artist:1", .name = "Band"}}},
               R"({"items":[{"uri":"orvanta:artist:1","name":"Band"}]})", {.required = "items"});
  check_record(history_recent_response_codec, {.items = {{.uri = "orvanta:track:1", .name = "Song"}}},
               R"({"items":[{"uri":"orvanta:track:1","name":"Song"}]})", {.required = "items"});
}

}  // namespace
}  // namespace orvanta::messages
