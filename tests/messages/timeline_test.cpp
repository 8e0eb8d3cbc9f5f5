#include "messages/timeline.hpp"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "tests/messages/wire_table.hpp"

namespace orvanta::messages {
namespace {

using test::runner;
using test::WireCase;

constexpr std::string_view kChapter =
    R"({"chapter_uri":"orvanta:chapter:c1","title":"Intro","start_time_ms":0,"description":""})";
constexpr std::string_view kImage =
    R"({"companion_uri":"orvanta:companion:i1","start_time_ms":1500,"duration_ms":3000,)"
    R"("url":"https://img/i1.png","title":"Cover","width":640,"height":480})";
constexpr std::string_view kLink =
    R"({"companion_uri":"orvanta:companion:l1","start_time_ms":5000,"duration_ms":2000,"url":"https://example.org"})";
constexpr std::string_view kEntity =
    R"({"companion_uri":"orvanta:companion:o1","start_time_ms":7000,"duration_ms":1000,"uri":"orvanta:track:t1"})";

TEST(TimelineRecords, WireTable) {
  const std::string s_chapter(kChapter), s_image(kImage), s_link(kLink), s_entity(kEntity);
  // Well-formed items carry one kind; the codec takes all four at once.
  const std::string every_kind = R"({"chapter":)" + s_chapter + R"(,"image":)" + s_image + R"(,"link":)" + s_link +
                                 R"(,"orvanta_entity":)" + s_entity + "}";
  const std::string items =
      R"({"items":[{"chapter":)" + s_chapter + R"(},{"orvanta_entity":)" + s_entity + R"(},{"link":)" + s_link + "}]}";
  const WireCase cases[] = {
      {"TimelineChapter", runner(timeline_chapter_codec), kChapter, "chapter_uri start_time_ms", "description"},
      {"TimelineImage", runner(timeline_image_codec), kImage, "companion_uri duration_ms", "", "url width"},
      {"TimelineLink", runner(timeline_link_codec), kLink, "url"},
      {"TimelineOrvantaEntity", runner(timeline_orvanta_entity_codec), kEntity, "uri", "", "duration_ms"},
      {"TimelineItem", runner(timeline_item_codec), every_kind, "", "", "chapter orvanta_entity"},
      {"PodTimelineGetRequest", runner(pod_timeline_get_request_codec), R"({"id":"e1","show_id":"s1"})", "id", "",
       "show_id"},
      {"PodTimelineGetResponse", runner(pod_timeline_get_response_codec), items, "items"},
      {"PodTimelineSetRequest", runner(pod_timeline_set_request_codec),
       R"({"episode_id":"e1","from_file":"/tmp/timeline.json","show_id":"s1"})", "from_file", "", "show_id"},
      {"PodTimelineSetResponse", runner(pod_timeline_set_response_codec), items, "items"},
      {"PodTimelineDeleteRequest", runner(pod_timeline_delete_request_codec), R"({"id":"e1","show_id":"s1"})", "id",
       "", "show_id"},
      {"PodTimelineDeleteResponse", runner(pod_timeline_delete_response_codec), R"({"ok":true,"episode_id":"e1"})",
       "ok"},
  };
  test::check_wire_table(cases);
}

// Nothing checks that an item names exactly one kind: an empty item and an
// item with two kinds both pass through as they came.
TEST(TimelineRecords, ItemKindsAreNotExclusive) {
  const auto codec = timeline_item_codec();
  EXPECT_EQ(json::decode(codec, "{}"), TimelineItem{});
  EXPECT_EQ(json::encode(codec, TimelineItem{}), "{}");
  const std::string two = R"({"chapter":)" + std::string(kChapter) + R"(,"link":)" + std::string(kLink) + "}";
  const TimelineItem item = json::decode(codec, two);
  EXPECT_TRUE(item.chapter && item.link && !item.image && !item.orvanta_entity);
  EXPECT_EQ(json::encode(codec, item), two);
}

// Four int32 members in one record: each value must land under its own key.
TEST(TimelineRecords, FilledImageEncodesAsTheTable) {
  TimelineImage image;
  image.companion_uri = "orvanta:companion:i1";
  image.start_time_ms = 1500;
  image.duration_ms = 3000;
  image.url = "https://img/i1.png";
  image.title = "Cover";
  image.width = 640;
  image.height = 480;
  EXPECT_EQ(json::encode(timeline_image_codec(), image), kImage);
}

TEST(TimelineRecords, ChapterStartIsSigned32Bit) {
  const auto codec = timeline_chapter_codec();
  EXPECT_EQ(json::decode(codec, R"({"chapter_uri":"c","title":"t","start_time_ms":-5})").start_time_ms, -5);
  EXPECT_EQ(test::decode_outcome(codec, R"({"chapter_uri":"c","title":"t","start_time_ms":2147483648})"),
            "error: Integer overflow");
}

}  // namespace
}  // namespace orvanta::messages
