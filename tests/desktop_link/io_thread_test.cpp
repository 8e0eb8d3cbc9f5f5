// The client as the command runner uses it: the IO thread runs the loop, the
// main thread waits on each operation through run_and_wait, and shutdown
// disconnects from the main thread before the loop stops.

#include "desktop_link/io_thread.hpp"

#include <gtest/gtest.h>

#include <pthread.h>

#include <future>
#include <memory>
#include <stdexcept>
#include <string>
#include <thread>

#include <asio/co_spawn.hpp>
#include <asio/detached.hpp>

#include "desktop_link/client_id.hpp"
#include "tests/desktop_link/link_fixture.hpp"

namespace {

using orvanta::link::DesktopApiError;
using orvanta::link::run_and_wait;
using orvanta::testing::LoopbackPeer;

asio::awaitable<std::string> thread_names() {
  char name[16] = {};
  pthread_getname_np(pthread_self(), name, sizeof name);
  co_return std::string(name) + "/" + orvanta::link::current_thread_name();
}

asio::awaitable<int> fails() {
  throw std::runtime_error("the text of the failure");
  co_return 0;
}

// Handshake, one answered request, then waits for the end of the stream.
asio::awaitable<void> desktop_client(LoopbackPeer* peer, std::shared_ptr<std::promise<bool>> saw_eof) {
  co_await peer->accept();
  for (int i = 0; i < 3; ++i) {
    auto text = co_await peer->read_frame();
    auto request = orvanta::testing::parse_request(std::move(text));
    const bool hello = request.method == "authorize_connection";
    co_await peer->write_frame(
        orvanta::testing::result_reply(request.id, hello ? orvanta::testing::hello_result : "{}"));
  }
  try {
    auto more = co_await peer->read_frame();
    static_cast<void>(more);
    saw_eof->set_value(false);
  } catch (const std::system_error& e) {
    saw_eof->set_value(e.code() == asio::error::eof);
  }
}

// The runner's members in the runner's order: the context, then the thread;
// stop before the members go.
struct Runtime {
  Runtime() {
    orvanta::link::wait_until_running(context);
    orvanta::link::ConnectSettings settings;
    settings.ports = {peer.port()};
    settings.retry_window_ms = 0;
    settings.retry_pause_ms = 0;
    client = std::make_unique<orvanta::link::PartnerApiClient>(
        orvanta::link::client_id(), orvanta::link::client_name, orvanta::link::client_version, context, nullptr,
        settings);
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
  std::unique_ptr<orvanta::link::PartnerApi> client;
};

// A failure reaches the caller with its text, and the thread goes on
// serving; a client never connected says so.
TEST(IoThread, OperationsRunOnTheNamedIoThread) {
  Runtime runtime;
  EXPECT_EQ(run_and_wait(runtime.context, thread_names()), "Orvanta CLI IO/Orvanta CLI IO");
  EXPECT_EQ(orvanta::link::current_thread_name(), "");
  try {
    static_cast<void>(run_and_wait(runtime.context, fails()));
    ADD_FAILURE() << "no exception";
  } catch (const std::runtime_error& e) {
    EXPECT_STREQ(e.what(), "the text of the failure");
  }
  std::error_code paused = run_and_wait(runtime.context, runtime.client->playback_pause());
  EXPECT_EQ(paused, DesktopApiError::client_not_connected);
}

TEST(IoThread, ConnectCallAndShutDownAcrossThreads) {
  Runtime runtime;
  auto saw_eof = std::make_shared<std::promise<bool>>();
  std::future<bool> eof = saw_eof->get_future();
  asio::co_spawn(runtime.context, desktop_client(&runtime.peer, saw_eof), asio::detached);
  EXPECT_EQ(run_and_wait(runtime.context, runtime.client->connect()), DesktopApiError::success);
  EXPECT_EQ(runtime.client->connection_state(), orvanta::link::state_connected);
  std::error_code paused = run_and_wait(runtime.context, runtime.client->playback_pause());
  EXPECT_EQ(paused.value(), 0);
  // Shutdown: the socket is closed before the loop stops, and the desktop
  // client sees the end of the stream.
  orvanta::link::run_job_and_wait(runtime.context, [&runtime] { runtime.client->disconnect(); });
  EXPECT_TRUE(eof.get());
}

}  // namespace
