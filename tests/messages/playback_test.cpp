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
               R"("agentic_product_type":"assistant"})",
               {.required = "context", .defaulted = "referrer", .optional = "attribution agentic_product_type"});
  check_record(playback_play_request_codec, {.context = "orvanta:track:1", .referrer = "home"},
               R"({"context":"orvanta:track:1","referrer":"home"})");
  check_record(playback_next_request_codec, {.context_track = "orvanta:track:9"},
               R"({"context_track":"orvanta:track:9"})", {.optional = "context_track"});
  check_record(playback_previous_request_codec, {.context_track = "orvanta:track:8"},
               R"({"context_track":"orvanta:track:8"})", {.optional = "context_track"});
  check_record(playback_seek_request_codec, {.position_ms = -15000}, R"({"position_ms":-15000,"is_relative":false})",
               {.required = "position_ms", .defaulted = "is_relative"});
  check_record(playback_seek_request_codec, {.position_ms = 2147483647, .is_relative = true},
               R"({"position_ms":2147483647,"is_relative":true})");
  check_record(playback_shuffle_request_codec, {.shuffle = true}, R"({"shuffle":true})", {.required = "shuffle"});
  check_record(playback_repeat_request_codec, {.repeat = "context"}, R"({"repeat":"context"})",
               {.required = "repeat"});
  check_record(playback_speed_request_codec, {.playback_speed = -2}, R"({"playback_speed":-2})",
               {.required = "playback_speed"});
  check_record(playback_volume_request_codec, {.volume_percentage = 42.5}, R"({"volume_percentage":42.5})",
               {.required = "volume_percentage"});
  check_record(now_playing_item_codec,
               {.description = "Song - Band", .uri = "orvanta:track:1", .context_description = "Mix",
                .is_playing = true},
               R"({"description":"Song - Band","uri":"orvanta:track:1","context_description":"Mix","is_playing":true})",
               {.required = "description uri is_playing", .optional = "context_description"});
  check_record(now_playing_response_codec,
               {.currently_playing = NowPlayingItem{.description = "d", .uri = "orvanta:episode:7"}},
               R"({"currently_playing":{"description":"d","uri":"orvanta:episode:7","is_playing":false}})",
               {.optional = "currently_playing"});
}

}  // namespace
}  // namespace orvanta::messages
