// Records of the playlist folder methods `folder_*`.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "json/json.hpp"

namespace orvanta::messages {

// Without `folder_uri` the root is listed.
struct FolderListRequest {
  std::optional<std::string> folder_uri{};
  bool recursive = false;
  bool operator==(const FolderListRequest&) const = default;
};

// A folder or a playlist. `parent_uri` is absent at the root; `depth`
// counts from the folder that was listed.
struct FolderItem {
  std::string uri{};
  std::string name{};
  std::string type{};
  std::optional<std::string> parent_uri{};
  std::int32_t depth = 0;
  bool operator==(const FolderItem&) const = default;
};

// `items` is the content of `root`, flat, whatever the depth.
struct FolderListResponse {
  FolderItem root{};
  std::vector<FolderItem> items{};
  std::int32_t total_items = 0;
  bool operator==(const FolderListResponse&) const = default;
};

// Without `parent_folder_uri` the folder is made at the root.
struct FolderCreateRequest {
  std::string name{};
  std::optional<std::string> parent_folder_uri{};
  bool operator==(const FolderCreateRequest&) const = default;
};

struct FolderCreateResponse {
  std::string uri{};
  std::string name{};
  bool operator==(const FolderCreateResponse&) const = default;
};

struct FolderRenameRequest {
  std::string folder_uri{};
  std::string name{};
  bool operator==(const FolderRenameRequest&) const = default;
};

struct FolderRenameResponse {
  std::string uri{};
  std::string name{};
  bool operator==(const FolderRenameResponse&) const = default;
};

struct FolderMoveRequest {
  std::vector<std::string> uris{};
  std::string destination_folder_uri{};
  bool operator==(const FolderMoveRequest&) const = default;
};

struct FolderMoveResponse {
  std::int32_t moved = 0;
  bool operator==(const FolderMoveResponse&) const = default;
};

struct FolderRemoveRequest {
  std::string folder_uri{};
  bool keep_contents = false;
  bool operator==(const FolderRemoveRequest&) const = default;
};

struct FolderRemoveResponse {
  std::int32_t removed = 0;
  bool operator==(const FolderRemoveResponse&) const = default;
};

json::ObjectCodec<FolderListRequest> folder_list_request_codec();
json::ObjectCodec<FolderItem> folder_item_codec();
json::ObjectCodec<FolderListResponse> folder_list_response_codec();
json::ObjectCodec<FolderCreateRequest> folder_create_request_codec();
json::ObjectCodec<FolderCreateResponse> folder_create_response_codec();
json::ObjectCodec<FolderRenameRequest> folder_rename_request_codec();
json::ObjectCodec<FolderRenameResponse> folder_rename_response_codec();
json::ObjectCodec<FolderMoveRequest> folder_move_request_codec();
json::ObjectCodec<FolderMoveResponse> folder_move_response_codec();
json::ObjectCodec<FolderRemoveRequest> folder_remove_request_codec();
json::ObjectCodec<FolderRemoveResponse> folder_remove_response_codec();

}  // namespace orvanta::messages
