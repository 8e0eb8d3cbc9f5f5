#include "messages/timeline.hpp"

namespace orvanta::messages {

namespace {
using json::presence::defaulted;
using json::presence::optional;
using json::presence::required;
}  // namespace

json::ObjectCodec<TimelineChapter> timeline_chapter_codec() {
  using R = TimelineChapter;
  json::ObjectCodec<R> codec;
  codec.add_field("chapter_uri",   required,  &R::chapter_uri);
  codec.add_field("title",         required,  &R::title);
  codec.add_field("start_time_ms", required,  &R::start_time_ms);
  codec.add_field("description",   defaulted, &R::description);
  return codec;
}

json::ObjectCodec<TimelineImage> timeline_image_codec() {
  using R = TimelineImage;
  json::ObjectCodec<R> codec;
  codec.add_field("companion_uri", required, &R::companion_uri);
  codec.add_field("start_time_ms", required, &R::start_time_ms);
  codec.add_field("duration_ms",   required, &R::duration_ms);
  codec.add_field("url",           optional, &R::url);
  codec.add_field("title",         optional, &R::title);
  codec.add_field("width",         optional, &R::width);
  codec.add_field("height",        optional, &R::height);
  return codec;
}

json::ObjectCodec<TimelineLink> timeline_link_codec() {
  using R = TimelineLink;
  json::ObjectCodec<R> codec;
  codec.add_field("companion_uri", required, &R::companion_uri);
  codec.add_field("start_time_ms", required, &R::start_time_ms);
  codec.add_field("duration_ms",   required, &R::duration_ms);
  codec.add_field("url",           required, &R::url);
  return codec;
}

json::ObjectCodec<TimelineOrvantaEntity> timeline_orvanta_entity_codec() {
  using R = TimelineOrvantaEntity;
  json::ObjectCodec<R> codec;
  codec.add_field("companion_uri", required, &R::companion_uri);
  codec.add_field("start_time_ms", required, &R::start_time_ms);
  codec.add_field("duration_ms",   optional, &R::duration_ms);
  codec.add_field("uri",           required, &R::uri);
  return codec;
}

json::ObjectCodec<TimelineItem> timeline_item_codec() {
  using R = TimelineItem;
  json::ObjectCodec<R> codec;
  codec.add_field("chapter",        optional, &R::chapter,        timeline_chapter_codec());
  codec.add_field("image",          optional, &R::image,          timeline_image_codec());
  codec.add_field("link",           optional, &R::link,           timeline_link_codec());
  codec.add_field("orvanta_entity", optional, &R::orvanta_entity, timeline_orvanta_entity_codec());
  return codec;
}

json::ObjectCodec<PodTimelineGetRequest> pod_timeline_get_request_codec() {
  using R = PodTimelineGetRequest;
  json::ObjectCodec<R> codec;
  codec.add_field("id",      required, &R::id);
  codec.add_field("show_id", optional, &R::show_id);
  return codec;
}

json::ObjectCodec<PodTimelineGetResponse> pod_timeline_get_response_codec() {
  using R = PodTimelineGetResponse;
  json::ObjectCodec<R> codec;
  codec.add_field("items", required, &R::items, json::list_codec(timeline_item_codec()));
  return codec;
}

json::ObjectCodec<PodTimelineSetRequest> pod_timeline_set_request_codec() {
  using R = PodTimelineSetRequest;
  json::ObjectCodec<R> codec;
  codec.add_field("episode_id", required, &R::episode_id);
  codec.add_field("from_file",  required, &R::from_file);
  codec.add_field("show_id",    optional, &R::show_id);
  return codec;
}

json::ObjectCodec<PodTimelineSetResponse> pod_timeline_set_response_codec() {
  using R = PodTimelineSetResponse;
  json::ObjectCodec<R> codec;
  codec.add_field("items", required, &R::items, json::list_codec(timeline_item_codec()));
  return codec;
}

json::ObjectCodec<PodTimelineDeleteRequest> pod_timeline_delete_request_codec() {
  using R = PodTimelineDeleteRequest;
  json::ObjectCodec<R> codec;
  codec.add_field("id",      required, &R::id);
  codec.add_field("show_id", optional, &R::show_id);
  return codec;
}

json::ObjectCodec<PodTimelineDeleteResponse> pod_timeline_delete_response_codec() {
  using R = PodTimelineDeleteResponse;
  json::ObjectCodec<R> codec;
  codec.add_field("ok",         required, &R::ok);
  codec.add_field("episode_id", required, &R::episode_id);
  return codec;
}

}  // namespace orvanta::messages
