#include "messages/folder.hpp"

namespace orvanta::messages {

using json::presence::optional;
using json::presence::required;

json::ObjectCodec<FolderListRequest> folder_list_request_codec() {
  using R = FolderListRequest;
  json::ObjectCodec<R> codec;
  codec.add_field("folder_uri", optional, &R::folder_uri);
  codec.add_field("recursive",  required, &R::recursive);
  return codec;
}

json::ObjectCodec<FolderItem> folder_item_codec() {
  using R = FolderItem;
  json::ObjectCodec<R> codec;
  codec.add_field("uri",        required, &R::uri);
  codec.add_field("name",       required, &R::name);
  codec.add_field("type",       required, &R::type);
  codec.add_field("parent_uri", optional, &R::parent_uri);
  codec.add_field("depth",      required, &R::depth);
  return codec;
}

json::ObjectCodec<FolderListResponse> folder_list_response_codec() {
  using R = FolderListResponse;
  json::ObjectCodec<R> codec;
  codec.add_field("root",        required, &R::root,  folder_item_codec());
  codec.add_field("items",       required, &R::items, json::list_codec(folder_item_codec()));
  codec.add_field("total_items", required, &R::total_items);
  return codec;
}

json::ObjectCodec<FolderCreateRequest> folder_create_request_codec() {
  using R = FolderCreateRequest;
  json::ObjectCodec<R> codec;
  codec.add_field("name",              required, &R::name);
  codec.add_field("parent_folder_uri", optional, &R::parent_folder_uri);
  return codec;
}

json::ObjectCodec<FolderCreateResponse> folder_create_response_codec() {
  using R = FolderCreateResponse;
  json::ObjectCodec<R> codec;
  codec.add_field("uri",  required, &R::uri);
  codec.add_field("name", required, &R::name);
  return codec;
}

json::ObjectCodec<FolderRenameRequest> folder_rename_request_codec() {
  using R = FolderRenameRequest;
  json::ObjectCodec<R> codec;
  codec.add_field("folder_uri", required, &R::folder_uri);
  codec.add_field("name",       required, &R::name);
  return codec;
}

json::ObjectCodec<FolderRenameResponse> folder_rename_response_codec() {
  using R = FolderRenameResponse;
  json::ObjectCodec<R> codec;
  codec.add_field("uri",  required, &R::uri);
  codec.add_field("name", required, &R::name);
  return codec;
}

json::ObjectCodec<FolderMoveRequest> folder_move_request_codec() {
  using R = FolderMoveRequest;
  json::ObjectCodec<R> codec;
  codec.add_field("uris",                   required, &R::uris);
  codec.add_field("destination_folder_uri", required, &R::destination_folder_uri);
  return codec;
}

json::ObjectCodec<FolderMoveResponse> folder_move_response_codec() {
  using R = FolderMoveResponse;
  json::ObjectCodec<R> codec;
  codec.add_field("moved", required, &R::moved);
  return codec;
}

json::ObjectCodec<FolderRemoveRequest> folder_remove_request_codec() {
  using R = FolderRemoveRequest;
  json::ObjectCodec<R> codec;
  codec.add_field("folder_uri",    required, &R::folder_uri);
  codec.add_field("keep_contents", required, &R::keep_contents);
  return codec;
}

json::ObjectCodec<FolderRemoveResponse> folder_remove_response_codec() {
  using R = FolderRemoveResponse;
  json::ObjectCodec<R> codec;
  codec.add_field("removed", required, &R::removed);
  return codec;
}

}  // namespace orvanta::messages
