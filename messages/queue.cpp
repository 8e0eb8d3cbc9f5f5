#include "messages/queue.hpp"

namespace orvanta::messages {

using json::presence::optional;
using json::presence::required;

json::ObjectCodec<QueueItem> queue_item_codec() {
  using R = QueueItem;
  json::ObjectCodec<R> codec;
  codec.add_field("uri",      required, &R::uri);
  codec.add_field("uid",      required, &R::uid);
  codec.add_field("name",     required, &R::name);
  codec.add_field("artist",   required, &R::artist);
  codec.add_field("provider", required, &R::provider);
  return codec;
}

json::ObjectCodec<QueueListResponse> queue_list_response_codec() {
  using R = QueueListResponse;
  json::ObjectCodec<R> codec;
  codec.add_field("currently_playing", optional, &R::currently_playing, queue_item_codec());
  codec.add_field("next_tracks",       required, &R::next_tracks,       json::list_codec(queue_item_codec()));
  codec.add_field("revision",          required, &R::revision);
  return codec;
}

json::ObjectCodec<QueueAddRequest> queue_add_request_codec() {
  using R = QueueAddRequest;
  json::ObjectCodec<R> codec;
  codec.add_field("uri", required, &R::uri);
  return codec;
}

json::ObjectCodec<QueueRemoveRequest> queue_remove_request_codec() {
  using R = QueueRemoveRequest;
  json::ObjectCodec<R> codec;
  codec.add_field("position", required, &R::position);
  return codec;
}

json::ObjectCodec<QueueRemoveResponse> queue_remove_response_codec() {
  using R = QueueRemoveResponse;
  json::ObjectCodec<R> codec;
  codec.add_field("remaining", required, &R::remaining);
  return codec;
}

json::ObjectCodec<QueueMoveRequest> queue_move_request_codec() {
  using R = QueueMoveRequest;
  json::ObjectCodec<R> codec;
  codec.add_field("from_position", required, &R::from_position);
  codec.add_field("to_position",   required, &R::to_position);
  return codec;
}

}  // namespace orvanta::messages
