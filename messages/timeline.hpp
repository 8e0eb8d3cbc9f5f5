// Records of the episode timeline methods `pod_timeline_*` and the four
// kinds of timeline item.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "json/json.hpp"

namespace orvanta::messages {

struct TimelineChapter {
  std::string chapter_uri;
  std::string title;
  std::int32_t start_time_ms = 0;
  std::string description;
  bool operator==(const TimelineChapter&) const = default;
};

struct TimelineImage {
  std::string companion_uri;
  std::int32_t start_time_ms = 0;
  std::int32_t duration_ms = 0;
  std::optional<std::string> url;
  std::optional<std::string> title;
  std::optional<std::int32_t> width;
  std::optional<std::int32_t> height;
  bool operator==(const TimelineImage&) const = default;
};

struct TimelineLink {
  std::string companion_uri;
  std::int32_t start_time_ms = 0;
  std::int32_t duration_ms = 0;
  std::string url;
  bool operator==(const TimelineLink&) const = default;
};

// The only item kind whose `duration_ms` may be missing.
struct TimelineOrvantaEntity {
  std::string companion_uri;
  std::int32_t start_time_ms = 0;
  std::optional<std::int32_t> duration_ms;
  std::string uri;
  bool operator==(const TimelineOrvantaEntity&) const = default;
};

// A well-formed item carries exactly one of the four kinds, but nothing here
// enforces that: the peer's items pass through as they come.
struct TimelineItem {
  std::optional<TimelineChapter> chapter;
  std::optional<TimelineImage> image;
  std::optional<TimelineLink> link;
  std::optional<TimelineOrvantaEntity> orvanta_entity;
  bool operator==(const TimelineItem&) const = default;
};

struct PodTimelineGetRequest {
  std::string id;
  std::optional<std::string> show_id;
  bool operator==(const PodTimelineGetRequest&) const = default;
};

struct PodTimelineGetResponse {
  std::vector<TimelineItem> items;
  bool operator==(const PodTimelineGetResponse&) const = default;
};

struct PodTimelineSetRequest {
  std::string episode_id;
  std::string from_file;
  std::optional<std::string> show_id;
  bool operator==(const PodTimelineSetRequest&) const = default;
};

// Same wire form as PodTimelineGetResponse.
struct PodTimelineSetResponse {
  std::vector<TimelineItem> items;
  bool operator==(const PodTimelineSetResponse&) const = default;
};

struct PodTimelineDeleteRequest {
  std::string id;
  std::optional<std::string> show_id;
  bool operator==(const PodTimelineDeleteRequest&) const = default;
};

struct PodTimelineDeleteResponse {
  bool ok = false;
  std::string episode_id;
  bool operator==(const PodTimelineDeleteResponse&) const = default;
};

json::ObjectCodec<TimelineChapter> timeline_chapter_codec();
json::ObjectCodec<TimelineImage> timeline_image_codec();
json::ObjectCodec<TimelineLink> timeline_link_codec();
json::ObjectCodec<TimelineOrvantaEntity> timeline_orvanta_entity_codec();
json::ObjectCodec<TimelineItem> timeline_item_codec();
json::ObjectCodec<PodTimelineGetRequest> pod_timeline_get_request_codec();
json::ObjectCodec<PodTimelineGetResponse> pod_timeline_get_response_codec();
json::ObjectCodec<PodTimelineSetRequest> pod_timeline_set_request_codec();
json::ObjectCodec<PodTimelineSetResponse> pod_timeline_set_response_codec();
json::ObjectCodec<PodTimelineDeleteRequest> pod_timeline_delete_request_codec();
json::ObjectCodec<PodTimelineDeleteResponse> pod_timeline_delete_response_codec();

}  // namespace orvanta::messages
