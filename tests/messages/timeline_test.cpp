#include "messages/timeline.hpp"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "record_check.hpp"

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
      {"TimelineImage", runner(timeline_image_codec), kImage, "companion_uri duration_ms"},
      {"TimelineLink", runner(timeline_link_codec), kLink, "url"},
      {"TimelineOrvantaEntity", runner(timeline_orvanta_entity_codec), kEntity, "uri"},
      {"TimelineItem", runner(timeline_item_codec), every_kind},
      {"PodTimelineGetRequest", runner(pod_timeline_get_request_codec), R"({"id":"e1","show_id":"s1"})", "id"},
      {"PodTimelineGetResponse", runner(pod_timeline_get_response_codec), items, "items"},
      {"PodTimelineSetRequest", runner(pod_timeline_set_request_codec),
       R"({"episode_id":"e1","from_file":"/tmp/timeline.json","show_id":"s1"})", "from_file"},
      {"PodTimelineSetResponse", runner(pod_timeline_set_response_codec), items, "items"},
      {"PodTimelineDeleteRequest", runner(pod_timeline_delete_request_codec), R"({"id":"e1","show_id":"s1"})", "id"},
      {"PodTimelineDeleteResponse", runner(pod_timeline_delete_response_codec), R"({"ok":true,"episode_id":"e1"})",
       "ok"},
  };
  test::check_wire_table(cases);
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

}  // namespace
}  // namespace orvanta::messages
