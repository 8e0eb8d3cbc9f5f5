#include "messages/toast_logs.hpp"

namespace orvanta::messages {

namespace {
using json::presence::optional;
using json::presence::required;
}  // namespace

json::ObjectCodec<ShowToastRequest> show_toast_request_codec() {
  using R = ShowToastRequest;
  json::ObjectCodec<R> codec;
  codec.add_field("title",      required, &R::title);
  codec.add_field("body",       required, &R::body);
  codec.add_field("subtitle",   optional, &R::subtitle);
  codec.add_field("image_url",  optional, &R::image_url);
  codec.add_field("launch_uri", optional, &R::launch_uri);
  return codec;
}

json::ObjectCodec<CollectLogsNotification> collect_logs_notification_codec() {
  using R = CollectLogsNotification;
  json::ObjectCodec<R> codec;
  codec.add_field("logs_directory", required, &R::logs_directory);
  return codec;
}

}  // namespace orvanta::messages
