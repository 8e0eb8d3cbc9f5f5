// Records of the playlist methods `playlist_*`.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "json/json.hpp"

namespace orvanta::messages {

// `include_tracks` is always sent, false for a listing without tracks.
struct PlaylistGetRequest {
  std::string uri{};
  bool include_tracks = false;
  std::optional<std::int32_t> limit{};
  std::optional<std::int32_t> offset{};
  bool operator==(const PlaylistGetRequest&) const = default;
};

// A track or an episode of a playlist. `duration_ms` is unsigned: a
// negative length is refused on decoding.
struct PlaylistTrack {
  std::string type{};
  std::string uri{};
  std::string name{};
  std::vector<std::string> artists{};
  std::optional<std::string> album{};
  std::optional<std::string> show_name{};
  std::optional<std::string> show_uri{};
  std::optional<std::string> description{};
  std::optional<std::uint32_t> duration_ms{};
  std::int32_t position = 0;
  bool operator==(const PlaylistTrack&) const = default;
};

struct PlaylistGetResponse {
  std::string uri{};
  std::string name{};
  std::string description{};
  std::string owner{};
  bool is_owned = false;
  bool collaborative = false;
  bool is_public = false;
  std::int32_t track_count = 0;
  std::string snapshot_id{};
  std::vector<PlaylistTrack> tracks{};
  bool operator==(const PlaylistGetResponse&) const = default;
};

struct PlaylistCreateRequest {
  std::string name{};
  std::optional<std::string> description{};
  std::optional<std::string> cover_image_path{};
  bool is_public = false;
  bool operator==(const PlaylistCreateRequest&) const = default;
};

struct PlaylistCreateResponse {
  std::string uri{};
  std::string name{};
  bool operator==(const PlaylistCreateResponse&) const = default;
};

// Only what is to change is sent; unlike creation, `is_public` may be left out.
struct PlaylistUpdateRequest {
  std::string playlist_uri{};
  std::optional<std::string> name{};
  std::optional<std::string> description{};
  std::optional<std::string> cover_image_path{};
  std::optional<bool> is_public{};
  bool operator==(const PlaylistUpdateRequest&) const = default;
};

struct PlaylistUpdateResponse {
  std::string uri{};
  std::string name{};
  bool operator==(const PlaylistUpdateResponse&) const = default;
};

struct PlaylistAddTracksRequest {
  std::string playlist_uri{};
  std::vector<std::string> track_uris{};
  std::optional<std::int32_t> position{};
  bool operator==(const PlaylistAddTracksRequest&) const = default;
};

struct PlaylistAddTracksResponse {
  std::string snapshot_id{};
  std::int32_t added = 0;
  bool operator==(const PlaylistAddTracksResponse&) const = default;
};

struct PlaylistRemoveTracksRequest {
  std::string playlist_uri{};
  std::vector<std::int32_t> positions{};
  bool operator==(const PlaylistRemoveTracksRequest&) const = default;
};

struct PlaylistRemoveTracksResponse {
  std::string snapshot_id{};
  std::int32_t removed = 0;
  bool operator==(const PlaylistRemoveTracksResponse&) const = default;
};

json::ObjectCodec<PlaylistGetRequest> playlist_get_request_codec();
json::ObjectCodec<PlaylistTrack> playlist_track_codec();
json::ObjectCodec<PlaylistGetResponse> playlist_get_response_codec();
json::ObjectCodec<PlaylistCreateRequest> playlist_create_request_codec();
json::ObjectCodec<PlaylistCreateResponse> playlist_create_response_codec();
json::ObjectCodec<PlaylistUpdateRequest> playlist_update_request_codec();
json::ObjectCodec<PlaylistUpdateResponse> playlist_update_response_codec();
json::ObjectCodec<PlaylistAddTracksRequest> playlist_add_tracks_request_codec();
json::ObjectCodec<PlaylistAddTracksResponse> playlist_add_tracks_response_codec();
json::ObjectCodec<PlaylistRemoveTracksRequest> playlist_remove_tracks_request_codec();
json::ObjectCodec<PlaylistRemoveTracksResponse> playlist_remove_tracks_response_codec();

}  // namespace orvanta::messages
