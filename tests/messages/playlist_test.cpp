#include "messages/playlist.hpp"

#include <gtest/gtest.h>

#include "record_check.hpp"

namespace orvanta::messages {
namespace {

using test::check_record;

TEST(PlaylistRecords, WireForms) {
  // 4000000000 needs the unsigned 32-bit width of duration_ms.
  check_record(playlist_track_codec,
               {.type = "episode",
                .uri = "orvanta:episode:1",
                .name = "Ep 1",
                .artists = {"Host"},
                .album = "LP",
                .show_name = "Talk",
                .show_uri = "orvanta:show:1",
                .description = "Pilot",
                .duration_ms = 4000000000U,
                .position = 7},
               R"({"type":"episode","uri":"orvanta:episode:1","name":"Ep 1","artists":["Host"],"album":"LP",)"
               R"("show_name":"Talk","show_uri":"orvanta:show:1","description":"Pilot","duration_ms":4000000000,)"
               R"("position":7})",
               {.required = "type uri name artists position"});
  check_record(playlist_create_request_codec,
               {.name = "New", .description = "Fresh", .cover_image_path = "/tmp/c.jpg", .is_public = true},
               R"({"name":"New","description":"Fresh","cover_image_path":"/tmp/c.jpg","is_public":true})",
               {.required = "name is_public"});
  check_record(playlist_update_request_codec,
               {.playlist_uri = "orvanta:playlist:9", .name = "Renamed", .description = "D",
                .cover_image_path = "/tmp/c.png", .is_public = false},
               R"({"playlist_uri":"orvanta:playlist:9","name":"Renamed","description":"D",)"
               R"("cover_image_path":"/tmp/c.png","is_public":false})",
               {.required = "playlist_uri"});
}

// Creation always states the visibility; an update states it only when it
// is to change, so that renaming a playlist never makes it private.
TEST(PlaylistRecords, VisibilityIsSentOnlyWhenMeant) {
  EXPECT_EQ(json::encode(playlist_create_request_codec(), {.name = "New"}), R"({"name":"New","is_public":false})");
  EXPECT_EQ(json::encode(playlist_update_request_codec(), {.playlist_uri = "orvanta:playlist:9"}),
            R"({"playlist_uri":"orvanta:playlist:9"})");
}

}  // namespace
}  // namespace orvanta::messages
