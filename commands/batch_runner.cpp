#include "commands/batch_runner.hpp"

#include <array>
#include <cstdint>
#include <cstdio>
#include <exception>
#include <optional>
#include <string>
#include <utility>

#include "commands/batch_manifest.hpp"
#include "commands/library_rules.hpp"
#include "messages/folder.hpp"
#include "messages/library.hpp"
#include "messages/playlist.hpp"

namespace orvanta::commands {
namespace {

// What one op that ran came to: its payload, or the words of its failure.
struct Outcome {
  bool ok = false;
  std::string error;
  BatchOpPayload result;
};

Outcome failure(std::string error) { return Outcome{false, std::move(error), {}}; }
Outcome success(BatchOpPayload result) { return Outcome{true, {}, std::move(result)}; }

template <class T>
Outcome failure(const link::Result<T>& result) {
  return failure(result.error().message());
}

// ---- Library ----

Outcome library_add(const BatchOp& op, Context& context) {
  link::Result<messages::LibraryAddResponse> added = context.run_and_wait(context.api().library_add(op.uris));
  if (!added) return failure(added);
  BatchOpPayload result;
  result.count = added->count;
  if (!added->failed.empty()) result.failed = added->failed;
  return success(std::move(result));
}

Outcome library_remove(const BatchOp& op, Context& context) {
  link::Result<messages::LibraryRemoveResponse> removed =
      context.run_and_wait(context.api().library_remove(op.uris));
  if (!removed) return failure(removed);
  BatchOpPayload result;
  result.count = removed->count;
  if (!removed->failed.empty()) result.failed = removed->failed;
  return success(std::move(result));
}

Outcome library_contains(const BatchOp& op, Context& context) {
  link::Result<messages::LibraryContainsResponse> found =
      context.run_and_wait(context.api().library_contains(op.uris));
  if (!found) return failure(found);
  BatchOpPayload result;
  result.contains = found->contains;
  return success(std::move(result));
}

// ---- Playlists ----

// The cover image's absolute path into `path`, or the not-found failure.
std::optional<Outcome> take_cover_image(const std::string& image_file, std::optional<std::string>& path) {
  const CoverImage image = find_cover_image(image_file);
  if (!image.exists) return failure("cover image file not found: " + image.path);
  path = image.path;
  return std::nullopt;
}

Outcome playlist_create(const BatchOp& op, Context& context) {
  messages::PlaylistCreateRequest request;
  request.name = *op.name;
  request.is_public = op.is_public.value_or(false);
  request.description = op.description;
  if (op.image_file) {
    if (std::optional<Outcome> missing = take_cover_image(*op.image_file, request.cover_image_path)) {
      return std::move(*missing);
    }
  }
  link::Result<messages::PlaylistCreateResponse> created =
      context.run_and_wait(context.api().playlist_create(std::move(request)));
  if (!created) return failure(created);
  BatchOpPayload result;
  result.uri = created->uri;
  result.name = created->name;
  return success(std::move(result));
}

// Sends only what the op names: without `public` the visibility stays.
Outcome playlist_update(const BatchOp& op, Context& context) {
  messages::PlaylistUpdateRequest request;
  request.playlist_uri = *op.playlist_uri;
  request.name = op.name;
  request.description = op.description;
  request.is_public = op.is_public;
  if (op.image_file) {
    if (std::optional<Outcome> missing = take_cover_image(*op.image_file, request.cover_image_path)) {
      return std::move(*missing);
    }
  }
  link::Result<messages::PlaylistUpdateResponse> updated =
      context.run_and_wait(context.api().playlist_update(std::move(request)));
  if (!updated) return failure(updated);
  BatchOpPayload result;
  result.uri = updated->uri;
  result.name = updated->name;
  return success(std::move(result));
}

Outcome playlist_add(const BatchOp& op, Context& context) {
  messages::PlaylistAddTracksRequest request;
  request.playlist_uri = *op.playlist_uri;
  request.track_uris = op.track_uris;
  request.position = op.position;
  link::Result<messages::PlaylistAddTracksResponse> added =
      context.run_and_wait(context.api().playlist_add_tracks(std::move(request)));
  if (!added) return failure(added);
  BatchOpPayload result;
  result.added = added->added;
  if (!added->snapshot_id.empty()) result.snapshot_id = added->snapshot_id;
  return success(std::move(result));
}

Outcome playlist_remove(const BatchOp& op, Context& context) {
  messages::PlaylistRemoveTracksRequest request;
  request.playlist_uri = *op.playlist_uri;
  request.positions = op.positions;
  link::Result<messages::PlaylistRemoveTracksResponse> removed =
      context.run_and_wait(context.api().playlist_remove_tracks(std::move(request)));
  if (!removed) return failure(removed);
  BatchOpPayload result;
  result.removed = removed->removed;
  if (!removed->snapshot_id.empty()) result.snapshot_id = removed->snapshot_id;
  return success(std::move(result));
}

// ---- Folders ----

Outcome folder_create(const BatchOp& op, Context& context) {
  messages::FolderCreateRequest request;
  request.name = *op.name;
  request.parent_folder_uri = op.parent_folder_uri;
  link::Result<messages::FolderCreateResponse> created =
      context.run_and_wait(context.api().folder_create(std::move(request)));
  if (!created) return failure(created);
  BatchOpPayload result;
  result.uri = created->uri;
  result.name = created->name;
  return success(std::move(result));
}

Outcome folder_rename(const BatchOp& op, Context& context) {
  messages::FolderRenameRequest request;
  request.folder_uri = *op.folder_uri;
  request.name = *op.name;
  link::Result<messages::FolderRenameResponse> renamed =
      context.run_and_wait(context.api().folder_rename(std::move(request)));
  if (!renamed) return failure(renamed);
  BatchOpPayload result;
  result.uri = renamed->uri;
  result.name = renamed->name;
  return success(std::move(result));
}

Outcome folder_move(const BatchOp& op, Context& context) {
  const std::string destination = op.destination_folder_uri.value_or(std::string(root_folder));
  const FolderMove move = move_to_folder(op.uris, destination, context);
  switch (move.stage) {
    case FolderMove::Stage::listing_failed:
      return failure("folder_move failed while validating destination folder: " + move.error);
    case FolderMove::Stage::destination_missing:
      return failure("folder_move destination folder not found in current library hierarchy: " + destination);
    case FolderMove::Stage::move_failed:
      return failure("folder_move failed after moving " + std::to_string(move.moved) + "/" +
                     std::to_string(op.uris.size()) + " item(s): " + move.error);
    case FolderMove::Stage::done:
      break;
  }
  BatchOpPayload result;
  result.moved = move.moved;
  return success(std::move(result));
}

Outcome folder_remove(const BatchOp& op, Context& context) {
  messages::FolderRemoveRequest request;
  request.folder_uri = *op.folder_uri;
  request.keep_contents = op.keep_contents.value_or(false);
  link::Result<messages::FolderRemoveResponse> removed =
      context.run_and_wait(context.api().folder_remove(std::move(request)));
  if (!removed) return failure(removed);
  BatchOpPayload result;
  result.removed = removed->removed;
  return success(std::move(result));
}

// ---- The op table ----

// Only absence is tested: a present but empty text passes. `uris` of
// folder_move is the exception, an empty list fails.
bool always(const BatchOp&) { return true; }
bool has_name(const BatchOp& op) { return op.name.has_value(); }
bool has_playlist_uri(const BatchOp& op) { return op.playlist_uri.has_value(); }
bool has_folder_uri(const BatchOp& op) { return op.folder_uri.has_value(); }
bool has_folder_uri_and_name(const BatchOp& op) { return op.folder_uri && op.name; }
bool has_uris(const BatchOp& op) { return !op.uris.empty(); }

struct OpRow {
  std::string_view name;
  bool (*precondition)(const BatchOp&);
  std::string_view precondition_error;
  Outcome (*run)(const BatchOp&, Context&);
};

constexpr std::array<OpRow, 11> kOps{{
    {"library_add", always, "", library_add},
    {"library_remove", always, "", library_remove},
    {"library_contains", always, "", library_contains},
    {"playlist_create", has_name, "playlist_create requires 'name'", playlist_create},
    {"playlist_update", has_playlist_uri, "playlist_update requires 'playlist_uri'", playlist_update},
    {"playlist_add", has_playlist_uri, "playlist_add requires 'playlist_uri'", playlist_add},
    {"playlist_remove", has_playlist_uri, "playlist_remove requires 'playlist_uri'", playlist_remove},
    {"folder_create", has_name, "folder_create requires 'name'", folder_create},
    {"folder_rename", has_folder_uri_and_name, "folder_rename requires 'folder_uri' and 'name'", folder_rename},
    {"folder_move", has_uris, "folder_move requires 'uris'", folder_move},
    {"folder_remove", has_folder_uri, "folder_remove requires 'folder_uri'", folder_remove},
}};

Outcome run_op(const BatchOp& op, Context& context) {
  for (const OpRow& row : kOps) {
    if (row.name != op.op) continue;
    if (!row.precondition(op)) return failure(std::string(row.precondition_error));
    return row.run(op, context);
  }
  return failure("unknown op '" + op.op + "'");
}

// An exception of the standard kind ends only its own op.
Outcome run_guarded(const BatchOp& op, Context& context) {
  try {
    return run_op(op, context);
  } catch (const std::exception& e) {
    return failure(std::string("exception: ") + e.what());
  }
}

void print_line(const BatchOpResult& line, Context& context) {
  context.print_json(batch_op_result_codec(), line);
  std::fflush(context.out);
}

}  // namespace

int run_batch(std::string_view manifest_text, bool stop_on_error, bool json_output, Context& context) {
  BatchManifest manifest;
  try {
    manifest = json::decode(batch_manifest_codec(), manifest_text);
  } catch (const json::decode_exception& e) {
    std::fprintf(context.err, "library batch: invalid manifest JSON: %s\n", e.what());
    return 1;
  }
  const bool stop_mode = stop_on_error || manifest.stop_on_error;

  BatchSummary summary;
  summary.total = static_cast<std::int32_t>(manifest.ops.size());
  bool any_failed = false;
  for (std::size_t i = 0; i < manifest.ops.size(); ++i) {
    const BatchOp& op = manifest.ops[i];
    BatchOpResult line;
    line.index = static_cast<std::uint32_t>(i);
    line.op = op.op;
    if (stop_mode && any_failed) {
      line.skipped = true;
      line.error = "skipped after earlier failure";
      ++summary.skipped;
    } else {
      Outcome outcome = run_guarded(op, context);
      line.ok = outcome.ok;
      if (outcome.ok) {
        line.result = std::move(outcome.result);
        ++summary.ok;
      } else {
        line.error = std::move(outcome.error);
        ++summary.failed;
        any_failed = true;
      }
    }
    print_line(line, context);
  }

  if (json_output) {
    context.print_json(batch_summary_codec(), summary);
  } else {
    std::fprintf(context.out, "Batch complete: %d ok, %d failed, %d skipped (%d total)\n", summary.ok,
                 summary.failed, summary.skipped, summary.total);
  }
  return summary.failed != 0 ? 1 : 0;
}

}  // namespace orvanta::commands
