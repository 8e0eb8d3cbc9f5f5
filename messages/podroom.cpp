#include "messages/podroom.hpp"

namespace orvanta::messages {

namespace {
using json::presence::optional;
using json::presence::required;
}  // namespace

json::ObjectCodec<PodUploadRequest> pod_upload_request_codec() {
  using R = PodUploadRequest;
  json::ObjectCodec<R> codec;
  codec.add_field("file_path",   required, &R::file_path);
  codec.add_field("title",       required, &R::title);
  codec.add_field("description", optional, &R::description);
  codec.add_field("show_id",     optional, &R::show_id);
  codec.add_field("new_show",    optional, &R::new_show);
  codec.add_field("image",       optional, &R::image);
  codec.add_field("language",    optional, &R::language);
  return codec;
}

json::ObjectCodec<PodUploadResponse> pod_upload_response_codec() {
  using R = PodUploadResponse;
  json::ObjectCodec<R> codec;
  codec.add_field("episode_uri", required, &R::episode_uri);
  codec.add_field("title",       required, &R::title);
  codec.add_field("status",      required, &R::status);
  return codec;
}

json::ObjectCodec<PodShow> pod_show_codec() {
  using R = PodShow;
  json::ObjectCodec<R> codec;
  codec.add_field("show_uri",                 required, &R::show_uri);
  codec.add_field("title",                    required, &R::title);
  codec.add_field("language",                 required, &R::language);
  codec.add_field("created_at",               required, &R::created_at);
  codec.add_field("last_episode_uploaded_at", optional, &R::last_episode_uploaded_at);
  return codec;
}

json::ObjectCodec<PodShowsListResponse> pod_shows_list_response_codec() {
  using R = PodShowsListResponse;
  json::ObjectCodec<R> codec;
  codec.add_field("shows", required, &R::shows, json::list_codec(pod_show_codec()));
  return codec;
}

json::ObjectCodec<PodShowsCreateRequest> pod_shows_create_request_codec() {
  using R = PodShowsCreateRequest;
  json::ObjectCodec<R> codec;
  codec.add_field("title",       required, &R::title);
  codec.add_field("description", optional, &R::description);
  codec.add_field("image",       optional, &R::image);
  codec.add_field("language",    optional, &R::language);
  return codec;
}

json::ObjectCodec<PodShowsCreateResponse> pod_shows_create_response_codec() {
  using R = PodShowsCreateResponse;
  json::ObjectCodec<R> codec;
  codec.add_field("show_uri", required, &R::show_uri);
  return codec;
}

json::ObjectCodec<PodShowsDeleteRequest> pod_shows_delete_request_codec() {
  using R = PodShowsDeleteRequest;
  json::ObjectCodec<R> codec;
  codec.add_field("id", required, &R::id);
  return codec;
}

json::ObjectCodec<PodShowsDeleteResponse> pod_shows_delete_response_codec() {
  using R = PodShowsDeleteResponse;
  json::ObjectCodec<R> codec;
  codec.add_field("status",  required, &R::status);
  codec.add_field("show_id", required, &R::show_id);
  return codec;
}

json::ObjectCodec<PodEpisodesListRequest> pod_episodes_list_request_codec() {
  using R = PodEpisodesListRequest;
  json::ObjectCodec<R> codec;
  codec.add_field("show_id", optional, &R::show_id);
  return codec;
}

json::ObjectCodec<PodEpisode> pod_episode_codec() {
  using R = PodEpisode;
  json::ObjectCodec<R> codec;
  codec.add_field("episode_uri", required, &R::episode_uri);
  codec.add_field("title",       required, &R::title);
  codec.add_field("language",    required, &R::language);
  codec.add_field("media_type",  required, &R::media_type);
  codec.add_field("status",      required, &R::status);
  codec.add_field("created_at",  required, &R::created_at);
  return codec;
}

json::ObjectCodec<PodEpisodesListResponse> pod_episodes_list_response_codec() {
  using R = PodEpisodesListResponse;
  json::ObjectCodec<R> codec;
  codec.add_field("episodes", required, &R::episodes, json::list_codec(pod_episode_codec()));
  return codec;
}

json::ObjectCodec<PodEpisodesCreateRequest> pod_episodes_create_request_codec() {
  using R = PodEpisodesCreateRequest;
  json::ObjectCodec<R> codec;
  codec.add_field("title",       required, &R::title);
  codec.add_field("file",        required, &R::file);
  codec.add_field("description", required, &R::description);
  codec.add_field("show_id",     optional, &R::show_id);
  codec.add_field("image",       optional, &R::image);
  codec.add_field("language",    optional, &R::language);
  return codec;
}

json::ObjectCodec<PodEpisodesCreateResponse> pod_episodes_create_response_codec() {
  using R = PodEpisodesCreateResponse;
  json::ObjectCodec<R> codec;
  codec.add_field("episode_uri", required, &R::episode_uri);
  codec.add_field("status",      required, &R::status);
  return codec;
}

json::ObjectCodec<PodEpisodesStatusRequest> pod_episodes_status_request_codec() {
  using R = PodEpisodesStatusRequest;
  json::ObjectCodec<R> codec;
  codec.add_field("id", required, &R::id);
  return codec;
}

json::ObjectCodec<PodEpisodesStatusResponse> pod_episodes_status_response_codec() {
  using R = PodEpisodesStatusResponse;
  json::ObjectCodec<R> codec;
  codec.add_field("episode_uri", required, &R::episode_uri);
  codec.add_field("readiness",   required, &R::readiness);
  return codec;
}

json::ObjectCodec<PodEpisodesDeleteRequest> pod_episodes_delete_request_codec() {
  using R = PodEpisodesDeleteRequest;
  json::ObjectCodec<R> codec;
  codec.add_field("id", required, &R::id);
  return codec;
}

json::ObjectCodec<PodEpisodesDeleteResponse> pod_episodes_delete_response_codec() {
  using R = PodEpisodesDeleteResponse;
  json::ObjectCodec<R> codec;
  codec.add_field("status",     required, &R::status);
  codec.add_field("episode_id", required, &R::episode_id);
  return codec;
}

}  // namespace orvanta::messages
