#include "messages/library.hpp"

namespace orvanta::messages {

using json::presence::optional;
using json::presence::required;

json::ObjectCodec<LibraryListRequest> library_list_request_codec() {
  using R = LibraryListRequest;
  json::ObjectCodec<R> codec;
  codec.add_field("type",   optional, &R::type);
  codec.add_field("limit",  optional, &R::limit);
  codec.add_field("offset", optional, &R::offset);
  return codec;
}

json::ObjectCodec<LibraryItem> library_item_codec() {
  using R = LibraryItem;
  json::ObjectCodec<R> codec;
  codec.add_field("uri",     required, &R::uri);
  codec.add_field("name",    required, &R::name);
  codec.add_field("type",    required, &R::type);
  codec.add_field("artists", required, &R::artists);
  codec.add_field("album",   optional, &R::album);
  return codec;
}

json::ObjectCodec<LibraryListResponse> library_list_response_codec() {
  using R = LibraryListResponse;
  json::ObjectCodec<R> codec;
  codec.add_field("items",    required, &R::items, json::list_codec(library_item_codec()));
  codec.add_field("total",    required, &R::total);
  codec.add_field("has_more", required, &R::has_more);
  return codec;
}

json::ObjectCodec<LibraryContainsRequest> library_contains_request_codec() {
  using R = LibraryContainsRequest;
  json::ObjectCodec<R> codec;
  codec.add_field("uris", required, &R::uris);
  return codec;
}

json::ObjectCodec<LibraryContainsResponse> library_contains_response_codec() {
  using R = LibraryContainsResponse;
  json::ObjectCodec<R> codec;
  codec.add_field("contains", required, &R::contains);
  return codec;
}

json::ObjectCodec<LibraryAddRequest> library_add_request_codec() {
  using R = LibraryAddRequest;
  json::ObjectCodec<R> codec;
  codec.add_field("uris", required, &R::uris);
  return codec;
}

json::ObjectCodec<LibraryRemoveRequest> library_remove_request_codec() {
  using R = LibraryRemoveRequest;
  json::ObjectCodec<R> codec;
  codec.add_field("uris", required, &R::uris);
  return codec;
}

json::ObjectCodec<LibraryAddResponse> library_add_response_codec() {
  using R = LibraryAddResponse;
  json::ObjectCodec<R> codec;
  codec.add_field("count",  required, &R::count);
  codec.add_field("failed", required, &R::failed);
  return codec;
}

json::ObjectCodec<LibraryRemoveResponse> library_remove_response_codec() {
  using R = LibraryRemoveResponse;
  json::ObjectCodec<R> codec;
  codec.add_field("count",  required, &R::count);
  codec.add_field("failed", required, &R::failed);
  return codec;
}

}  // namespace orvanta::messages
