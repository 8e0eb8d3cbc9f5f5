// Records of the playback queue methods `queue_*`. `queue_add` and
// `queue_move` return EmptyResponse; `queue_list` takes EmptyRequest.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "json/json.hpp"

namespace orvanta::messages {

struct QueueItem {
  std::string uri{};
  std::string uid{};
  std::string name{};
  std::string artist{};
  std::string provider{};
  bool operator==(const QueueItem&) const = default;
};

// `currently_playing` is absent when nothing plays. `revision` is unsigned
// 64-bit: the peer's counter may use the whole range.
struct QueueListResponse {
  std::optional<QueueItem> currently_playing{};
  std::vector<QueueItem> next_tracks{};
  std::uint64_t revision = 0;
  bool operator==(const QueueListResponse&) const = default;
};

struct QueueAddRequest {
  std::string uri{};
  bool operator==(const QueueAddRequest&) const = default;
};

struct QueueRemoveRequest {
  std::int32_t position = 0;
  bool operator==(const QueueRemoveRequest&) const = default;
};

struct QueueRemoveResponse {
  std::int32_t remaining = 0;
  bool operator==(const QueueRemoveResponse&) const = default;
};

struct QueueMoveRequest {
  std::int32_t from_position = 0;
  std::int32_t to_position = 0;
  bool operator==(const QueueMoveRequest&) const = default;
};

json::ObjectCodec<QueueItem> queue_item_codec();
json::ObjectCodec<QueueListResponse> queue_list_response_codec();
json::ObjectCodec<QueueAddRequest> queue_add_request_codec();
json::ObjectCodec<QueueRemoveRequest> queue_remove_request_codec();
json::ObjectCodec<QueueRemoveResponse> queue_remove_response_codec();
json::ObjectCodec<QueueMoveRequest> queue_move_request_codec();

}  // namespace orvanta::messages
