#pragma once

// A PartnerApiClient on the test's own io_context, pointed at a fake desktop
// client on a loopback port of its own, with the log lines and the error
// signal recorded. The peer's side of each test is a coroutine that the test
// hands to serve(); the test then drives the loop until what it waits for
// has happened.

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <exception>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <asio/co_spawn.hpp>

#include "desktop_link/error_category.hpp"
#include "desktop_link/log.hpp"
#include "desktop_link/partner_api_client.hpp"
#include "json/codec.hpp"
#include "messages/envelope.hpp"
#include "tests/support/loopback_peer.hpp"

namespace orvanta::testing {

// One request as the peer received it.
struct PeerRequest {
  std::string text;
  std::string method;
  std::string params;
  std::string id;
};

inline PeerRequest parse_request(std::string text) {
  auto message = json::decode(messages::request_message_codec(), text);
  return {std::move(text), message.method, std::string(message.params.view()), message.id.value_or("")};
}

inline std::string result_reply(std::string_view id, std::string_view result) {
  return std::string(R"({"jsonrpc":"2.0","id":")") + std::string(id) + R"(","result":)" + std::string(result) + "}";
}

inline std::string error_reply(std::string_view id, int code, std::string_view category) {
  return std::string(R"({"jsonrpc":"2.0","id":")") + std::string(id) + R"(","error":{"code":)" +
         std::to_string(code) + R"(,"category":")" + std::string(category) + R"(","message":"peer says no"}})";
}

inline std::string notification(std::string_view method, std::string_view params) {
  std::string text = R"({"jsonrpc":"2.0","method":")" + std::string(method) + "\"";
  if (!params.empty()) text += R"(,"params":)" + std::string(params);
  return text + "}";
}

inline constexpr std::string_view hello_result = R"({"orvanta_app_version":"9.9.9"})";

// Public throughout, so that the peer scripts (captureless coroutine lambdas
// given a LinkTest*) can reach it.
class LinkTest : public ::testing::Test {
 public:
  LinkTest() : sink([this](const link::LogRecord& r) { log_lines.emplace_back(r.text); }) { make_client(); }

  ~LinkTest() override {
    client.reset();
    if (peer_failure) {
      try {
        std::rethrow_exception(peer_failure);
      } catch (const std::exception& e) {
        ADD_FAILURE() << "peer: " << e.what();
      }
    }
  }

  // Builds the client, again after a change of `hello_limit` or `retry_window_ms`.
  void make_client() {
    client = std::make_unique<link::PartnerApiClient>("test-client", "Orvanta CLI", "1.2.93.667", context, nullptr,
                                                      settings());
    errors_connection = client->on_error(
        [this](std::error_code ec, std::string operation) { errors.emplace_back(ec, std::move(operation)); });
  }

  // One port, no pause, and by default no retry window: a refused attempt
  // fails at once.
  link::ConnectSettings settings() {
    link::ConnectSettings s;
    s.address = asio::ip::make_address_v4("127.0.0.1");
    s.ports = {peer.port()};
    s.retry_window_ms = retry_window_ms;
    s.retry_pause_ms = 0;
    s.hello_limit = hello_limit;
    return s;
  }

  // Runs `operation` to its end on the test's loop.
  template <class T>
  T await(asio::awaitable<T> operation) {
    std::optional<T> result;
    std::exception_ptr failure;
    asio::co_spawn(context, std::move(operation), [&](std::exception_ptr e, T value) {
      failure = e;
      result = std::move(value);
    });
    EXPECT_TRUE(drive_until(context, [&] { return result.has_value(); }));
    if (failure) std::rethrow_exception(failure);
    return std::move(*result);
  }

  void serve(asio::awaitable<void> script) {
    peer_done = false;
    asio::co_spawn(context, std::move(script), [this](std::exception_ptr e) {
      if (e) peer_failure = e;
      peer_done = true;
    });
  }

  void drive(const std::function<bool()>& done) { EXPECT_TRUE(drive_until(context, done)); }

  // The peer reads the next request into `seen` and answers it with
  // `reply(id)`.
  void respond(std::function<std::string(const std::string&)> reply) {
    serve([](LinkTest* t, std::function<std::string(const std::string&)> r) -> asio::awaitable<void> {
      auto request = co_await t->next_request();
      t->seen.push_back(request);
      co_await t->peer.write_frame(r(request.id));
    }(this, std::move(reply)));
  }
  void respond_result(std::string result) {
    respond([result](const std::string& id) { return result_reply(id, result); });
  }

  // The peer writes `frames` unasked, and the loop runs until they are out.
  void push(std::vector<std::string> frames) {
    serve([](LinkTest* t, std::vector<std::string> texts) -> asio::awaitable<void> {
      for (auto& text : texts) co_await t->peer.write_frame(std::move(text));
    }(this, std::move(frames)));
    drive([this] { return peer_done; });
  }

  bool logged(std::string_view line) const {
    return std::find(log_lines.begin(), log_lines.end(), line) != log_lines.end();
  }

  asio::awaitable<PeerRequest> next_request() {
    auto text = co_await peer.read_frame();
    co_return parse_request(std::move(text));
  }

  // Reads until the client closes the connection, and keeps how the read
  // ended; a frame read instead is a failure of the test.
  asio::awaitable<void> await_close() {
    try {
      auto unexpected = co_await peer.read_frame();
      ADD_FAILURE() << "peer read a frame: " << unexpected;
    } catch (const std::system_error& e) {
      peer_closed_with = e.code();
    }
  }

  // Accepts the client and answers its hello with the result `answer`. The
  // handshake's requests are kept in `seen` too.
  asio::awaitable<void> answer_hello(std::string answer) {
    co_await peer.accept();
    auto hello = co_await next_request();
    seen.push_back(hello);
    co_await peer.write_frame(result_reply(hello.id, answer));
  }

  // Then answers the login-state subscription with `{}`.
  asio::awaitable<void> handshake(std::string hello_answer) {
    co_await answer_hello(std::move(hello_answer));
    auto subscription = co_await next_request();
    seen.push_back(subscription);
    co_await peer.write_frame(result_reply(subscription.id, "{}"));
  }

  void connect_client() {
    serve(handshake(std::string(hello_result)));
    EXPECT_EQ(await(client->connect()), link::DesktopApiError::success);
    drive([this] { return peer_done; });
    ASSERT_EQ(client->connection_state(), link::state_connected);
    log_lines.clear();
    seen.clear();
  }

  std::chrono::milliseconds hello_limit{1000};
  std::uint64_t retry_window_ms = 0;
  asio::io_context context;
  LoopbackPeer peer{context};
  std::vector<std::string> log_lines;
  link::ScopedLogSink sink;
  std::unique_ptr<link::PartnerApiClient> client;
  std::vector<std::pair<std::error_code, std::string>> errors;
  link::ScopedConnection errors_connection;
  bool peer_done = false;
  std::exception_ptr peer_failure;
  std::optional<std::error_code> peer_closed_with;
  std::vector<PeerRequest> seen;  // the requests the peer read, in order
};

}  // namespace orvanta::testing
