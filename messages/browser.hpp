// Records of the browser methods. Each browser is named by a 32-bit id.
// Nobody here sets the defaulted members of the requests; they go out as
// their defaults.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "json/json.hpp"

namespace orvanta::messages {

struct BrowserNewRequest {
  std::string title_or_url;
  std::int32_t width = 0;
  std::int32_t height = 0;
  std::string backend;
  std::string user_data_dir;
  std::string profile_directory;
  std::string chrome_binary;
  std::optional<std::int32_t> attach_port;
  bool headless = false;
  bool operator==(const BrowserNewRequest&) const = default;
};

struct BrowserNewResponse {
  std::int32_t id = 0;
  std::string url;
  std::string title;
  std::int32_t viewport_width = 0;
  std::int32_t viewport_height = 0;
  std::optional<std::string> snapshot;
  std::string backend;
  bool operator==(const BrowserNewResponse&) const = default;
};

struct BrowserListItem {
  std::int32_t id = 0;
  std::string type;
  std::string url;
  std::string title;
  std::int32_t viewport_width = 0;
  std::int32_t viewport_height = 0;
  std::optional<std::int32_t> parent_id;
  std::vector<std::int32_t> popup_ids;
  std::optional<std::string> created_by;
  bool operator==(const BrowserListItem&) const = default;
};

struct BrowserListResponse {
  std::vector<BrowserListItem> browsers;
  bool operator==(const BrowserListResponse&) const = default;
};

struct BrowserCloseRequest {
  std::optional<std::int32_t> id;
  bool operator==(const BrowserCloseRequest&) const = default;
};

struct BrowserCloseResponse {
  std::int32_t id = 0;
  std::optional<bool> was_user_opened;
  bool operator==(const BrowserCloseResponse&) const = default;
};

struct BrowserSnapshotRequest {
  std::int32_t id = 0;
  std::string format;
  bool operator==(const BrowserSnapshotRequest&) const = default;
};

struct BrowserSnapshotResponse {
  std::string url;
  std::string title;
  std::string type;
  std::int32_t viewport_width = 0;
  std::int32_t viewport_height = 0;
  std::string snapshot;
  bool operator==(const BrowserSnapshotResponse&) const = default;
};

struct BrowserNavigateRequest {
  std::int32_t id = 0;
  std::string url;
  bool operator==(const BrowserNavigateRequest&) const = default;
};

struct BrowserNavigateResponse {
  std::string url;
  std::string title;
  std::string type;
  std::int32_t viewport_width = 0;
  std::int32_t viewport_height = 0;
  std::string snapshot;
  bool operator==(const BrowserNavigateResponse&) const = default;
};

struct BrowserClickRequest {
  std::int32_t id = 0;
  std::string ref;
  bool operator==(const BrowserClickRequest&) const = default;
};

struct BrowserClickResponse {
  std::string ref;
  std::string element;
  bool navigated = false;
  std::optional<std::string> url;
  std::optional<std::string> title;
  std::optional<std::string> snapshot;
  bool operator==(const BrowserClickResponse&) const = default;
};

struct BrowserTypeRequest {
  std::int32_t id = 0;
  std::string ref;
  std::string text;
  bool submit = false;
  bool operator==(const BrowserTypeRequest&) const = default;
};

struct BrowserTypeResponse {
  std::string ref;
  std::string element;
  bool submitted = false;
  std::optional<std::string> url;
  std::optional<std::string> title;
  std::optional<std::string> snapshot;
  bool operator==(const BrowserTypeResponse&) const = default;
};

struct BrowserScrollRequest {
  std::int32_t id = 0;
  std::string ref;
  bool operator==(const BrowserScrollRequest&) const = default;
};

struct BrowserScrollResponse {
  std::string url;
  std::string title;
  std::int32_t viewport_width = 0;
  std::int32_t viewport_height = 0;
  std::string snapshot;
  bool operator==(const BrowserScrollResponse&) const = default;
};

struct BrowserEvaluateRequest {
  std::int32_t id = 0;
  std::string expression;
  bool operator==(const BrowserEvaluateRequest&) const = default;
};

struct BrowserEvaluateResponse {
  std::string result;
  bool operator==(const BrowserEvaluateResponse&) const = default;
};

json::ObjectCodec<BrowserNewRequest> browser_new_request_codec();
json::ObjectCodec<BrowserNewResponse> browser_new_response_codec();
json::ObjectCodec<BrowserListItem> browser_list_item_codec();
json::ObjectCodec<BrowserListResponse> browser_list_response_codec();
json::ObjectCodec<BrowserCloseRequest> browser_close_request_codec();
json::ObjectCodec<BrowserCloseResponse> browser_close_response_codec();
json::ObjectCodec<BrowserSnapshotRequest> browser_snapshot_request_codec();
json::ObjectCodec<BrowserSnapshotResponse> browser_snapshot_response_codec();
json::ObjectCodec<BrowserNavigateRequest> browser_navigate_request_codec();
json::ObjectCodec<BrowserNavigateResponse> browser_navigate_response_codec();
json::ObjectCodec<BrowserClickRequest> browser_click_request_codec();
json::ObjectCodec<BrowserClickResponse> browser_click_response_codec();
json::ObjectCodec<BrowserTypeRequest> browser_type_request_codec();
json::ObjectCodec<BrowserTypeResponse> browser_type_response_codec();
json::ObjectCodec<BrowserScrollRequest> browser_scroll_request_codec();
json::ObjectCodec<BrowserScrollResponse> browser_scroll_response_codec();
json::ObjectCodec<BrowserEvaluateRequest> browser_evaluate_request_codec();
json::ObjectCodec<BrowserEvaluateResponse> browser_evaluate_response_codec();

}  // namespace orvanta::messages
