#include "messages/playback.hpp"

#include <gtest/gtest.h>

#include "record_check.hpp"

namespace orvanta::messages {
namespace {

using test::check_record;

TEST(PlaybackRecords, WireForms) {
  check_record(playback_play_request_codec,
               {.context = "orvanta:album:2up", .attribution = "cli", .agentic_product_type = "assistant"},
               R"({"context":"orvanta:album:2up","referrer":"","attribution":"cli",)"
               R"("agentic_product_type":"assistant"})");
  check_record(playback_play_request_codec, {.context = "orvanta:track:1", .referrer = "home"},
               R"({"context":"orvanta:track:1","referrer":"home"})");
  check_record(playback_next_request_codec, {.context_track = "orvanta:track:9"},
               R"({"context_track":"orvanta:track:9"})");
  check_record(playback_previous_request_codec, {.context_track = "orvanta:track:8"},
               R"({"context_track":"orvanta:track:8"})");
  check_record(now_playing_response_codec,
               {.currently_playing = NowPlayingItem{.description = "d", .uri = "orvanta:episode:7"}},
               R"({"currently_playing":{"description":"d","uri":"orvanta:episode:7","is_playing":false}})");
}

}  // namespace
}  // namespace orvanta::messages
