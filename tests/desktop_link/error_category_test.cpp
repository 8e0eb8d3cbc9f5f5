#include "desktop_link/error_category.hpp"

#include <gtest/gtest.h>

#include <ios>
#include <string>
#include <system_error>

#include "messages/envelope.hpp"

namespace {

using orvanta::link::DesktopApiError;
using orvanta::link::FailureSource;
using orvanta::link::desktop_api_category;
using orvanta::link::failure_source_category;
using orvanta::messages::ErrorObject;

TEST(ErrorCategory, Names) {
  EXPECT_STREQ(desktop_api_category().name(), "desktop_api");
  EXPECT_STREQ(failure_source_category().name(), "desktop_api_failure_source");
}

// Handlers print these texts to the user; each one is a contract.
TEST(ErrorCategory, DesktopApiMessages) {
  const struct {
    int value;
    const char* message;
  } rows[] = {
      {-32600, "invalid request"},
      {0, "success"},
      {1, "unknown request"},
      {2, "bad request"},
      {3, "unauthorized request"},
      {4, "internal server error"},
      {5, "server bind failure"},
      {6, "shutting down"},
      {7, "cancelled"},
      {8, "playback restricted"},
      {9, "request timed out"},
      {10, "remote playback not allowed"},
      {11, "client not connected"},
      {12, "client connection failed"},
      {13, "client unknown error"},
      {14, "version parameter mismatch"},
      {15, "method not yet implemented"},
      {16, "not logged in"},
      {17, "HTTP request failed"},
      {18, "failed to parse response JSON"},
      {19, "browser not found"},
      {20, "element ref not found (page may have changed)"},
      {21, "browser operation timed out"},
      {22, "IPC message exceeds size limit"},
      {23, "no Chromium-compatible browser found on this host"},
      {24, "failed to spawn or attach to system Chrome"},
      {25, "desktop_api_error_25"},
      {-1, "desktop_api_error_-1"},
      {999, "desktop_api_error_999"},
      {-32601, "desktop_api_error_-32601"},
  };
  for (const auto& row : rows) {
    const std::error_code ec(row.value, desktop_api_category());
    EXPECT_EQ(ec.message(), row.message) << row.value;
  }
}

TEST(ErrorCategory, FailureSourceMessages) {
  const struct {
    int value;
    const char* message;
  } rows[] = {
      {0, "success"},
      {1, "bad request"},
      {2, "unauthorized request"},
      {3, "server error"},
      {4, "network error"},
      {5, "player error"},
      {6, "playback restricted"},
      {7, "remote playback not allowed"},
      {8, "unknown error"},
      {9, "cancelled"},
      {10, "browser error"},
      {11, "desktop_api_failure_source_11"},
      {-1, "desktop_api_failure_source_-1"},
      // -32600 has a text only in the desktop_api vocabulary.
      {-32600, "desktop_api_failure_source_-32600"},
  };
  for (const auto& row : rows) {
    const std::error_code ec(row.value, failure_source_category());
    EXPECT_EQ(ec.message(), row.message) << row.value;
  }
}

TEST(ErrorCategory, EnumsConvertToTheirCategories) {
  const std::error_code api = DesktopApiError::not_logged_in;
  EXPECT_EQ(api.value(), 16);
  EXPECT_EQ(&api.category(), &desktop_api_category());
  const std::error_code source = FailureSource::network_error;
  EXPECT_EQ(source.value(), 4);
  EXPECT_EQ(&source.category(), &failure_source_category());
  // Same value, other category: not the same code.
  EXPECT_NE(std::error_code(DesktopApiError::cancelled), std::error_code(FailureSource::cancelled));
  EXPECT_EQ(static_cast<int>(DesktopApiError::invalid_request), -32600);
  // Success is value 0, and a zero code tests false whatever its category.
  EXPECT_FALSE(std::error_code(DesktopApiError::success));
  EXPECT_FALSE(std::error_code(FailureSource::success));
}

TEST(ErrorCategory, FoldTable) {
  const struct {
    int source;
    DesktopApiError folded;
  } rows[] = {
      {0, DesktopApiError::success},
      {1, DesktopApiError::client_unknown_error},
      {2, DesktopApiError::client_connection_failed},
      {3, DesktopApiError::client_connection_failed},
      {4, DesktopApiError::client_connection_failed},
      {5, DesktopApiError::client_unknown_error},
      {6, DesktopApiError::client_unknown_error},
      {7, DesktopApiError::client_unknown_error},
      {8, DesktopApiError::client_unknown_error},
      {9, DesktopApiError::cancelled},
      {10, DesktopApiError::client_unknown_error},
      {11, DesktopApiError::client_unknown_error},
      {1000, DesktopApiError::client_unknown_error},
      {-1, DesktopApiError::client_unknown_error},
      {-32600, DesktopApiError::client_unknown_error},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(orvanta::link::fold_failure_source(row.source), row.folded) << row.source;
  }
}

TEST(ErrorCategory, FoldErrorByCategory) {
  // Any category object stands in for the socket layer's system category.
  const std::error_category& socket_category = std::system_category();
  const auto fold = [&](std::error_code ec) {
    return orvanta::link::fold_error(ec, socket_category);
  };
  const std::error_code out_of_range(999, desktop_api_category());
  EXPECT_EQ(fold(out_of_range), out_of_range);
  EXPECT_EQ(fold(DesktopApiError::cancelled), DesktopApiError::cancelled);
  EXPECT_EQ(fold(FailureSource::remote_playback_not_allowed),
            DesktopApiError::client_unknown_error);
  EXPECT_EQ(fold(FailureSource::cancelled), DesktopApiError::cancelled);
  EXPECT_EQ(fold(FailureSource::network_error), DesktopApiError::client_connection_failed);
  EXPECT_EQ(fold(std::error_code(ECONNRESET, socket_category)),
            DesktopApiError::client_connection_failed);
  // A failed decode and the peer closing the stream both read as unknown.
  EXPECT_EQ(fold(std::make_error_code(std::errc::bad_message)),
            DesktopApiError::client_unknown_error);
  EXPECT_EQ(fold(std::make_error_code(std::io_errc::stream)),
            DesktopApiError::client_unknown_error);
}

TEST(ErrorCategory, ErrorFromWire) {
  const struct {
    const char* category;
    int code;
    std::error_code expected;
  } rows[] = {
      {"desktop_api", 16, DesktopApiError::not_logged_in},
      {"desktop_api", 999, std::error_code(999, desktop_api_category())},
      {"desktop_api", -32600, DesktopApiError::invalid_request},
      {"desktop_api_failure_source", 7, FailureSource::remote_playback_not_allowed},
      {"desktop_api_failure_source", 9, FailureSource::cancelled},
      {"DESKTOP_API", 16, DesktopApiError::client_connection_failed},
      {"", 16, DesktopApiError::client_connection_failed},
      {"desktop_api ", 16, DesktopApiError::client_connection_failed},
      {"desktop", 16, DesktopApiError::client_connection_failed},
      {"generic", 0, DesktopApiError::client_connection_failed},
  };
  for (const auto& row : rows) {
    ErrorObject wire;
    wire.code = row.code;
    wire.category = row.category;
    wire.message = "the peer's own text";
    EXPECT_EQ(orvanta::link::error_from_wire(wire), row.expected)
        << '"' << row.category << "\" " << row.code;
  }
}

TEST(ErrorCategory, WireMessageNeverReachesTheUser) {
  ErrorObject wire;
  wire.code = 999;
  wire.category = "desktop_api";
  wire.message = "something the peer said";
  EXPECT_EQ(orvanta::link::error_from_wire(wire).message(), "desktop_api_error_999");
  wire.category = "DESKTOP_API";
  EXPECT_EQ(orvanta::link::error_from_wire(wire).message(), "client connection failed");
}

}  // namespace
