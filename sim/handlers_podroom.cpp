// Podroom: uploads, shows and episodes. The media file is looked at as the
// service would: it must exist, hold something and be audio or video.
#include "sim/handlers.hpp"

#include <algorithm>
#include <array>
#include <cctype>
#include <filesystem>
#include <system_error>
#include <variant>

#include "sim/podroom_lookup.hpp"

namespace orvanta::sim {

namespace {

namespace fs = std::filesystem;

constexpr std::array<std::string_view, 5> audio_extensions{".mp3", ".m4a", ".wav", ".ogg", ".flac"};
constexpr std::array<std::string_view, 3> video_extensions{".mp4", ".mov", ".webm"};
constexpr std::uintmax_t max_image_bytes = 1024 * 1024;

bool listed(const auto& words, const std::string& word) {
  return std::find(words.begin(), words.end(), word) != words.end();
}

std::string lower_extension(const std::string& path) {
  std::string ext = fs::path(path).extension().string();
  std::transform(ext.begin(), ext.end(), ext.begin(), [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return ext;
}

// "audio" or "video" for a usable media file, else the reason it isn't.
std::variant<std::string, Failure> media_type_of(const std::string& path) {
  std::error_code ec;
  if (!fs::is_regular_file(path, ec)) return bad_request("Media file not found: " + path);
  if (fs::file_size(path, ec) == 0) return bad_request("Media file is empty: " + path);
  const std::string ext = lower_extension(path);
  if (listed(audio_extensions, ext)) return std::string("audio");
  if (listed(video_extensions, ext)) return std::string("video");
  return bad_request("Podroom takes audio or video files, not '" + ext + "' (" + path + ")");
}

std::optional<Failure> check_image(const std::optional<std::string>& path) {
  if (!path) return std::nullopt;
  std::error_code ec;
  if (!fs::is_regular_file(*path, ec)) return bad_request("Cover image not found: " + *path);
  const std::string ext = lower_extension(*path);
  if (ext != ".jpg" && ext != ".jpeg" && ext != ".png") return bad_request("Cover images must be .jpg or .png");
  if (fs::file_size(*path, ec) > max_image_bytes) return bad_request("Cover images must be at most 1 MB: " + *path);
  return std::nullopt;
}

PodroomShow& add_show(Context& context, std::string title, std::optional<std::string> description,
                      std::optional<std::string> language, std::optional<std::string> image) {
  PodroomShow show{.show_uri = context.new_id("orvanta:show:podroom"), .title = std::move(title),
                   .description = description.value_or(""), .language = language.value_or("en"),
                   .created_at = context.now, .last_episode_uploaded_at = std::nullopt, .image = std::move(image)};
  context.state.podroom.shows.push_back(std::move(show));
  return context.state.podroom.shows.back();
}

struct NewEpisode {
  std::string title;
  std::string file;
  std::string description;
  std::optional<std::string> show_id;
  std::optional<std::string> new_show;
  std::optional<std::string> image;
  std::optional<std::string> language;
};

// Checks and files a new episode; the show is the named one, a new one, or
// the one used last.
Answer<PodroomEpisode> add_episode(Context& context, const NewEpisode& n) {
  Podroom& podroom = context.state.podroom;
  if (n.title.empty()) return bad_request("An episode needs a title");
  auto media = media_type_of(n.file);
  if (auto* failure = std::get_if<Failure>(&media)) return *failure;
  if (auto failure = check_image(n.image)) return *failure;
  PodroomShow* show = nullptr;
  if (n.show_id) {
    show = find_podroom_show(podroom, *n.show_id);
    if (show == nullptr) return bad_request("No Podroom show " + *n.show_id);
  } else if (n.new_show) {
    show = &add_show(context, *n.new_show, std::nullopt, n.language, std::nullopt);
  } else if (podroom.last_show_uri) {
    show = find_podroom_show(podroom, *podroom.last_show_uri);
  }
  if (show == nullptr) return bad_request("No show to publish into: give show_id or new_show");
  show->last_episode_uploaded_at = context.now;
  podroom.last_show_uri = show->show_uri;
  PodroomEpisode episode{.episode_uri = context.new_id("orvanta:episode:podroom"), .show_uri = show->show_uri,
                         .title = n.title, .description = n.description,
                         .language = n.language.value_or(show->language), .media_type = std::get<std::string>(media),
                         .status = "processing", .readiness = "processing", .created_at = context.now,
                         .file = n.file, .timeline = {}};
  podroom.episodes.push_back(episode);
  return episode;
}

}  // namespace

Answer<m::PodUploadResponse> handle(m::PodUpload, const m::PodUploadRequest& r, Context& context) {
  auto episode = add_episode(context, NewEpisode{r.title, r.file_path, r.description.value_or(""), r.show_id,
                                                 r.new_show, r.image, r.language});
  if (!episode.ok()) return episode.failure();
  const PodroomEpisode& e = episode.value();
  return m::PodUploadResponse{.episode_uri = e.episode_uri, .title = e.title, .status = e.status};
}

Answer<m::PodShowsListResponse> handle(m::PodShowsList, const m::EmptyRequest&, Context& context) {
  m::PodShowsListResponse response;
  for (const PodroomShow& s : context.state.podroom.shows) {
    response.shows.push_back(m::PodShow{s.show_uri, s.title, s.language, s.created_at, s.last_episode_uploaded_at});
  }
  return response;
}

Answer<m::PodShowsCreateResponse> handle(m::PodShowsCreate, const m::PodShowsCreateRequest& r, Context& context) {
  if (r.title.empty()) return bad_request("A show needs a title");
  if (auto failure = check_image(r.image)) return *failure;
  PodroomShow& show = add_show(context, r.title, r.description, r.language, r.image);
  context.state.podroom.last_show_uri = show.show_uri;
  return m::PodShowsCreateResponse{.show_uri = show.show_uri};
}

Answer<m::PodShowsDeleteResponse> handle(m::PodShowsDelete, const m::PodShowsDeleteRequest& r, Context& context) {
  Podroom& podroom = context.state.podroom;
  PodroomShow* show = find_podroom_show(podroom, r.id);
  if (show == nullptr) return bad_request("No Podroom show " + r.id);
  const std::string uri = show->show_uri;
  std::erase_if(podroom.episodes, [&](const PodroomEpisode& e) { return e.show_uri == uri; });
  std::erase_if(podroom.shows, [&](const PodroomShow& s) { return s.show_uri == uri; });
  if (podroom.last_show_uri == uri) podroom.last_show_uri.reset();
  return m::PodShowsDeleteResponse{.status = "deleted", .show_id = uri};
}

Answer<m::PodEpisodesListResponse> handle(m::PodEpisodesList, const m::PodEpisodesListRequest& r, Context& context) {
  Podroom& podroom = context.state.podroom;
  const PodroomShow* show = nullptr;
  if (r.show_id) {
    show = find_podroom_show(podroom, *r.show_id);
    if (show == nullptr) return bad_request("No Podroom show " + *r.show_id);
  }
  m::PodEpisodesListResponse response;
  for (const PodroomEpisode& e : podroom.episodes) {
    if (show != nullptr && e.show_uri != show->show_uri) continue;
    response.episodes.push_back(m::PodEpisode{e.episode_uri, e.title, e.language, e.media_type, e.status, e.created_at});
  }
  return response;
}

Answer<m::PodEpisodesCreateResponse> handle(m::PodEpisodesCreate, const m::PodEpisodesCreateRequest& r,
                                            Context& context) {
  if (r.description.empty()) return bad_request("An episode needs a description");
  auto episode =
      add_episode(context, NewEpisode{r.title, r.file, r.description, r.show_id, std::nullopt, r.image, r.language});
  if (!episode.ok()) return episode.failure();
  return m::PodEpisodesCreateResponse{.episode_uri = episode.value().episode_uri, .status = episode.value().status};
}

Answer<m::PodEpisodesStatusResponse> handle(m::PodEpisodesStatus, const m::PodEpisodesStatusRequest& r,
                                            Context& context) {
  PodroomEpisode* episode = find_podroom_episode(context.state.podroom, r.id);
  if (episode == nullptr) return bad_request("No Podroom episode " + r.id);
  m::PodEpisodesStatusResponse response{.episode_uri = episode->episode_uri, .readiness = episode->readiness};
  // Processing finishes by the next time somebody asks.
  episode->readiness = "ready";
  episode->status = "published";
  return response;
}

Answer<m::PodEpisodesDeleteResponse> handle(m::PodEpisodesDelete, const m::PodEpisodesDeleteRequest& r,
                                            Context& context) {
  Podroom& podroom = context.state.podroom;
  PodroomEpisode* episode = find_podroom_episode(podroom, r.id);
  if (episode == nullptr) return bad_request("No Podroom episode " + r.id);
  const std::string uri = episode->episode_uri;
  std::erase_if(podroom.episodes, [&](const PodroomEpisode& e) { return e.episode_uri == uri; });
  return m::PodEpisodesDeleteResponse{.status = "deleted", .episode_id = uri};
}

}  // namespace orvanta::sim
