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
               R"("position":7})", "type uri name artists position");
}

}  // namespace
}  // namespace orvanta::messages
