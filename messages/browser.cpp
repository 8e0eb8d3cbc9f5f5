#include "messages/browser.hpp"

namespace orvanta::messages {

namespace {
using json::presence::defaulted;
using json::presence::optional;
using json::presence::required;
}  // namespace

json::ObjectCodec<BrowserNewRequest> browser_new_request_codec() {
  using R = BrowserNewRequest;
  json::ObjectCodec<R> codec;
  codec.add_field("title_or_url",      required,  &R::title_or_url);
  codec.add_field("width",             defaulted, &R::width);
  codec.add_field("height",            defaulted, &R::height);
  codec.add_field("backend",           defaulted, &R::backend);
  codec.add_field("user_data_dir",     defaulted, &R::user_data_dir);
  codec.add_field("profile_directory", defaulted, &R::profile_directory);
  codec.add_field("chrome_binary",     defaulted, &R::chrome_binary);
  codec.add_field("attach_port",       optional,  &R::attach_port);
  codec.add_field("headless",          defaulted, &R::headless);
  return codec;
}

json::ObjectCodec<BrowserNewResponse> browser_new_response_codec() {
  using R = BrowserNewResponse;
  json::ObjectCodec<R> codec;
  codec.add_field("id",              required,  &R::id);
  codec.add_field("url",             required,  &R::url);
  codec.add_field("title",           required,  &R::title);
  codec.add_field("viewport_width",  required,  &R::viewport_width);
  codec.add_field("viewport_height", required,  &R::viewport_height);
  codec.add_field("snapshot",        optional,  &R::snapshot);
  codec.add_field("backend",         defaulted, &R::backend);
  return codec;
}

json::ObjectCodec<BrowserListItem> browser_list_item_codec() {
  using R = BrowserListItem;
  json::ObjectCodec<R> codec;
  codec.add_field("id",              required,  &R::id);
  codec.add_field("type",            required,  &R::type);
  codec.add_field("url",             required,  &R::url);
  codec.add_field("title",           required,  &R::title);
  codec.add_field("viewport_width",  required,  &R::viewport_width);
  codec.add_field("viewport_height", required,  &R::viewport_height);
  codec.add_field("parent_id",       optional,  &R::parent_id);
  codec.add_field("popup_ids",       defaulted, &R::popup_ids);
  codec.add_field("created_by",      optional,  &R::created_by);
  return codec;
}

json::ObjectCodec<BrowserListResponse> browser_list_response_codec() {
  using R = BrowserListResponse;
  json::ObjectCodec<R> codec;
  codec.add_field("browsers", required, &R::browsers, json::list_codec(browser_list_item_codec()));
  return codec;
}

json::ObjectCodec<BrowserCloseRequest> browser_close_request_codec() {
  using R = BrowserCloseRequest;
  json::ObjectCodec<R> codec;
  codec.add_field("id", optional, &R::id);
  return codec;
}

json::ObjectCodec<BrowserCloseResponse> browser_close_response_codec() {
  using R = BrowserCloseResponse;
  json::ObjectCodec<R> codec;
  codec.add_field("id",              required, &R::id);
  codec.add_field("was_user_opened", optional, &R::was_user_opened);
  return codec;
}

json::ObjectCodec<BrowserSnapshotRequest> browser_snapshot_request_codec() {
  using R = BrowserSnapshotRequest;
  json::ObjectCodec<R> codec;
  codec.add_field("id",     required,  &R::id);
  codec.add_field("format", defaulted, &R::format);
  return codec;
}

json::ObjectCodec<BrowserSnapshotResponse> browser_snapshot_response_codec() {
  using R = BrowserSnapshotResponse;
  json::ObjectCodec<R> codec;
  codec.add_field("url",             required,  &R::url);
  codec.add_field("title",           required,  &R::title);
  codec.add_field("type",            defaulted, &R::type);
  codec.add_field("viewport_width",  required,  &R::viewport_width);
  codec.add_field("viewport_height", required,  &R::viewport_height);
  codec.add_field("snapshot",        defaulted, &R::snapshot);
  return codec;
}

json::ObjectCodec<BrowserNavigateRequest> browser_navigate_request_codec() {
  using R = BrowserNavigateRequest;
  json::ObjectCodec<R> codec;
  codec.add_field("id",  required, &R::id);
  codec.add_field("url", required, &R::url);
  return codec;
}

json::ObjectCodec<BrowserNavigateResponse> browser_navigate_response_codec() {
  using R = BrowserNavigateResponse;
  json::ObjectCodec<R> codec;
  codec.add_field("url",             required,  &R::url);
  codec.add_field("title",           required,  &R::title);
  codec.add_field("type",            defaulted, &R::type);
  codec.add_field("viewport_width",  required,  &R::viewport_width);
  codec.add_field("viewport_height", required,  &R::viewport_height);
  codec.add_field("snapshot",        defaulted, &R::snapshot);
  return codec;
}

json::ObjectCodec<BrowserClickRequest> browser_click_request_codec() {
  using R = BrowserClickRequest;
  json::ObjectCodec<R> codec;
  codec.add_field("id",  required, &R::id);
  codec.add_field("ref", required, &R::ref);
  return codec;
}

json::ObjectCodec<BrowserClickResponse> browser_click_response_codec() {
  using R = BrowserClickResponse;
  json::ObjectCodec<R> codec;
  codec.add_field("ref",       required, &R::ref);
  codec.add_field("element",   required, &R::element);
  codec.add_field("navigated", required, &R::navigated);
  codec.add_field("url",       optional, &R::url);
  codec.add_field("title",     optional, &R::title);
  codec.add_field("snapshot",  optional, &R::snapshot);
  return codec;
}

json::ObjectCodec<BrowserTypeRequest> browser_type_request_codec() {
  using R = BrowserTypeRequest;
  json::ObjectCodec<R> codec;
  codec.add_field("id",     required,  &R::id);
  codec.add_field("ref",    required,  &R::ref);
  codec.add_field("text",   required,  &R::text);
  codec.add_field("submit", defaulted, &R::submit);
  return codec;
}

json::ObjectCodec<BrowserTypeResponse> browser_type_response_codec() {
  using R = BrowserTypeResponse;
  json::ObjectCodec<R> codec;
  codec.add_field("ref",       required, &R::ref);
  codec.add_field("element",   required, &R::element);
  codec.add_field("submitted", required, &R::submitted);
  codec.add_field("url",       optional, &R::url);
  codec.add_field("title",     optional, &R::title);
  codec.add_field("snapshot",  optional, &R::snapshot);
  return codec;
}

json::ObjectCodec<BrowserScrollRequest> browser_scroll_request_codec() {
  using R = BrowserScrollRequest;
  json::ObjectCodec<R> codec;
  codec.add_field("id",  required, &R::id);
  codec.add_field("ref", required, &R::ref);
  return codec;
}

json::ObjectCodec<BrowserScrollResponse> browser_scroll_response_codec() {
  using R = BrowserScrollResponse;
  json::ObjectCodec<R> codec;
  codec.add_field("url",             required,  &R::url);
  codec.add_field("title",           required,  &R::title);
  codec.add_field("viewport_width",  required,  &R::viewport_width);
  codec.add_field("viewport_height", required,  &R::viewport_height);
  codec.add_field("snapshot",        defaulted, &R::snapshot);
  return codec;
}

json::ObjectCodec<BrowserEvaluateRequest> browser_evaluate_request_codec() {
  using R = BrowserEvaluateRequest;
  json::ObjectCodec<R> codec;
  codec.add_field("id",         required, &R::id);
  codec.add_field("expression", required, &R::expression);
  return codec;
}

json::ObjectCodec<BrowserEvaluateResponse> browser_evaluate_response_codec() {
  using R = BrowserEvaluateResponse;
  json::ObjectCodec<R> codec;
  codec.add_field("result", required, &R::result);
  return codec;
}

}  // namespace orvanta::messages
