// The playback queue. Positions are 0-based over the upcoming tracks.
#include "sim/handlers.hpp"

#include "sim/catalogue.hpp"

namespace orvanta::sim {

namespace {

m::QueueItem queue_item(const SimState& state, const std::string& uri, std::string uid, std::string provider) {
  std::string artist;
  for (const std::string& maker : makers_of(state, uri)) artist += (artist.empty() ? "" : ", ") + maker;
  return m::QueueItem{.uri = uri, .uid = std::move(uid), .name = name_of(state, uri).value_or(uri),
                      .artist = std::move(artist), .provider = std::move(provider)};
}

Failure out_of_range(std::int32_t position, std::size_t size) {
  return bad_request("Position " + std::to_string(position) + " is outside the queue, which has " +
                     std::to_string(size) + " upcoming track(s)");
}

bool in_range(std::int32_t position, std::size_t size) {
  return position >= 0 && static_cast<std::size_t>(position) < size;
}

}  // namespace

Answer<m::QueueListResponse> handle(m::QueueList, const m::EmptyRequest&, Context& context) {
  const SimState& state = context.state;
  m::QueueListResponse response;
  if (state.player.track_uri) {
    response.currently_playing = queue_item(state, *state.player.track_uri, "current", "context");
  }
  for (const QueueEntry& entry : state.queue) {
    response.next_tracks.push_back(queue_item(state, entry.uri, entry.uid, "queue"));
  }
  response.revision = state.queue_revision;
  return response;
}

Answer<m::EmptyResponse> handle(m::QueueAdd, const m::QueueAddRequest& request, Context& context) {
  SimState& state = context.state;
  if (!is_playable_item(state, request.uri)) {
    return bad_request("Only tracks and episodes can be queued, and " + request.uri + " is neither");
  }
  state.queue.push_back(QueueEntry{.uri = request.uri, .uid = context.new_id("q")});
  ++state.queue_revision;
  return m::EmptyResponse{};
}

Answer<m::QueueRemoveResponse> handle(m::QueueRemove, const m::QueueRemoveRequest& request, Context& context) {
  SimState& state = context.state;
  if (!in_range(request.position, state.queue.size())) return out_of_range(request.position, state.queue.size());
  state.queue.erase(state.queue.begin() + request.position);
  ++state.queue_revision;
  return m::QueueRemoveResponse{.remaining = static_cast<std::int32_t>(state.queue.size())};
}

Answer<m::EmptyResponse> handle(m::QueueMove, const m::QueueMoveRequest& request, Context& context) {
  SimState& state = context.state;
  const std::size_t size = state.queue.size();
  if (!in_range(request.from_position, size)) return out_of_range(request.from_position, size);
  if (!in_range(request.to_position, size)) return out_of_range(request.to_position, size);
  QueueEntry moving = state.queue[static_cast<std::size_t>(request.from_position)];
  state.queue.erase(state.queue.begin() + request.from_position);
  state.queue.insert(state.queue.begin() + request.to_position, std::move(moving));
  ++state.queue_revision;
  return m::EmptyResponse{};
}

}  // namespace orvanta::sim
