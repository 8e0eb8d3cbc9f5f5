#include "messages/playback.hpp"

namespace orvanta::messages {

using json::presence::defaulted;
using json::presence::optional;
using json::presence::required;

json::ObjectCodec<PlaybackPlayRequest> playback_play_request_codec() {
  using R = PlaybackPlayRequest;
  json::ObjectCodec<R> codec;
  codec.add_field("context",              required,  &R::context);
  codec.add_field("referrer",             defaulted, &R::referrer);
  codec.add_field("attribution",          optional,  &R::attribution);
  codec.add_field("agentic_product_type", optional,  &R::agentic_product_type);
  return codec;
}

json::ObjectCodec<PlaybackNextRequest> playback_next_request_codec() {
  using R = PlaybackNextRequest;
  json::ObjectCodec<R> codec;
  codec.add_field("context_track", optional, &R::context_track);
  return codec;
}

json::ObjectCodec<PlaybackPreviousRequest> playback_previous_request_codec() {
  using R = PlaybackPreviousRequest;
  json::ObjectCodec<R> codec;
  codec.add_field("context_track", optional, &R::context_track);
  return codec;
}

json::ObjectCodec<PlaybackSeekRequest> playback_seek_request_codec() {
  using R = PlaybackSeekRequest;
  json::ObjectCodec<R> codec;
  codec.add_field("position_ms", required,  &R::position_ms);
  codec.add_field("is_relative", defaulted, &R::is_relative);
  return codec;
}

json::ObjectCodec<PlaybackShuffleRequest> playback_shuffle_request_codec() {
  using R = PlaybackShuffleRequest;
  json::ObjectCodec<R> codec;
  codec.add_field("shuffle", required, &R::shuffle);
  return codec;
}

json::ObjectCodec<PlaybackRepeatRequest> playback_repeat_request_codec() {
  using R = PlaybackRepeatRequest;
  json::ObjectCodec<R> codec;
  codec.add_field("repeat", required, &R::repeat);
  return codec;
}

json::ObjectCodec<PlaybackSpeedRequest> playback_speed_request_codec() {
  using R = PlaybackSpeedRequest;
  json::ObjectCodec<R> codec;
  codec.add_field("playback_speed", required, &R::playback_speed);
  return codec;
}

json::ObjectCodec<PlaybackVolumeRequest> playback_volume_request_codec() {
  using R = PlaybackVolumeRequest;
  json::ObjectCodec<R> codec;
  codec.add_field("volume_percentage", required, &R::volume_percentage);
  return codec;
}

json::ObjectCodec<NowPlayingItem> now_playing_item_codec() {
  using R = NowPlayingItem;
  json::ObjectCodec<R> codec;
  codec.add_field("description",         required, &R::description);
  codec.add_field("uri",                 required, &R::uri);
  codec.add_field("context_description", optional, &R::context_description);
  codec.add_field("is_playing",          required, &R::is_playing);
  return codec;
}

json::ObjectCodec<NowPlayingResponse> now_playing_response_codec() {
  using R = NowPlayingResponse;
  json::ObjectCodec<R> codec;
  codec.add_field("currently_playing", optional, &R::currently_playing, now_playing_item_codec());
  return codec;
}

}  // namespace orvanta::messages
