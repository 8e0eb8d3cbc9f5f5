// Records of the saved library methods `library_*`.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "json/json.hpp"

namespace orvanta::messages {

struct LibraryListRequest {
  std::optional<std::string> type{};
  std::optional<std::int32_t> limit{};
  std::optional<std::int32_t> offset{};
  bool operator==(const LibraryListRequest&) const = default;
};

struct LibraryItem {
  std::string uri{};
  std::string name{};
  std::string type{};
  std::vector<std::string> artists{};
  std::optional<std::string> album{};
  bool operator==(const LibraryItem&) const = default;
};

struct LibraryListResponse {
  std::vector<LibraryItem> items{};
  std::int32_t total = 0;
  bool has_more = false;
  bool operator==(const LibraryListResponse&) const = default;
};

struct LibraryContainsRequest {
  std::vector<std::string> uris{};
  bool operator==(const LibraryContainsRequest&) const = default;
};

// One entry per URI asked about. An ordered map, so that the encoded form
// is sorted by URI whatever order the peer sent.
struct LibraryContainsResponse {
  std::map<std::string, bool> contains{};
  bool operator==(const LibraryContainsResponse&) const = default;
};

struct LibraryAddRequest {
  std::vector<std::string> uris{};
  bool operator==(const LibraryAddRequest&) const = default;
};

struct LibraryRemoveRequest {
  std::vector<std::string> uris{};
  bool operator==(const LibraryRemoveRequest&) const = default;
};

// `failed` lists the URIs that could not be changed.
struct LibraryAddResponse {
  std::int32_t count = 0;
  std::vector<std::string> failed{};
  bool operator==(const LibraryAddResponse&) const = default;
};

struct LibraryRemoveResponse {
  std::int32_t count = 0;
  std::vector<std::string> failed{};
  bool operator==(const LibraryRemoveResponse&) const = default;
};

json::ObjectCodec<LibraryListRequest> library_list_request_codec();
json::ObjectCodec<LibraryItem> library_item_codec();
json::ObjectCodec<LibraryListResponse> library_list_response_codec();
json::ObjectCodec<LibraryContainsRequest> library_contains_request_codec();
json::ObjectCodec<LibraryContainsResponse> library_contains_response_codec();
json::ObjectCodec<LibraryAddRequest> library_add_request_codec();
json::ObjectCodec<LibraryRemoveRequest> library_remove_request_codec();
json::ObjectCodec<LibraryAddResponse> library_add_response_codec();
json::ObjectCodec<LibraryRemoveResponse> library_remove_response_codec();

}  // namespace orvanta::messages
