// Records of `show_toast` and of the `collect_logs_subscription`
// notification.
#pragma once

#include <optional>
#include <string>

#include "json/json.hpp"

namespace orvanta::messages {

struct ShowToastRequest {
  std::string title;
  std::string body;
  std::optional<std::string> subtitle;
  std::optional<std::string> image_url;
  std::optional<std::string> launch_uri;
  bool operator==(const ShowToastRequest&) const = default;
};

// Parameters of the `collect_logs_subscription` notification.
struct CollectLogsNotification {
  std::string logs_directory;  // folder that holds the collected logs
  bool operator==(const CollectLogsNotification&) const = default;
};

json::ObjectCodec<ShowToastRequest> show_toast_request_codec();
json::ObjectCodec<CollectLogsNotification> collect_logs_notification_codec();

}  // namespace orvanta::messages
