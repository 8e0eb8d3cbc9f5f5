#include "commands/folder.hpp"

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

#include "messages/record_codecs.hpp"

namespace orvanta::commands {
namespace {

using messages::FolderItem;
using messages::FolderListResponse;

constexpr auto folder_list_limit = std::chrono::seconds(8);
constexpr std::string_view root_destination = "root";

// Depth 0 and 1 both stand at two spaces; the response's order is the
// display order, nothing is re-nested here.
void print_item(std::FILE* out, const FolderItem& item) {
  const int indent = item.depth < 1 ? 2 : item.depth * 2;
  std::fprintf(out, "%*s[%s] %s  %s\n", indent, "", item.type.c_str(), item.name.c_str(), item.uri.c_str());
}

// Whether `destination` is a folder of the hierarchy; the `root` member of
// the answer is not searched. Returns false after its own line on stderr.
bool destination_exists(const std::string& destination, Context& context) {
  messages::FolderListRequest request;
  request.recursive = true;
  link::Result<FolderListResponse> tree = context.run_and_wait(context.api().folder_list(std::move(request)));
  if (!tree) {
    std::fprintf(context.err, "folder move failed while validating destination folder: %s\n",
                 tree.error().message().c_str());
    return false;
  }
  for (const FolderItem& item : tree->items) {
    if (item.type == "folder" && item.uri == destination) return true;
  }
  std::fprintf(context.err, "folder move failed: destination folder not found in current library hierarchy: %.*s\n",
               static_cast<int>(destination.size()), destination.data());
  return false;
}

}  // namespace

int folder_list(const cli::CommandLine& line, Context& context) {
  messages::FolderListRequest request;
  request.recursive = line.recursive();
  request.folder_uri = line.folder_uri();

  const auto deadline = std::chrono::steady_clock::now() + folder_list_limit;
  std::optional<link::Result<FolderListResponse>> answer =
      context.run_and_wait_until(context.api().folder_list(std::move(request)), deadline);
  if (!answer) {
    std::fprintf(context.err, "folder list timed out after 8s while reading the playlist folder hierarchy.\n");
    return 1;
  }
  link::Result<FolderListResponse>& list = *answer;
  if (!list) {
    std::fprintf(context.err, "folder list failed: %s\n", list.error().message().c_str());
    return 1;
  }
  if (line.json_output()) {
    context.print_json(messages::record_codec<FolderListResponse>(), *list);
    return 0;
  }
  std::FILE* out = context.out;
  std::fprintf(out, "Total items: %d\n", list->total_items);
  if (!list->root.name.empty()) std::fprintf(out, "[%s] %s\n", list->root.type.c_str(), list->root.name.c_str());
  for (const FolderItem& item : list->items) print_item(out, item);
  return 0;
}

int folder_create(const cli::CommandLine& line, Context& context) {
  messages::FolderCreateRequest request;
  request.name = std::string(line.argument());
  request.parent_folder_uri = line.in_uri();

  link::Result<messages::FolderCreateResponse> created =
      context.run_and_wait(context.api().folder_create(std::move(request)));
  if (!created) {
    std::fprintf(context.err, "folder create failed: %s\n", created.error().message().c_str());
    return 1;
  }
  std::fprintf(context.out, "Created: %s  %s\n", created->name.c_str(), created->uri.c_str());
  return 0;
}

int folder_rename(const cli::CommandLine& line, Context& context) {
  messages::FolderRenameRequest request;
  request.folder_uri = std::string(line.argument());
  request.name = line.arguments().empty() ? std::string() : line.arguments().front();

  link::Result<messages::FolderRenameResponse> renamed =
      context.run_and_wait(context.api().folder_rename(std::move(request)));
  if (!renamed) {
    std::fprintf(context.err, "folder rename failed: %s\n", renamed.error().message().c_str());
    return 1;
  }
  std::fprintf(context.out, "Renamed to: %s  %s\n", renamed->name.c_str(), renamed->uri.c_str());
  return 0;
}

int folder_move(const cli::CommandLine& line, Context& context) {
  // Without `--to` the items go to the top level.
  const std::string destination = line.to_uri().value_or(std::string(root_destination));
  if (destination != root_destination && !destination_exists(destination, context)) return 1;

  const std::vector<std::string>& uris = line.uris();
  // One request per URI, so that a failure can say how far the move got.
  int moved = 0;
  for (const std::string& uri : uris) {
    messages::FolderMoveRequest request;
    request.uris = {uri};
    request.destination_folder_uri = destination;
    link::Result<messages::FolderMoveResponse> step =
        context.run_and_wait(context.api().folder_move(std::move(request)));
    if (!step) {
      std::fprintf(context.err, "folder move failed after moving %d/%zu item(s): %s\n", moved, uris.size(),
                   step.error().message().c_str());
      return 1;
    }
    // What the desktop client reports, which may be 0 or more than 1.
    moved += step->moved;
  }
  std::fprintf(context.out, "Moved %d item(s)\n", moved);
  return 0;
}

int folder_remove(const cli::CommandLine& line, Context& context) {
  messages::FolderRemoveRequest request;
  request.folder_uri = std::string(line.argument());
  request.keep_contents = line.keep_contents();

  link::Result<messages::FolderRemoveResponse> removed =
      context.run_and_wait(context.api().folder_remove(std::move(request)));
  if (!removed) {
    std::fprintf(context.err, "folder remove failed: %s\n", removed.error().message().c_str());
    return 1;
  }
  std::fprintf(context.out, "Removed %d item(s)\n", removed->removed);
  return 0;
}

}  // namespace orvanta::commands
