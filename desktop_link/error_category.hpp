#pragma once

// The two error vocabularies of the desktop link. `desktop_api` is what the
// Partner API itself speaks and what command handlers see; the failure source
// is a coarser word the desktop client may use to say where a failure arose.
// Value 0 is success in every category, so a failure test looks at the value
// only.

#include <cstdint>
#include <system_error>

namespace orvanta::messages {
struct ErrorObject;
}

namespace orvanta::link {

// The values travel on the wire and are fixed.
enum class DesktopApiError : int {
  invalid_request = -32600,
  success = 0,
  unknown_request = 1,
  bad_request = 2,
  unauthorized_request = 3,
  internal_server_error = 4,
  server_bind_failure = 5,
  shutting_down = 6,
  cancelled = 7,
  playback_restricted = 8,
  request_timed_out = 9,
  remote_playback_not_allowed = 10,
  client_not_connected = 11,
  client_connection_failed = 12,
  client_unknown_error = 13,
  version_parameter_mismatch = 14,
  method_not_yet_implemented = 15,
  not_logged_in = 16,
  http_request_failed = 17,
  failed_to_parse_response_json = 18,
  browser_not_found = 19,
  element_ref_not_found = 20,
  browser_operation_timed_out = 21,
  ipc_message_too_large = 22,
  no_chromium_browser = 23,
  failed_to_spawn_browser = 24,
};

enum class FailureSource : int {
  success = 0,
  bad_request = 1,
  unauthorized_request = 2,
  server_error = 3,
  network_error = 4,
  player_error = 5,
  playback_restricted = 6,
  remote_playback_not_allowed = 7,
  unknown_error = 8,
  cancelled = 9,
  browser_error = 10,
};

// The process-wide singletons, named "desktop_api" and
// "desktop_api_failure_source".
const std::error_category& desktop_api_category() noexcept;
const std::error_category& failure_source_category() noexcept;

[[nodiscard]] std::error_code make_error_code(DesktopApiError e) noexcept;
[[nodiscard]] std::error_code make_error_code(FailureSource e) noexcept;

// Turns the error member of an incoming message into a code. The category
// text picks the category; a category we don't know gives
// `client_connection_failed` and the peer's code is dropped. The peer's
// message text never reaches the code.
[[nodiscard]] std::error_code error_from_wire(const messages::ErrorObject& error);

// Folds a failure source into the `desktop_api` word a handler will see. A
// failure source only says who failed, so `bad_request` and
// `playback_restricted` do not keep their names. Values outside the table,
// negative ones included, fold to `client_unknown_error`.
[[nodiscard]] DesktopApiError fold_failure_source(int value) noexcept;

// The fold of any code into `desktop_api`, without the error signal that the
// client adds: `desktop_api` codes pass as they are, failure sources go
// through `fold_failure_source`, asio's system codes become
// `client_connection_failed`, and everything else (the generic category,
// asio's misc codes) `client_unknown_error`. `system_category` is the
// category asio reports socket errors in; it is passed in so that this file
// stays free of asio.
[[nodiscard]] std::error_code fold_error(std::error_code ec,
                                         const std::error_category& system_category);

}  // namespace orvanta::link

template <>
struct std::is_error_code_enum<orvanta::link::DesktopApiError> : std::true_type {};
template <>
struct std::is_error_code_enum<orvanta::link::FailureSource> : std::true_type {};
