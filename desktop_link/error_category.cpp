#include "desktop_link/error_category.hpp"

#include <iterator>
#include <string>
#include <string_view>

#include "messages/envelope.hpp"

namespace orvanta::link {
namespace {

class DesktopApiCategory final : public std::error_category {
 public:
  const char* name() const noexcept override { return "desktop_api"; }

  std::string message(int value) const override {
    // No default: a new enumerator without a text is a -Wswitch warning.
    switch (static_cast<DesktopApiError>(value)) {
      case DesktopApiError::invalid_request: return "invalid request";
      case DesktopApiError::success: return "success";
      case DesktopApiError::unknown_request: return "unknown request";
      case DesktopApiError::bad_request: return "bad request";
      case DesktopApiError::unauthorized_request: return "unauthorized request";
      case DesktopApiError::internal_server_error: return "internal server error";
      case DesktopApiError::server_bind_failure: return "server bind failure";
      case DesktopApiError::shutting_down: return "shutting down";
      case DesktopApiError::cancelled: return "cancelled";
      case DesktopApiError::playback_restricted: return "playback restricted";
      case DesktopApiError::request_timed_out: return "request timed out";
      case DesktopApiError::remote_playback_not_allowed: return "remote playback not allowed";
      case DesktopApiError::client_not_connected: return "client not connected";
      case DesktopApiError::client_connection_failed: return "client connection failed";
      case DesktopApiError::client_unknown_error: return "client unknown error";
      case DesktopApiError::version_parameter_mismatch: return "version parameter mismatch";
      case DesktopApiError::method_not_yet_implemented: return "method not yet implemented";
      case DesktopApiError::not_logged_in: return "not logged in";
      case DesktopApiError::http_request_failed: return "HTTP request failed";
      case DesktopApiError::failed_to_parse_response_json: return "failed to parse response JSON";
      case DesktopApiError::browser_not_found: return "browser not found";
      case DesktopApiError::element_ref_not_found:
        return "element ref not found (page may have changed)";
      case DesktopApiError::browser_operation_timed_out: return "browser operation timed out";
      case DesktopApiError::ipc_message_too_large: return "IPC message exceeds size limit";
      case DesktopApiError::no_chromium_browser:
        return "no Chromium-compatible browser found on this host";
      case DesktopApiError::failed_to_spawn_browser:
        return "failed to spawn or attach to system Chrome";
    }
    return "desktop_api_error_" + std::to_string(value);
  }
};

class FailureSourceCategory final : public std::error_category {
 public:
  const char* name() const noexcept override { return "desktop_api_failure_source"; }

  std::string message(int value) const override {
    switch (static_cast<FailureSource>(value)) {
      case FailureSource::success: return "success";
      case FailureSource::bad_request: return "bad request";
      case FailureSource::unauthorized_request: return "unauthorized request";
      case FailureSource::server_error: return "server error";
      case FailureSource::network_error: return "network error";
      case FailureSource::player_error: return "player error";
      case FailureSource::playback_restricted: return "playback restricted";
      case FailureSource::remote_playback_not_allowed: return "remote playback not allowed";
      case FailureSource::unknown_error: return "unknown error";
      case FailureSource::cancelled: return "cancelled";
      case FailureSource::browser_error: return "browser error";
    }
    return "desktop_api_failure_source_" + std::to_string(value);
  }
};

// Rows 0 to 9; `browser_error` (10) and everything past the table takes the
// fallback, so it has no row of its own.
constexpr DesktopApiError kFailureSourceFold[] = {
    DesktopApiError::success,                   // success
    DesktopApiError::client_unknown_error,      // bad_request
    DesktopApiError::client_connection_failed,  // unauthorized_request
    DesktopApiError::client_connection_failed,  // server_error
    DesktopApiError::client_connection_failed,  // network_error
    DesktopApiError::client_unknown_error,      // player_error
    DesktopApiError::client_unknown_error,      // playback_restricted
    DesktopApiError::client_unknown_error,      // remote_playback_not_allowed
    DesktopApiError::client_unknown_error,      // unknown_error
    DesktopApiError::cancelled,                 // cancelled
};

}  // namespace

const std::error_category& desktop_api_category() noexcept {
  static const DesktopApiCategory instance;
  return instance;
}

const std::error_category& failure_source_category() noexcept {
  static const FailureSourceCategory instance;
  return instance;
}

std::error_code make_error_code(DesktopApiError e) noexcept {
  return {static_cast<int>(e), desktop_api_category()};
}

std::error_code make_error_code(FailureSource e) noexcept {
  return {static_cast<int>(e), failure_source_category()};
}

std::error_code error_from_wire(const messages::ErrorObject& error) {
  // Exact bytes, case-sensitive; the code is taken as it stands, in or out of
  // the enumeration's range.
  const std::string_view category = error.category;
  if (category == failure_source_category().name()) {
    return {error.code, failure_source_category()};
  }
  if (category == desktop_api_category().name()) {
    return {error.code, desktop_api_category()};
  }
  return make_error_code(DesktopApiError::client_connection_failed);
}

DesktopApiError fold_failure_source(int value) noexcept {
  // A negative value read as unsigned is far past the table.
  const auto row = static_cast<unsigned>(value);
  if (row < std::size(kFailureSourceFold)) {
    return kFailureSourceFold[row];
  }
  return DesktopApiError::client_unknown_error;
}

std::error_code fold_error(std::error_code ec, const std::error_category& system_category) {
  if (ec.category() == desktop_api_category()) {
    return ec;
  }
  if (ec.category() == failure_source_category()) {
    return make_error_code(fold_failure_source(ec.value()));
  }
  if (ec.category() == system_category) {
    return make_error_code(DesktopApiError::client_connection_failed);
  }
  return make_error_code(DesktopApiError::client_unknown_error);
}

}  // namespace orvanta::link
