#include "commands/pod.hpp"

#include <algorithm>
#include <array>
#include <cctype>
#include <filesystem>
#include <string>
#include <string_view>

#include "messages/record_codecs.hpp"

namespace orvanta::commands {
namespace {

namespace fs = std::filesystem;
using namespace messages;

// The media Podroom takes, compared in lower case.
constexpr std::array<std::string_view, 8> kMediaExtensions{".mp3", ".m4a", ".wav", ".ogg",
                                                           ".flac", ".mp4", ".mov", ".webm"};

bool is_media_extension(std::string extension) {
  std::transform(extension.begin(), extension.end(), extension.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return std::find(kMediaExtensions.begin(), kMediaExtensions.end(), extension) != kMediaExtensions.end();
}

// The local look at the media file before anything is sent; the desktop
// client opens and reads it. The status and size calls throw on anything
// but a missing file (a directory, no permission), and that exception is
// the runner's to report.
bool media_file_is_usable(const std::string& path, Context& context) {
  const fs::file_type type = fs::status(path).type();
  if (type == fs::file_type::none || type == fs::file_type::not_found) {
    std::fprintf(context.err, "File not found: %s\n", path.c_str());
    return false;
  }
  if (fs::file_size(path) == 0) {
    std::fprintf(context.err, "File is empty: %s\n", path.c_str());
    return false;
  }
  const std::string extension = fs::path(path).extension().string();
  if (!is_media_extension(extension)) {
    std::fprintf(context.err, "Unsupported file type: %s\nSupported: .mp3, .m4a, .wav, .ogg, .flac, .mp4, .mov, .webm\n",
                 extension.c_str());
    return false;
  }
  return true;
}

}  // namespace

int pod_upload(const cli::CommandLine& line, Context& context) {
  // Unlike `pod episodes create`, a missing --description is simply left out.
  if (!line.name()) return context.fail("pod upload requires --name <title>\n");
  std::string path(line.argument());
  if (!media_file_is_usable(path, context)) return 1;
  // Also under --format json: stdout keeps only the response.
  std::fputs("Uploading...\n", context.err);

  PodUploadRequest request;
  request.file_path = std::move(path);
  request.title = *line.name();
  request.description = line.description();
  request.show_id = line.show_id();
  request.new_show = line.new_show();
  request.image = line.image_file();
  request.language = line.language();
  link::Result<PodUploadResponse> upload = context.run_and_wait(context.api().pod_upload(std::move(request)));
  if (!upload) return context.fail("Upload failed: %s\n", upload.error().message().c_str());
  if (line.json_output()) {
    context.print_json(record_codec<PodUploadResponse>(), *upload);
  } else {
    std::fprintf(context.out, "%s\n", upload->episode_uri.c_str());
  }
  return 0;
}

int pod_shows(const cli::CommandLine& line, Context& context) {
  link::Result<PodShowsListResponse> list = context.run_and_wait(context.api().pod_shows_list());
  if (!list) return context.fail("pod shows failed: %s\n", list.error().message().c_str());
  if (line.json_output()) {
    context.print_json(record_codec<PodShowsListResponse>(), *list);
    return 0;
  }
  for (const PodShow& show : list->shows) {
    std::fprintf(context.out, "%s\t%s\n", show.show_uri.c_str(), show.title.c_str());
  }
  return 0;
}

int pod_shows_create(const cli::CommandLine& line, Context& context) {
  if (!line.name()) return context.fail("pod shows create requires --name <title>\n");
  PodShowsCreateRequest request;
  request.title = *line.name();
  request.description = line.description();
  request.image = line.image_file();
  request.language = line.language();
  link::Result<PodShowsCreateResponse> created =
      context.run_and_wait(context.api().pod_shows_create(std::move(request)));
  if (!created) return context.fail("pod shows create failed: %s\n", created.error().message().c_str());
  if (line.json_output()) {
    context.print_json(record_codec<PodShowsCreateResponse>(), *created);
  } else {
    std::fprintf(context.out, "%s\n", created->show_uri.c_str());
  }
  return 0;
}

int pod_shows_delete(const cli::CommandLine& line, Context& context) {
  if (line.argument().empty()) return context.fail("pod shows delete requires <id>\n");
  link::Result<PodShowsDeleteResponse> deleted =
      context.run_and_wait(context.api().pod_shows_delete(std::string(line.argument())));
  if (!deleted) return context.fail("pod shows delete failed: %s\n", deleted.error().message().c_str());
  if (line.json_output()) {
    context.print_json(record_codec<PodShowsDeleteResponse>(), *deleted);
  } else {
    // The service's id for the show, which need not be the one typed.
    std::fprintf(context.out, "deleted %s\n", deleted->show_id.c_str());
  }
  return 0;
}

int pod_episodes(const cli::CommandLine& line, Context& context) {
  link::Result<PodEpisodesListResponse> list = context.run_and_wait(context.api().pod_episodes_list(line.show_id()));
  if (!list) return context.fail("pod episodes failed: %s\n", list.error().message().c_str());
  if (line.json_output()) {
    context.print_json(record_codec<PodEpisodesListResponse>(), *list);
    return 0;
  }
  for (const PodEpisode& episode : list->episodes) {
    std::fprintf(context.out, "%s\t%s\n", episode.episode_uri.c_str(), episode.title.c_str());
  }
  return 0;
}

int pod_episodes_create(const cli::CommandLine& line, Context& context) {
  if (!line.name()) return context.fail("pod episodes create requires --name <title>\n");
  if (!line.file()) return context.fail("pod episodes create requires --file <path>\n");
  if (!line.description()) return context.fail("pod episodes create requires --description <text>\n");
  if (!line.json_output()) std::fputs("Creating episode...\n", context.err);

  // The file goes out as typed and unchecked: the desktop client tells what
  // is wrong with it.
  PodEpisodesCreateRequest request;
  request.title = *line.name();
  request.file = *line.file();
  request.description = *line.description();
  request.show_id = line.show_id();
  request.image = line.image_file();
  request.language = line.language();
  link::Result<PodEpisodesCreateResponse> created =
      context.run_and_wait(context.api().pod_episodes_create(std::move(request)));
  if (!created) return context.fail("pod episodes create failed: %s\n", created.error().message().c_str());
  if (line.json_output()) {
    context.print_json(record_codec<PodEpisodesCreateResponse>(), *created);
  } else {
    std::fprintf(context.out, "%s\n", created->episode_uri.c_str());
  }
  return 0;
}

int pod_episodes_status(const cli::CommandLine& line, Context& context) {
  if (line.argument().empty()) return context.fail("pod episodes status requires <episode_id>\n");
  link::Result<PodEpisodesStatusResponse> status =
      context.run_and_wait(context.api().pod_episodes_status(std::string(line.argument())));
  if (!status) return context.fail("pod episodes status failed: %s\n", status.error().message().c_str());
  if (line.json_output()) {
    context.print_json(record_codec<PodEpisodesStatusResponse>(), *status);
  } else {
    std::fprintf(context.out, "%s\t%s\n", status->episode_uri.c_str(), status->readiness.c_str());
  }
  return 0;
}

int pod_episodes_delete(const cli::CommandLine& line, Context& context) {
  if (line.argument().empty()) return context.fail("pod episodes delete requires <id>\n");
  link::Result<PodEpisodesDeleteResponse> deleted =
      context.run_and_wait(context.api().pod_episodes_delete(std::string(line.argument())));
  if (!deleted) return context.fail("pod episodes delete failed: %s\n", deleted.error().message().c_str());
  if (line.json_output()) {
    context.print_json(record_codec<PodEpisodesDeleteResponse>(), *deleted);
  } else {
    std::fprintf(context.out, "deleted %s\n", deleted->episode_id.c_str());
  }
  return 0;
}

}  // namespace orvanta::commands
