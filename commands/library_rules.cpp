#include "commands/library_rules.hpp"

#include <filesystem>

#include "messages/folder.hpp"

namespace orvanta::commands {

CoverImage find_cover_image(const std::string& image_file) {
  namespace fs = std::filesystem;
  CoverImage cover;
  const fs::path path = fs::absolute(image_file);
  const fs::file_type type = fs::status(path).type();
  cover.path = path.string();
  cover.exists = type != fs::file_type::none && type != fs::file_type::not_found;
  return cover;
}

FolderMove move_to_folder(const std::vector<std::string>& uris, const std::string& destination, Context& context) {
  FolderMove move;
  if (destination != root_folder) {
    messages::FolderListRequest request;
    request.recursive = true;
    link::Result<messages::FolderListResponse> tree = context.run_and_wait(context.api().folder_list(request));
    if (!tree) {
      move.stage = FolderMove::Stage::listing_failed;
      move.error = tree.error().message();
      return move;
    }
    bool found = false;
    for (const messages::FolderItem& item : tree->items) {
      if (item.type == "folder" && item.uri == destination) found = true;
    }
    if (!found) {
      move.stage = FolderMove::Stage::destination_missing;
      return move;
    }
  }
  for (const std::string& uri : uris) {
    messages::FolderMoveRequest request;
    request.uris = {uri};
    request.destination_folder_uri = destination;
    link::Result<messages::FolderMoveResponse> step = context.run_and_wait(context.api().folder_move(request));
    if (!step) {
      move.stage = FolderMove::Stage::move_failed;
      move.error = step.error().message();
      return move;
    }
    move.moved += step->moved;
  }
  return move;
}

}  // namespace orvanta::commands
