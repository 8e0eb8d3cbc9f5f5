// Records of the podcast publishing methods: upload, shows and episodes.
// The state words in `status` and `readiness` are free strings of the peer.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "json/json.hpp"

namespace orvanta::messages {

struct PodUploadRequest {
  std::string file_path;
  std::string title;
  std::optional<std::string> description;
  std::optional<std::string> show_id;
  std::optional<std::string> new_show;
  std::optional<std::string> image;
  std::optional<std::string> language;
  bool operator==(const PodUploadRequest&) const = default;
};

struct PodUploadResponse {
  std::string episode_uri;
  std::string title;
  std::string status;
  bool operator==(const PodUploadResponse&) const = default;
};

struct PodShow {
  std::string show_uri;
  std::string title;
  std::string language;
  std::string created_at;
  std::optional<std::string> last_episode_uploaded_at;
  bool operator==(const PodShow&) const = default;
};

struct PodShowsListResponse {
  std::vector<PodShow> shows;
  bool operator==(const PodShowsListResponse&) const = default;
};

struct PodShowsCreateRequest {
  std::string title;
  std::optional<std::string> description;
  std::optional<std::string> image;
  std::optional<std::string> language;
  bool operator==(const PodShowsCreateRequest&) const = default;
};

struct PodShowsCreateResponse {
  std::string show_uri;
  bool operator==(const PodShowsCreateResponse&) const = default;
};

struct PodShowsDeleteRequest {
  std::string id;
  bool operator==(const PodShowsDeleteRequest&) const = default;
};

struct PodShowsDeleteResponse {
  std::string status;
  std::string show_id;
  bool operator==(const PodShowsDeleteResponse&) const = default;
};

struct PodEpisodesListRequest {
  std::optional<std::string> show_id;
  bool operator==(const PodEpisodesListRequest&) const = default;
};

struct PodEpisode {
  std::string episode_uri;
  std::string title;
  std::string language;
  std::string media_type;
  std::string status;
  std::string created_at;
  bool operator==(const PodEpisode&) const = default;
};

struct PodEpisodesListResponse {
  std::vector<PodEpisode> episodes;
  bool operator==(const PodEpisodesListResponse&) const = default;
};

// Unlike PodUploadRequest, `description` is required here.
struct PodEpisodesCreateRequest {
  std::string title;
  std::string file;
  std::string description;
  std::optional<std::string> show_id;
  std::optional<std::string> image;
  std::optional<std::string> language;
  bool operator==(const PodEpisodesCreateRequest&) const = default;
};

struct PodEpisodesCreateResponse {
  std::string episode_uri;
  std::string status;
  bool operator==(const PodEpisodesCreateResponse&) const = default;
};

struct PodEpisodesStatusRequest {
  std::string id;
  bool operator==(const PodEpisodesStatusRequest&) const = default;
};

struct PodEpisodesStatusResponse {
  std::string episode_uri;
  std::string readiness;
  bool operator==(const PodEpisodesStatusResponse&) const = default;
};

struct PodEpisodesDeleteRequest {
  std::string id;
  bool operator==(const PodEpisodesDeleteRequest&) const = default;
};

struct PodEpisodesDeleteResponse {
  std::string status;
  std::string episode_id;
  bool operator==(const PodEpisodesDeleteResponse&) const = default;
};

json::ObjectCodec<PodUploadRequest> pod_upload_request_codec();
json::ObjectCodec<PodUploadResponse> pod_upload_response_codec();
json::ObjectCodec<PodShow> pod_show_codec();
json::ObjectCodec<PodShowsListResponse> pod_shows_list_response_codec();
json::ObjectCodec<PodShowsCreateRequest> pod_shows_create_request_codec();
json::ObjectCodec<PodShowsCreateResponse> pod_shows_create_response_codec();
json::ObjectCodec<PodShowsDeleteRequest> pod_shows_delete_request_codec();
json::ObjectCodec<PodShowsDeleteResponse> pod_shows_delete_response_codec();
json::ObjectCodec<PodEpisodesListRequest> pod_episodes_list_request_codec();
json::ObjectCodec<PodEpisode> pod_episode_codec();
json::ObjectCodec<PodEpisodesListResponse> pod_episodes_list_response_codec();
json::ObjectCodec<PodEpisodesCreateRequest> pod_episodes_create_request_codec();
json::ObjectCodec<PodEpisodesCreateResponse> pod_episodes_create_response_codec();
json::ObjectCodec<PodEpisodesStatusRequest> pod_episodes_status_request_codec();
json::ObjectCodec<PodEpisodesStatusResponse> pod_episodes_status_response_codec();
json::ObjectCodec<PodEpisodesDeleteRequest> pod_episodes_delete_request_codec();
json::ObjectCodec<PodEpisodesDeleteResponse> pod_episodes_delete_response_codec();

}  // namespace orvanta::messages
