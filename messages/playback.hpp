// Records of the playback methods and of `now_playing`.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "json/json.hpp"

namespace orvanta::messages {

struct PlaybackPlayRequest {
  std::string context{};
  std::string referrer{};
  std::optional<std::string> attribution{};
  std::optional<std::string> agentic_product_type{};
  bool operator==(const PlaybackPlayRequest&) const = default;
};

struct PlaybackNextRequest {
  std::optional<std::string> context_track{};
  bool operator==(const PlaybackNextRequest&) const = default;
};

struct PlaybackPreviousRequest {
  std::optional<std::string> context_track{};
  bool operator==(const PlaybackPreviousRequest&) const = default;
};

// `position_ms` is a target, or a step when `is_relative` is set.
struct PlaybackSeekRequest {
  std::int32_t position_ms = 0;
  bool is_relative = false;
  bool operator==(const PlaybackSeekRequest&) const = default;
};

struct PlaybackShuffleRequest {
  bool shuffle = false;
  bool operator==(const PlaybackShuffleRequest&) const = default;
};

// "off", "context" or "track"; the command checks the word, the codec does not.
struct PlaybackRepeatRequest {
  std::string repeat{};
  bool operator==(const PlaybackRepeatRequest&) const = default;
};

struct PlaybackSpeedRequest {
  std::int32_t playback_speed = 0;
  bool operator==(const PlaybackSpeedRequest&) const = default;
};

// Encoding throws json::encode_exception if the volume is not finite.
struct PlaybackVolumeRequest {
  double volume_percentage = 0;
  bool operator==(const PlaybackVolumeRequest&) const = default;
};

struct NowPlayingItem {
  std::string description{};
  std::string uri{};
  std::optional<std::string> context_description{};
  bool is_playing = false;
  bool operator==(const NowPlayingItem&) const = default;
};

// `currently_playing` is absent when nothing plays.
struct NowPlayingResponse {
  std::optional<NowPlayingItem> currently_playing{};
  bool operator==(const NowPlayingResponse&) const = default;
};

json::ObjectCodec<PlaybackPlayRequest> playback_play_request_codec();
json::ObjectCodec<PlaybackNextRequest> playback_next_request_codec();
json::ObjectCodec<PlaybackPreviousRequest> playback_previous_request_codec();
json::ObjectCodec<PlaybackSeekRequest> playback_seek_request_codec();
json::ObjectCodec<PlaybackShuffleRequest> playback_shuffle_request_codec();
json::ObjectCodec<PlaybackRepeatRequest> playback_repeat_request_codec();
json::ObjectCodec<PlaybackSpeedRequest> playback_speed_request_codec();
json::ObjectCodec<PlaybackVolumeRequest> playback_volume_request_codec();
json::ObjectCodec<NowPlayingItem> now_playing_item_codec();
json::ObjectCodec<NowPlayingResponse> now_playing_response_codec();

}  // namespace orvanta::messages
