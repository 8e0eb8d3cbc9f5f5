// The playlist folder tree. The top level is `sidebar`; each folder holds
// the URIs of its playlists and sub-folders in display order.
#include "sim/handlers.hpp"

#include <algorithm>

#include "sim/catalogue.hpp"

namespace orvanta::sim {

namespace {

constexpr std::string_view root_word = "root";

using Children = std::vector<std::string>;

// The list of the folder `uri`, of the top level for "root", or nullptr.
Children* children_of(SimState& state, std::string_view uri) {
  if (uri == root_word) return &state.sidebar;
  Folder* folder = find_folder(state, uri);
  return folder ? &folder->children : nullptr;
}

// The list that holds `uri`, and the folder that owns it (nullptr at the top).
Children* holder_of(SimState& state, std::string_view uri, Folder** owner) {
  *owner = nullptr;
  if (std::find(state.sidebar.begin(), state.sidebar.end(), uri) != state.sidebar.end()) return &state.sidebar;
  for (Folder& folder : state.folders) {
    if (std::find(folder.children.begin(), folder.children.end(), uri) != folder.children.end()) {
      *owner = &folder;
      return &folder.children;
    }
  }
  return nullptr;
}

// True when `candidate` is `folder` or lies somewhere inside it.
bool within(SimState& state, std::string_view folder, std::string_view candidate) {
  if (folder == candidate) return true;
  Folder* f = find_folder(state, folder);
  if (f == nullptr) return false;
  for (const std::string& child : f->children) {
    if (within(state, child, candidate)) return true;
  }
  return false;
}

void list_items(SimState& state, const Children& children, const std::optional<std::string>& parent,
                std::int32_t depth, bool recursive, std::vector<m::FolderItem>& out) {
  for (const std::string& uri : children) {
    const bool is_folder = uri_type(uri) == "folder";
    out.push_back(m::FolderItem{.uri = uri, .name = name_of(state, uri).value_or(uri),
                                .type = is_folder ? "folder" : "playlist", .parent_uri = parent, .depth = depth});
    if (is_folder && recursive) {
      if (Folder* folder = find_folder(state, uri)) list_items(state, folder->children, uri, depth + 1, true, out);
    }
  }
}

// Drops a folder and everything under it; returns how many entries went.
std::int32_t drop_tree(SimState& state, const std::string& uri) {
  std::int32_t dropped = 1;
  if (Folder* folder = find_folder(state, uri)) {
    const Children children = folder->children;
    for (const std::string& child : children) dropped += drop_tree(state, child);
    std::erase_if(state.folders, [&](const Folder& f) { return f.uri == uri; });
  }
  return dropped;
}

Failure no_such_folder(std::string_view uri) { return bad_request("No playlist folder " + std::string(uri)); }

}  // namespace

Answer<m::FolderListResponse> handle(m::FolderList, const m::FolderListRequest& request, Context& context) {
  SimState& state = context.state;
  m::FolderListResponse r;
  const Children* children = &state.sidebar;
  std::optional<std::string> parent;
  r.root = m::FolderItem{.uri = "orvanta:user:" + state.account.user.username + ":rootlist", .name = "",
                         .type = "folder", .parent_uri = std::nullopt, .depth = 0};
  if (request.folder_uri && *request.folder_uri != root_word) {
    Folder* folder = find_folder(state, *request.folder_uri);
    if (folder == nullptr) return no_such_folder(*request.folder_uri);
    Folder* owner = nullptr;
    holder_of(state, folder->uri, &owner);
    r.root = m::FolderItem{.uri = folder->uri, .name = folder->name, .type = "folder",
                           .parent_uri = owner ? std::optional<std::string>(owner->uri) : std::nullopt, .depth = 0};
    children = &folder->children;
    parent = folder->uri;
  }
  list_items(state, *children, parent, 1, request.recursive, r.items);
  r.total_items = static_cast<std::int32_t>(r.items.size());
  return r;
}

Answer<m::FolderCreateResponse> handle(m::FolderCreate, const m::FolderCreateRequest& request, Context& context) {
  SimState& state = context.state;
  if (request.name.empty()) return bad_request("A folder needs a name");
  const std::string parent = request.parent_folder_uri.value_or(std::string(root_word));
  Children* children = children_of(state, parent);
  if (children == nullptr) return no_such_folder(parent);
  Folder folder{.uri = context.new_id("orvanta:user:" + state.account.user.username + ":folder:sim"),
                .name = request.name, .children = {}};
  children->push_back(folder.uri);
  state.folders.push_back(folder);
  return m::FolderCreateResponse{.uri = folder.uri, .name = folder.name};
}

Answer<m::FolderRenameResponse> handle(m::FolderRename, const m::FolderRenameRequest& request, Context& context) {
  Folder* folder = find_folder(context.state, request.folder_uri);
  if (folder == nullptr) return no_such_folder(request.folder_uri);
  if (request.name.empty()) return bad_request("A folder's name can't be empty");
  folder->name = request.name;
  return m::FolderRenameResponse{.uri = folder->uri, .name = folder->name};
}

Answer<m::FolderMoveResponse> handle(m::FolderMove, const m::FolderMoveRequest& request, Context& context) {
  SimState& state = context.state;
  const std::string& destination = request.destination_folder_uri;
  if (children_of(state, destination) == nullptr) return no_such_folder(destination);
  for (const std::string& uri : request.uris) {
    Folder* owner = nullptr;
    if (holder_of(state, uri, &owner) == nullptr) return bad_request(uri + " is not in the playlist folders");
    if (within(state, uri, destination)) return bad_request("A folder can't be moved into itself: " + uri);
  }
  std::int32_t moved = 0;
  for (const std::string& uri : request.uris) {
    Folder* owner = nullptr;
    Children* from = holder_of(state, uri, &owner);
    std::erase(*from, uri);
    children_of(state, destination)->push_back(uri);
    ++moved;
  }
  return m::FolderMoveResponse{.moved = moved};
}

Answer<m::FolderRemoveResponse> handle(m::FolderRemove, const m::FolderRemoveRequest& request, Context& context) {
  SimState& state = context.state;
  Folder* folder = find_folder(state, request.folder_uri);
  if (folder == nullptr) return no_such_folder(request.folder_uri);
  Folder* owner = nullptr;
  Children* holder = holder_of(state, folder->uri, &owner);
  const std::string uri = folder->uri;
  if (holder == nullptr) return m::FolderRemoveResponse{.removed = drop_tree(state, uri)};
  auto place = std::find(holder->begin(), holder->end(), uri);
  if (!request.keep_contents) {
    holder->erase(place);
    return m::FolderRemoveResponse{.removed = drop_tree(state, uri)};
  }
  // The contents take the folder's place in its parent.
  const Children contents = folder->children;
  place = holder->erase(place);
  holder->insert(place, contents.begin(), contents.end());
  std::erase_if(state.folders, [&](const Folder& f) { return f.uri == uri; });
  return m::FolderRemoveResponse{.removed = 1};
}

}  // namespace orvanta::sim
