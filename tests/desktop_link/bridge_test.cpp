// The client as the command runner uses it: the IO thread runs the loop, the
// main thread waits on each operation through run_and_wait, and shutdown
// disconnects from the main thread before the loop stops.

#include <gtest/gtest.h>

#include <future>
#include <memory>
#include <string>

#include <asio/co_spawn.hpp>
#include <asio/detached.hpp>

#include "desktop_link/client_id.hpp"
#include "desktop_link/error_category.hpp"
#include "desktop_link/io_thread.hpp"
#include "desktop_link/partner_api_client.hpp"
#include "tests/desktop_link/link_fixture.hpp"

namespace {

using orvanta::link::DesktopApiError;
using orvanta::link::run_and_wait;
using orvanta::testing::LoopbackPeer;
using orvanta::testing::parse_request;
using orvanta::testing::result_reply;

// Handshake, one answered request, then waits for the end of the stream.
asio::awaitable<void> desktop_client(LoopbackPeer* peer, std::shared_ptr<std::promise<bool>> saw_eof) {
  co_await peer->accept();
  for (int i = 0; i < 3; ++i) {
    auto text = co_await peer->read_frame();
    auto request = parse_request(std::move(text));
    const bool hello = request.method == "authorize_connection";
    co_await peer->write_frame(result_reply(request.id, hello ? orvanta::testing::hello_result : "{}"));
  }
  try {
    auto more = co_await peer->read_frame();
    static_cast<void>(more);
    saw_eof->set_value(false);
  } catch (const std::system_error& e) {
    saw_eof->set_value(e.code() == asio::error::eof);
  }
}

// The runner's members in the runner's order, and its destructor's steps.
struct Runtime {
  explicit Runtime(bool with_peer) {
    orvanta::link::wait_until_running(context);
    orvanta::link::ConnectSettings settings;
    settings.ports = {peer.port()};
    settings.retry_window_ms = 0;
    settings.retry_pause_ms = 0;
    client = std::make_unique<orvanta::link::PartnerApiClient>(
        orvanta::link::client_id(), orvanta::link::client_name, orvanta::link::client_version, context, nullptr,
        settings);
    if (with_peer) asio::co_spawn(context, desktop_client(&peer, saw_eof), asio::detached);
  }
  ~Runtime() {
    if (client->connection_state() != orvanta::link::state_disconnected) {
      orvanta::link::run_job_and_wait(context, [this] { client->disconnect(); });
    }
    context.stop();
    client.reset();
  }

  asio::io_context context;
  orvanta::link::IoThread io_thread{context};
  LoopbackPeer peer{context};
  std::shared_ptr<std::promise<bool>> saw_eof = std::make_shared<std::promise<bool>>();
  std::unique_ptr<orvanta::link::PartnerApi> client;
};

TEST(Bridge, ConnectCallAndShutDownAcrossThreads) {
  std::future<bool> eof;
  {
    Runtime runtime(true);
    eof = runtime.saw_eof->get_future();
    EXPECT_EQ(run_and_wait(runtime.context, runtime.client->connect()), DesktopApiError::success);
    EXPECT_EQ(runtime.client->connection_state(), orvanta::link::state_connected);
    std::error_code paused = run_and_wait(runtime.context, runtime.client->playback_pause());
    EXPECT_EQ(paused.value(), 0);
    // Shutdown: the socket is closed before the loop stops, and the desktop
    // client sees the end of the stream.
    orvanta::link::run_job_and_wait(runtime.context, [&runtime] { runtime.client->disconnect(); });
    EXPECT_TRUE(eof.get());
  }
}

TEST(Bridge, NeverConnectedShutsDownQuietly) {
  Runtime runtime(false);
  std::error_code paused = run_and_wait(runtime.context, runtime.client->playback_pause());
  EXPECT_EQ(paused, DesktopApiError::client_not_connected);
}

}  // namespace
