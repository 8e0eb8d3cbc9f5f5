#include "desktop_link/error_category.hpp"

#include <gtest/gtest.h>

#include <string>
#include <system_error>


namespace {

using orvanta::link::DesktopApiError;
using orvanta::link::FailureSource;
using orvanta::link::desktop_api_category;
using orvanta::link::failure_source_category;

// Handlers print these texts to the user; each one is a contract. Values
// outside an enumeration, negative ones included, get a made-up text.
TEST(ErrorCategory, NamesAndEveryMessage) {
  EXPECT_STREQ(desktop_api_category().name(), "desktop_api");
  EXPECT_STREQ(failure_source_category().name(), "desktop_api_failure_source");
  const std::error_category& api = desktop_api_category();
  const std::error_category& source = failure_source_category();
  const struct {
    const std::error_category& category;
    int value;
    const char* message;
  } rows[] = {
      {api, -32600, "invalid request"},
      {api, 0, "success"},
      {api, 1, "unknown request"},
      {api, 2, "bad request"},
      {api, 3, "unauthorized request"},
      {api, 4, "internal server error"},
      {api, 5, "server bind failure"},
      {api, 6, "shutting down"},
      {api, 7, "cancelled"},
      {api, 8, "playback restricted"},
      {api, 9, "request timed out"},
      {api, 10, "remote playback not allowed"},
      {api, 11, "client not connected"},
      {api, 12, "client connection failed"},
      {api, 13, "client unknown error"},
      {api, 14, "version parameter mismatch"},
      {api, 15, "method not yet implemented"},
      {api, 16, "not logged in"},
      {api, 17, "HTTP request failed"},
      {api, 18, "failed to parse response JSON"},
      {api, 19, "browser not found"},
      {api, 20, "element ref not found (page may have changed)"},
      {api, 21, "browser operation timed out"},
      {api, 22, "IPC message exceeds size limit"},
      {api, 23, "no Chromium-compatible browser found on this host"},
      {api, 24, "failed to spawn or attach to system Chrome"},
      {api, 25, "desktop_api_error_25"},
      {api, -1, "desktop_api_error_-1"},
      {api, -32601, "desktop_api_error_-32601"},
      {source, 0, "success"},
      {source, 1, "bad request"},
      {source, 2, "unauthorized request"},
      {source, 3, "server error"},
      {source, 4, "network error"},
      {source, 5, "player error"},
      {source, 6, "playback restricted"},
      {source, 7, "remote playback not allowed"},
      {source, 8, "unknown error"},
      {source, 9, "cancelled"},
      {source, 10, "browser error"},
      {source, 11, "desktop_api_failure_source_11"},
      {source, -1, "desktop_api_failure_source_-1"},
      // -32600 has a text only in the desktop_api vocabulary.
      {source, -32600, "desktop_api_failure_source_-32600"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(std::error_code(row.value, row.category).message(), row.message)
        << row.category.name() << ' ' << row.value;
  }
}

// Every row of the fold table, the first value past it, and a negative one.
TEST(ErrorCategory, FoldTable) {
  using E = DesktopApiError;
  const E folded[] = {
      E::success, E::client_unknown_error, E::client_connection_failed, E::client_connection_failed,  // 0-3
      E::client_connection_failed, E::client_unknown_error, E::client_unknown_error, E::client_unknown_error,  // 4-7
      E::client_unknown_error, E::cancelled, E::client_unknown_error, E::client_unknown_error,  // 8-11
  };
  for (int source = 0; source < 12; ++source) {
    EXPECT_EQ(orvanta::link::fold_failure_source(source), folded[source]) << source;
  }
  EXPECT_EQ(orvanta::link::fold_failure_source(-1), E::client_unknown_error);
}

TEST(ErrorCategory, FoldErrorByCategory) {
  // Any category object stands in for the socket layer's system category.
  const std::error_category& socket_category = std::system_category();
  const auto fold = [&](std::error_code ec) { return orvanta::link::fold_error(ec, socket_category); };
  const std::error_code out_of_range(999, desktop_api_category());
  EXPECT_EQ(fold(out_of_range), out_of_range);
  EXPECT_EQ(fold(DesktopApiError::cancelled), DesktopApiError::cancelled);
  EXPECT_EQ(fold(FailureSource::remote_playback_not_allowed), DesktopApiError::client_unknown_error);
  EXPECT_EQ(fold(FailureSource::network_error), DesktopApiError::client_connection_failed);
  EXPECT_EQ(fold(std::error_code(ECONNRESET, socket_category)), DesktopApiError::client_connection_failed);
  // A failed decode and the peer closing the stream both read as unknown.
  EXPECT_EQ(fold(std::make_error_code(std::errc::bad_message)), DesktopApiError::client_unknown_error);
  EXPECT_EQ(fold(std::make_error_code(std::io_errc::stream)), DesktopApiError::client_unknown_error);
}

}  // namespace
