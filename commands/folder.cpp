#include "commands/folder.hpp"

#include <chrono>
#include <optional>
#include <string>
#include <vector>

#include "commands/library_rules.hpp"
#include "messages/record_codecs.hpp"

namespace orvanta::commands {
namespace {

using messages::FolderItem;
using messages::FolderListResponse;

constexpr auto folder_list_limit = std::chrono::seconds(8);

// Depth 0 and 1 both stand at two spaces; the response's order is the
// display order, nothing is re-nested here.
void print_item(std::FILE* out, const FolderItem& item) {
  const int indent = item.depth < 1 ? 2 : item.depth * 2;
  std::fprintf(out, "%*s[%s] %s  %s\n", indent, "", item.type.c_str(), item.name.c_str(), item.uri.c_str());
}

}  // namespace

int folder_list(const cli::CommandLine& line, Context& context) {
  messages::FolderListRequest request;
  request.recursive = line.recursive();
  request.folder_uri = line.folder_uri();

  std::optional<link::Result<FolderListResponse>> answer =
      context.run_within(context.api().folder_list(std::move(request)), folder_list_limit);
  if (!answer) return context.fail("folder list timed out after 8s while reading the playlist folder hierarchy.\n");
  link::Result<FolderListResponse>& list = *answer;
  if (!list) return context.fail("folder list failed: %s\n", list.error().message().c_str());
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
  if (!created) return context.fail("folder create failed: %s\n", created.error().message().c_str());
  std::fprintf(context.out, "Created: %s  %s\n", created->name.c_str(), created->uri.c_str());
  return 0;
}

int folder_rename(const cli::CommandLine& line, Context& context) {
  messages::FolderRenameRequest request;
  request.folder_uri = std::string(line.argument());
  request.name = line.arguments().empty() ? std::string() : line.arguments().front();

  link::Result<messages::FolderRenameResponse> renamed =
      context.run_and_wait(context.api().folder_rename(std::move(request)));
  if (!renamed) return context.fail("folder rename failed: %s\n", renamed.error().message().c_str());
  std::fprintf(context.out, "Renamed to: %s  %s\n", renamed->name.c_str(), renamed->uri.c_str());
  return 0;
}

int folder_move(const cli::CommandLine& line, Context& context) {
  // Without `--to` the items go to the top level.
  const std::string destination = line.to_uri().value_or(std::string(root_folder));
  const std::vector<std::string>& uris = line.uris();
  const FolderMove move = move_to_folder(uris, destination, context);
  switch (move.stage) {
    case FolderMove::Stage::listing_failed:
      return context.fail("folder move failed while validating destination folder: %s\n", move.error.c_str());
    case FolderMove::Stage::destination_missing:
      return context.fail("folder move failed: destination folder not found in current library hierarchy: %s\n",
                          destination.c_str());
    case FolderMove::Stage::move_failed:
      return context.fail("folder move failed after moving %d/%zu item(s): %s\n", move.moved, uris.size(),
                          move.error.c_str());
    case FolderMove::Stage::done:
      break;
  }
  std::fprintf(context.out, "Moved %d item(s)\n", move.moved);
  return 0;
}

int folder_remove(const cli::CommandLine& line, Context& context) {
  messages::FolderRemoveRequest request;
  request.folder_uri = std::string(line.argument());
  request.keep_contents = line.keep_contents();

  link::Result<messages::FolderRemoveResponse> removed =
      context.run_and_wait(context.api().folder_remove(std::move(request)));
  if (!removed) return context.fail("folder remove failed: %s\n", removed.error().message().c_str());
  std::fprintf(context.out, "Removed %d item(s)\n", removed->removed);
  return 0;
}

}  // namespace orvanta::commands
