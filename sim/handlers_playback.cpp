// Account, connection and playback handlers.
#include "sim/handlers.hpp"

#include <algorithm>
#include <cmath>

#include "sim/catalogue.hpp"

namespace orvanta::sim {

namespace {

using m::EmptyResponse;

std::uint32_t duration_of(const SimState& state, std::string_view uri) {
  if (const auto* t = find_uri(state.tracks, uri)) return t->duration_ms;
  if (const auto* e = find_uri(state.episodes, uri)) return e->duration_ms;
  return 0;
}

// Starts `track` from the beginning, keeping the context.
void start(Player& player, std::string track) {
  player.track_uri = std::move(track);
  player.position_ms = 0;
  player.is_playing = true;
}

// Plays the item `step` places away in the context, if there is one there.
bool step_in_context(SimState& state, int step) {
  Player& player = state.player;
  if (!player.track_uri || !player.context_uri) return false;
  const std::vector<std::string> items = playable_items(state, *player.context_uri);
  auto here = std::find(items.begin(), items.end(), *player.track_uri);
  if (here == items.end()) return false;
  const auto index = (here - items.begin()) + step;
  if (index < 0 || index >= static_cast<long>(items.size())) {
    if (player.repeat != "context" || items.empty()) return false;
    start(player, step > 0 ? items.front() : items.back());
    return true;
  }
  start(player, items[static_cast<std::size_t>(index)]);
  return true;
}

}  // namespace

Answer<EmptyResponse> handle(m::ConnectLogin, const m::ConnectLoginRequest&, Context& context) {
  context.state.account.logged_in = true;
  context.broadcast<m::notification::LoginStateSubscription>(m::LoginStateNotification{.logged_in = true});
  return EmptyResponse{};
}

Answer<m::GetUsernameHashResponse> handle(m::GetUsernameHash, const m::EmptyRequest&, Context& context) {
  return context.state.account.username_hash;
}

Answer<m::TkMessageAuthPolicyResponse> handle(m::TkMessageAuthPolicy, const m::EmptyRequest&, Context& context) {
  return m::TkMessageAuthPolicyResponse{.enabled = context.state.account.message_auth_policy};
}

Answer<EmptyResponse> handle(m::PlaybackPause, const m::EmptyRequest&, Context& context) {
  Player& player = context.state.player;
  if (!player.track_uri) return bad_request("Nothing is playing, so there is nothing to pause");
  player.is_playing = false;
  return EmptyResponse{};
}

Answer<EmptyResponse> handle(m::PlaybackResume, const m::EmptyRequest&, Context& context) {
  Player& player = context.state.player;
  if (!player.track_uri) return bad_request("Nothing to resume: play something first");
  player.is_playing = true;
  return EmptyResponse{};
}

Answer<EmptyResponse> handle(m::PlaybackPlay, const m::PlaybackPlayRequest& request, Context& context) {
  SimState& state = context.state;
  const std::vector<std::string> items = playable_items(state, request.context);
  if (items.empty()) {
    if (exists(state, request.context)) return bad_request("Nothing playable in " + request.context);
    return bad_request("Unknown URI: " + request.context);
  }
  const bool single = items.size() == 1 && items.front() == request.context;
  state.player.context_uri = single ? std::nullopt : std::optional<std::string>(request.context);
  start(state.player, items.front());
  return EmptyResponse{};
}

Answer<EmptyResponse> handle(m::PlaybackNext, const m::PlaybackNextRequest&, Context& context) {
  SimState& state = context.state;
  if (!state.queue.empty()) {
    start(state.player, state.queue.front().uri);
    state.queue.erase(state.queue.begin());
    ++state.queue_revision;
    return EmptyResponse{};
  }
  if (step_in_context(state, 1)) return EmptyResponse{};
  if (!state.player.track_uri) return bad_request("Nothing is playing, so there is nothing to skip");
  state.player.is_playing = false;
  state.player.position_ms = 0;
  return EmptyResponse{};
}

Answer<EmptyResponse> handle(m::PlaybackPrevious, const m::PlaybackPreviousRequest&, Context& context) {
  SimState& state = context.state;
  if (!state.player.track_uri) return bad_request("Nothing is playing, so there is no previous track");
  // Like a player's button: past the first seconds it restarts the track.
  if (state.player.position_ms > 3000 || !step_in_context(state, -1)) start(state.player, *state.player.track_uri);
  return EmptyResponse{};
}

Answer<EmptyResponse> handle(m::PlaybackSeek, const m::PlaybackSeekRequest& request, Context& context) {
  Player& player = context.state.player;
  if (!player.track_uri) return bad_request("Nothing is playing, so there is nothing to seek in");
  const std::int64_t target = request.is_relative ? std::int64_t{player.position_ms} + request.position_ms
                                                  : std::int64_t{request.position_ms};
  const std::int64_t length = duration_of(context.state, *player.track_uri);
  player.position_ms = static_cast<std::int32_t>(std::clamp<std::int64_t>(target, 0, length));
  return EmptyResponse{};
}

Answer<EmptyResponse> handle(m::PlaybackShuffle, const m::PlaybackShuffleRequest& request, Context& context) {
  context.state.player.shuffle = request.shuffle;
  return EmptyResponse{};
}

Answer<EmptyResponse> handle(m::PlaybackRepeat, const m::PlaybackRepeatRequest& request, Context& context) {
  if (request.repeat != "off" && request.repeat != "context" && request.repeat != "track") {
    return bad_request("Repeat mode must be off, context or track, not '" + request.repeat + "'");
  }
  context.state.player.repeat = request.repeat;
  return EmptyResponse{};
}

Answer<EmptyResponse> handle(m::PlaybackSpeed, const m::PlaybackSpeedRequest& request, Context& context) {
  if (request.playback_speed <= 0 || request.playback_speed > 200) {
    return bad_request("Playback speed must be above 0.00x and at most 2.00x");
  }
  context.state.player.speed = request.playback_speed;
  return EmptyResponse{};
}

Answer<EmptyResponse> handle(m::PlaybackVolume, const m::PlaybackVolumeRequest& request, Context& context) {
  if (!(request.volume_percentage >= 0.0 && request.volume_percentage <= 1.0)) {
    return bad_request("Volume must be between 0.0 and 1.0");
  }
  SimState& state = context.state;
  state.player.volume = request.volume_percentage;
  for (auto& device : state.devices) {
    if (device.device_id == state.active_device_id) {
      device.volume = static_cast<std::int32_t>(std::lround(request.volume_percentage * 100.0));
    }
  }
  return EmptyResponse{};
}

Answer<EmptyResponse> handle(m::BleStateSubscription, const m::EmptyRequest&, Context& context) {
  context.tell_caller<m::notification::BleStateSubscription>(
      m::BleStateNotification{.broadcasting = context.state.broadcasting});
  return EmptyResponse{};
}

Answer<EmptyResponse> handle(m::ConnectActiveDeviceSubscription, const m::EmptyRequest&, Context& context) {
  const SimState& state = context.state;
  bool is_local = false;
  for (const auto& device : state.devices) {
    if (device.device_id == state.active_device_id) is_local = device.is_local;
  }
  context.tell_caller<m::notification::ConnectActiveDeviceSubscription>(
      m::ActiveDeviceNotification{.active_device_id = state.active_device_id, .is_local = is_local});
  return EmptyResponse{};
}

Answer<EmptyResponse> handle(m::LoginStateSubscription, const m::EmptyRequest&, Context& context) {
  context.tell_caller<m::notification::LoginStateSubscription>(
      m::LoginStateNotification{.logged_in = context.state.account.logged_in});
  return EmptyResponse{};
}

Answer<m::HelloResponse> handle(m::AuthorizeConnection, const m::HelloRequest& request, Context& context) {
  if (request.client_id.empty()) {
    return fail(link::DesktopApiError::unauthorized_request, "An empty client_id is not accepted");
  }
  m::HelloResponse response;
  response.orvanta_app_version = context.state.app_version;
  if (context.complete_notification) {
    response.sends_complete_notification = true;
    // The completing notification carries an object of which the client
    // keeps nothing; it is not one of the catalogue's notifications.
    context.notices.push_back(Notice{"authorize_connection", "{}", false});
  }
  return response;
}

}  // namespace orvanta::sim
