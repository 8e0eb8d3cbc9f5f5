#include "commands/playlist.hpp"

#include <filesystem>
#include <optional>
#include <string>

#include "commands/credits.hpp"
#include "messages/record_codecs.hpp"

namespace orvanta::commands {
namespace {

using messages::PlaylistTrack;

// The desktop client reads the cover from a path of its own, so a relative
// `--image-file` is made absolute against our working directory. Only its
// existence is checked here, not its type or size. Fills `cover` and returns
// true, or returns false after the not-found line. Other failures of the
// file system throw.
bool take_cover_image(const cli::CommandLine& line, std::optional<std::string>& cover, Context& context) {
  if (!line.image_file()) return true;
  const std::filesystem::path path = std::filesystem::absolute(*line.image_file());
  const std::filesystem::file_type type = std::filesystem::status(path).type();
  if (type == std::filesystem::file_type::none || type == std::filesystem::file_type::not_found) {
    std::fprintf(context.err, "cover image file not found: %s\n", path.c_str());
    return false;
  }
  cover = path.string();
  return true;
}

// `position` is the playlist's own number for the entry, not a count of ours.
void print_track(std::FILE* out, const PlaylistTrack& track) {
  if (track.type == "episode") {
    std::fprintf(out, "  %2d. [episode] %s  %s\n", track.position, track.name.c_str(), track.uri.c_str());
    if (track.show_name) std::fprintf(out, "      Show: %s\n", track.show_name->c_str());
    return;
  }
  std::fprintf(out, "  %2d. %s", track.position, track.name.c_str());
  print_credits(out, track.artists);
  std::fprintf(out, "  %s\n", track.uri.c_str());
}

}  // namespace

int playlist_get(const cli::CommandLine& line, Context& context) {
  messages::PlaylistGetRequest request;
  request.uri = std::string(line.argument());
  request.include_tracks = !line.no_tracks();
  request.limit = line.limit();
  request.offset = line.offset();

  link::Result<messages::PlaylistGetResponse> playlist = context.run_and_wait(context.api().playlist_get(request));
  if (!playlist) {
    std::fprintf(context.err, "playlist get failed: %s\n", playlist.error().message().c_str());
    return 1;
  }
  if (line.json_output()) {
    context.print_json(messages::record_codec<messages::PlaylistGetResponse>(), *playlist);
    return 0;
  }
  std::FILE* out = context.out;
  std::fprintf(out, "%s  %s\n", playlist->name.c_str(), playlist->uri.c_str());
  std::fprintf(out, "  Owner: %s  Tracks: %d\n", playlist->owner.c_str(), playlist->track_count);
  if (!playlist->description.empty()) std::fprintf(out, "  Desc: %s\n", playlist->description.c_str());
  for (const PlaylistTrack& track : playlist->tracks) print_track(out, track);
  return 0;
}

int playlist_create(const cli::CommandLine& line, Context& context) {
  messages::PlaylistCreateRequest request;
  request.name = std::string(line.argument());
  request.is_public = line.is_public();
  request.description = line.description();
  if (!take_cover_image(line, request.cover_image_path, context)) return 1;

  link::Result<messages::PlaylistCreateResponse> created =
      context.run_and_wait(context.api().playlist_create(std::move(request)));
  if (!created) {
    std::fprintf(context.err, "playlist create failed: %s\n", created.error().message().c_str());
    return 1;
  }
  std::fprintf(context.out, "Created: %s  %s\n", created->name.c_str(), created->uri.c_str());
  return 0;
}

int playlist_update(const cli::CommandLine& line, Context& context) {
  // `is_public` stays out: `--public` and `--private` are accepted here and
  // change nothing. Only the batch operation changes visibility.
  messages::PlaylistUpdateRequest request;
  request.playlist_uri = std::string(line.argument());
  request.name = line.name();
  request.description = line.description();
  if (!take_cover_image(line, request.cover_image_path, context)) return 1;

  link::Result<messages::PlaylistUpdateResponse> updated =
      context.run_and_wait(context.api().playlist_update(std::move(request)));
  if (!updated) {
    std::fprintf(context.err, "playlist update failed: %s\n", updated.error().message().c_str());
    return 1;
  }
  std::fprintf(context.out, "Updated: %s  %s\n", updated->name.c_str(), updated->uri.c_str());
  return 0;
}

int playlist_add(const cli::CommandLine& line, Context& context) {
  // Without `--position` the desktop client chooses where the tracks go.
  messages::PlaylistAddTracksRequest request;
  request.playlist_uri = std::string(line.argument());
  request.track_uris = line.uris();
  request.position = line.position();

  link::Result<messages::PlaylistAddTracksResponse> added =
      context.run_and_wait(context.api().playlist_add_tracks(std::move(request)));
  if (!added) {
    std::fprintf(context.err, "playlist add failed: %s\n", added.error().message().c_str());
    return 1;
  }
  std::fprintf(context.out, "Added %d track(s)\n", added->added);
  return 0;
}

int playlist_remove(const cli::CommandLine& line, Context& context) {
  messages::PlaylistRemoveTracksRequest request;
  request.playlist_uri = std::string(line.argument());
  request.positions = line.positions();

  link::Result<messages::PlaylistRemoveTracksResponse> removed =
      context.run_and_wait(context.api().playlist_remove_tracks(std::move(request)));
  if (!removed) {
    std::fprintf(context.err, "playlist remove failed: %s\n", removed.error().message().c_str());
    return 1;
  }
  std::fprintf(context.out, "Removed %d track(s)\n", removed->removed);
  return 0;
}

}  // namespace orvanta::commands
