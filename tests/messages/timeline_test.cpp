// Chapters, links and the timeline requests are pinned byte for byte by the
// pod command tests (tests/commands); here the image and entity kinds, which
// those never show.
#include "messages/timeline.hpp"

#include <gtest/gtest.h>

#include "record_check.hpp"

namespace orvanta::messages {
namespace {

using test::check_record;

TEST(TimelineRecords, WireForms) {
  // Four int32 members: each value must land under its own key.
  check_record(timeline_image_codec,
               {.companion_uri = "orvanta:companion:i1", .start_time_ms = 1500, .duration_ms = 3000,
                .url = "https://img/i1.png", .title = "Cover", .width = 640, .height = 480},
               R"({"companion_uri":"orvanta:companion:i1","start_time_ms":1500,"duration_ms":3000,)"
               R"("url":"https://img/i1.png","title":"Cover","width":640,"height":480})", "companion_uri duration_ms");
  check_record(timeline_orvanta_entity_codec,
               {.companion_uri = "orvanta:companion:o1", .start_time_ms = 7000, .duration_ms = 1000,
                .uri = "orvanta:track:t1"},
               R"({"companion_uri":"orvanta:companion:o1","start_time_ms":7000,"duration_ms":1000,)"
               R"("uri":"orvanta:track:t1"})", "uri");
  // Nothing checks that an item names exactly one kind: all four pass
  // through as they came.
  test::check_wire_case({"TimelineItem", test::runner(timeline_item_codec),
                         R"({"chapter":{"chapter_uri":"c","title":"t","start_time_ms":0,"description":""},)"
                         R"("image":{"companion_uri":"i","start_time_ms":1,"duration_ms":2},)"
                         R"("link":{"companion_uri":"l","start_time_ms":3,"duration_ms":4,"url":"u"},)"
                         R"("orvanta_entity":{"companion_uri":"o","start_time_ms":5,"uri":"x"}})"});
}

}  // namespace
}  // namespace orvanta::messages
