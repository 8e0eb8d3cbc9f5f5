#include "messages/playlist.hpp"

namespace orvanta::messages {

using json::presence::optional;
using json::presence::required;

json::ObjectCodec<PlaylistGetRequest> playlist_get_request_codec() {
  using R = PlaylistGetRequest;
  json::ObjectCodec<R> codec;
  codec.add_field("uri",            required, &R::uri);
  codec.add_field("include_tracks", required, &R::include_tracks);
  codec.add_field("limit",          optional, &R::limit);
  codec.add_field("offset",         optional, &R::offset);
  return codec;
}

json::ObjectCodec<PlaylistTrack> playlist_track_codec() {
  using R = PlaylistTrack;
  json::ObjectCodec<R> codec;
  codec.add_field("type",        required, &R::type);
  codec.add_field("uri",         required, &R::uri);
  codec.add_field("name",        required, &R::name);
  codec.add_field("artists",     required, &R::artists);
  codec.add_field("album",       optional, &R::album);
  codec.add_field("show_name",   optional, &R::show_name);
  codec.add_field("show_uri",    optional, &R::show_uri);
  codec.add_field("description", optional, &R::description);
  codec.add_field("duration_ms", optional, &R::duration_ms);
  codec.add_field("position",    required, &R::position);
  return codec;
}

json::ObjectCodec<PlaylistGetResponse> playlist_get_response_codec() {
  using R = PlaylistGetResponse;
  json::ObjectCodec<R> codec;
  codec.add_field("uri",           required, &R::uri);
  codec.add_field("name",          required, &R::name);
  codec.add_field("description",   required, &R::description);
  codec.add_field("owner",         required, &R::owner);
  codec.add_field("is_owned",      required, &R::is_owned);
  codec.add_field("collaborative", required, &R::collaborative);
  codec.add_field("is_public",     required, &R::is_public);
  codec.add_field("track_count",   required, &R::track_count);
  codec.add_field("snapshot_id",   required, &R::snapshot_id);
  codec.add_field("tracks",        required, &R::tracks, json::list_codec(playlist_track_codec()));
  return codec;
}

json::ObjectCodec<PlaylistCreateRequest> playlist_create_request_codec() {
  using R = PlaylistCreateRequest;
  json::ObjectCodec<R> codec;
  codec.add_field("name",             required, &R::name);
  codec.add_field("description",      optional, &R::description);
  codec.add_field("cover_image_path", optional, &R::cover_image_path);
  codec.add_field("is_public",        required, &R::is_public);
  return codec;
}

json::ObjectCodec<PlaylistCreateResponse> playlist_create_response_codec() {
  using R = PlaylistCreateResponse;
  json::ObjectCodec<R> codec;
  codec.add_field("uri",  required, &R::uri);
  codec.add_field("name", required, &R::name);
  return codec;
}

json::ObjectCodec<PlaylistUpdateRequest> playlist_update_request_codec() {
  using R = PlaylistUpdateRequest;
  json::ObjectCodec<R> codec;
  codec.add_field("playlist_uri",     required, &R::playlist_uri);
  codec.add_field("name",             optional, &R::name);
  codec.add_field("description",      optional, &R::description);
  codec.add_field("cover_image_path", optional, &R::cover_image_path);
  codec.add_field("is_public",        optional, &R::is_public);
  return codec;
}

json::ObjectCodec<PlaylistUpdateResponse> playlist_update_response_codec() {
  using R = PlaylistUpdateResponse;
  json::ObjectCodec<R> codec;
  codec.add_field("uri",  required, &R::uri);
  codec.add_field("name", required, &R::name);
  return codec;
}

json::ObjectCodec<PlaylistAddTracksRequest> playlist_add_tracks_request_codec() {
  using R = PlaylistAddTracksRequest;
  json::ObjectCodec<R> codec;
  codec.add_field("playlist_uri", required, &R::playlist_uri);
  codec.add_field("track_uris",   required, &R::track_uris);
  codec.add_field("position",     optional, &R::position);
  return codec;
}

json::ObjectCodec<PlaylistAddTracksResponse> playlist_add_tracks_response_codec() {
  using R = PlaylistAddTracksResponse;
  json::ObjectCodec<R> codec;
  codec.add_field("snapshot_id", required, &R::snapshot_id);
  codec.add_field("added",       required, &R::added);
  return codec;
}

json::ObjectCodec<PlaylistRemoveTracksRequest> playlist_remove_tracks_request_codec() {
  using R = PlaylistRemoveTracksRequest;
  json::ObjectCodec<R> codec;
  codec.add_field("playlist_uri", required, &R::playlist_uri);
  codec.add_field("positions",    required, &R::positions);
  return codec;
}

json::ObjectCodec<PlaylistRemoveTracksResponse> playlist_remove_tracks_response_codec() {
  using R = PlaylistRemoveTracksResponse;
  json::ObjectCodec<R> codec;
  codec.add_field("snapshot_id", required, &R::snapshot_id);
  codec.add_field("removed",     required, &R::removed);
  return codec;
}

}  // namespace orvanta::messages
