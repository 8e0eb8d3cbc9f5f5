// Playlists: read, create, update, add and remove items. Every change of
// the items gives a new snapshot id.
#include "sim/handlers.hpp"

#include <algorithm>
#include <filesystem>
#include <set>

#include "sim/catalogue.hpp"

namespace orvanta::sim {

namespace {

std::string snapshot_id(const Playlist& playlist) {
  return "snap-" + playlist.uri.substr(playlist.uri.rfind(':') + 1) + "-" + std::to_string(playlist.revision);
}

Failure no_such_playlist(std::string_view uri) { return bad_request("No playlist " + std::string(uri)); }

bool may_edit(const SimState& state, const Playlist& playlist) {
  return playlist.owner == state.account.user.username || playlist.collaborative;
}

Failure not_yours(const Playlist& playlist) {
  return fail(link::DesktopApiError::unauthorized_request,
              "Playlist '" + playlist.name + "' belongs to " + playlist.owner + " and can't be changed");
}

std::optional<Failure> check_cover(const std::optional<std::string>& path) {
  if (path && !std::filesystem::exists(*path)) return bad_request("Cover image not found: " + *path);
  return std::nullopt;
}

m::PlaylistTrack playlist_entry(const SimState& state, const std::string& uri, std::int32_t position) {
  m::PlaylistTrack entry;
  entry.uri = uri;
  entry.position = position;
  if (const auto* track = find_uri(state.tracks, uri)) {
    entry.type = "track";
    entry.name = track->name;
    entry.artists = artist_names(state, track->artist_uris);
    entry.album = name_of(state, track->album_uri);
    entry.duration_ms = track->duration_ms;
  } else if (const auto* episode = find_uri(state.episodes, uri)) {
    entry.type = "episode";
    entry.name = episode->name;
    entry.description = episode->description;
    entry.duration_ms = episode->duration_ms;
    if (const auto* show = find_uri(state.shows, episode->show_uri)) {
      entry.show_name = show->name;
      entry.show_uri = show->uri;
    }
  } else {
    entry.type = uri_type(uri);
    entry.name = uri;
  }
  return entry;
}

}  // namespace

Answer<m::PlaylistGetResponse> handle(m::PlaylistGet, const m::PlaylistGetRequest& request, Context& context) {
  const SimState& state = context.state;
  const Playlist* p = find_uri(state.playlists, request.uri);
  if (p == nullptr) return no_such_playlist(request.uri);
  m::PlaylistGetResponse r{.uri = p->uri, .name = p->name, .description = p->description, .owner = p->owner,
                           .is_owned = p->owner == state.account.user.username, .collaborative = p->collaborative,
                           .is_public = p->is_public, .track_count = static_cast<std::int32_t>(p->items.size()),
                           .snapshot_id = snapshot_id(*p), .tracks = {}};
  if (!request.include_tracks) return r;
  const std::int32_t offset = std::max(request.offset.value_or(0), 0);
  const std::int32_t limit = request.limit.value_or(r.track_count);
  for (std::int32_t i = offset; i < r.track_count && i - offset < limit; ++i) {
    r.tracks.push_back(playlist_entry(state, p->items[static_cast<std::size_t>(i)], i));
  }
  return r;
}

Answer<m::PlaylistCreateResponse> handle(m::PlaylistCreate, const m::PlaylistCreateRequest& request,
                                         Context& context) {
  SimState& state = context.state;
  if (request.name.empty()) return bad_request("A playlist needs a name");
  if (auto failure = check_cover(request.cover_image_path)) return *failure;
  Playlist playlist{.uri = context.new_id("orvanta:playlist:sim"), .name = request.name,
                    .description = request.description.value_or(""), .owner = state.account.user.username,
                    .collaborative = false, .is_public = request.is_public, .revision = 1,
                    .cover_image_path = request.cover_image_path, .items = {}};
  state.sidebar.push_back(playlist.uri);
  state.playlists.push_back(playlist);
  return m::PlaylistCreateResponse{.uri = playlist.uri, .name = playlist.name};
}

Answer<m::PlaylistUpdateResponse> handle(m::PlaylistUpdate, const m::PlaylistUpdateRequest& request,
                                         Context& context) {
  SimState& state = context.state;
  Playlist* p = find_uri(state.playlists, request.playlist_uri);
  if (p == nullptr) return no_such_playlist(request.playlist_uri);
  if (p->owner != state.account.user.username) return not_yours(*p);
  if (request.name && request.name->empty()) return bad_request("A playlist's name can't be empty");
  if (auto failure = check_cover(request.cover_image_path)) return *failure;
  if (request.name) p->name = *request.name;
  if (request.description) p->description = *request.description;
  if (request.cover_image_path) p->cover_image_path = request.cover_image_path;
  if (request.is_public) p->is_public = *request.is_public;
  return m::PlaylistUpdateResponse{.uri = p->uri, .name = p->name};
}

Answer<m::PlaylistAddTracksResponse> handle(m::PlaylistAddTracks, const m::PlaylistAddTracksRequest& request,
                                            Context& context) {
  SimState& state = context.state;
  Playlist* p = find_uri(state.playlists, request.playlist_uri);
  if (p == nullptr) return no_such_playlist(request.playlist_uri);
  if (!may_edit(state, *p)) return not_yours(*p);
  if (request.track_uris.empty()) return bad_request("Give at least one track to add");
  for (const std::string& uri : request.track_uris) {
    if (!is_playable_item(state, uri)) return bad_request("Not a track or an episode: " + uri);
  }
  const auto size = static_cast<std::int32_t>(p->items.size());
  const std::int32_t position = request.position.value_or(size);
  if (position < 0 || position > size) {
    return bad_request("Position " + std::to_string(position) + " is outside the playlist, which has " +
                       std::to_string(size) + " item(s)");
  }
  p->items.insert(p->items.begin() + position, request.track_uris.begin(), request.track_uris.end());
  ++p->revision;
  return m::PlaylistAddTracksResponse{.snapshot_id = snapshot_id(*p),
                                      .added = static_cast<std::int32_t>(request.track_uris.size())};
}

Answer<m::PlaylistRemoveTracksResponse> handle(m::PlaylistRemoveTracks,
                                               const m::PlaylistRemoveTracksRequest& request, Context& context) {
  SimState& state = context.state;
  Playlist* p = find_uri(state.playlists, request.playlist_uri);
  if (p == nullptr) return no_such_playlist(request.playlist_uri);
  if (!may_edit(state, *p)) return not_yours(*p);
  if (request.positions.empty()) return bad_request("Give at least one position to remove");
  const std::set<std::int32_t> positions(request.positions.begin(), request.positions.end());
  for (std::int32_t position : positions) {
    if (position < 0 || position >= static_cast<std::int32_t>(p->items.size())) {
      return bad_request("Position " + std::to_string(position) + " is outside the playlist, which has " +
                         std::to_string(p->items.size()) + " item(s)");
    }
  }
  for (auto it = positions.rbegin(); it != positions.rend(); ++it) p->items.erase(p->items.begin() + *it);
  ++p->revision;
  return m::PlaylistRemoveTracksResponse{.snapshot_id = snapshot_id(*p),
                                         .removed = static_cast<std::int32_t>(positions.size())};
}

}  // namespace orvanta::sim
