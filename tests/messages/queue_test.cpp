#include "messages/queue.hpp"

#include <gtest/gtest.h>

#include "record_check.hpp"

namespace orvanta::messages {
namespace {

using test::check_record;

TEST(QueueRecords, WireForms) {
  // The revision uses the whole unsigned 64-bit range.
  check_record(queue_list_response_codec,
               {.currently_playing = QueueItem{.uri = "orvanta:track:1", .uid = "q0"},
                .next_tracks = {{.uri = "orvanta:track:2", .uid = "q1", .provider = "context"}},
                .revision = 18446744073709551615ULL},
               R"({"currently_playing":{"uri":"orvanta:track:1","uid":"q0","name":"","artist":"","provider":""},)"
               R"("next_tracks":[{"uri":"orvanta:track:2","uid":"q1","name":"","artist":"","provider":"context"}],)"
               R"("revision":18446744073709551615})", "next_tracks revision");
  check_record(queue_remove_response_codec, {.remaining = 11}, R"({"remaining":11})", "remaining");
}

}  // namespace
}  // namespace orvanta::messages
