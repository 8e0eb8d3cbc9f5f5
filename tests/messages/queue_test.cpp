#include "messages/queue.hpp"

#include <gtest/gtest.h>

#include "record_check.hpp"

namespace orvanta::messages {
namespace {

using test::check_record;

TEST(QueueRecords, WireForms) {
  check_record(queue_item_codec,
               {.uri = "orvanta:track:1", .uid = "q1", .name = "Song", .artist = "Band", .provider = "queue"},
               R"({"uri":"orvanta:track:1","uid":"q1","name":"Song","artist":"Band","provider":"queue"})",
               {.required = "uri uid name artist provider"});
  // The revision uses the whole unsigned 64-bit range.
  check_record(queue_list_response_codec,
               {.currently_playing = QueueItem{.uri = "orvanta:track:1", .uid = "q0"},
                .next_tracks = {{.uri = "orvanta:track:2", .uid = "q1", .provider = "context"}},
                .revision = 18446744073709551615ULL},
               R"({"currently_playing":{"uri":"orvanta:track:1","uid":"q0","name":"","artist":"","provider":""},)"
               R"("next_tracks":[{"uri":"orvanta:track:2","uid":"q1","name":"","artist":"","provider":"context"}],)"
               R"("revision":18446744073709551615})",
               {.required = "next_tracks revision", .optional = "currently_playing"});
  check_record(queue_add_request_codec, {.uri = "orvanta:track:3"}, R"({"uri":"orvanta:track:3"})",
               {.required = "uri"});
  check_record(queue_remove_request_codec, {.position = 4}, R"({"position":4})", {.required = "position"});
  check_record(queue_remove_response_codec, {.remaining = 11}, R"({"remaining":11})", {.required = "remaining"});
  check_record(queue_move_request_codec, {.from_position = 3, .to_position = 0},
               R"({"from_position":3,"to_position":0})", {.required = "from_position to_position"});
}

}  // namespace
}  // namespace orvanta::messages
