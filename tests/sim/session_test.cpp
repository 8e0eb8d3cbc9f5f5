// The simulator's connections, end to end over loopback: the handshake, the
// envelopes on the wire, notifications to subscribers, and each fault flag.
// The server runs on its own thread; the test talks to it with blocking
// sockets and reads exact bytes, so nothing here waits on time.
#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <thread>

#include <asio/connect.hpp>
#include <asio/io_context.hpp>
#include <asio/ip/tcp.hpp>
#include <asio/post.hpp>
#include <asio/read.hpp>
#include <asio/write.hpp>

#include "sim/fixture.hpp"
#include "sim/server.hpp"

namespace orvanta::sim {
namespace {

const std::string hello =
    R"({"jsonrpc":"2.0","method":"authorize_connection","params":{"client_id":"c","name":"Orvanta CLI","version":"1"},"id":"h"})";

std::string request(std::string_view method, std::string_view params, std::string_view id) {
  return R"({"jsonrpc":"2.0","method":")" + std::string(method) + R"(","params":)" + std::string(params) +
         R"(,"id":")" + std::string(id) + R"("})";
}

// A blocking client that frames by hand, independently of the link's code.
class Client {
 public:
  explicit Client(std::uint16_t port) : socket_(context_) {
    socket_.connect(asio::ip::tcp::endpoint(asio::ip::make_address_v4("127.0.0.1"), port));
  }

  void send(const std::string& payload) {
    std::string bytes(5, '\0');
    bytes[0] = '\x1d';
    const auto length = static_cast<std::uint32_t>(payload.size());
    std::memcpy(bytes.data() + 1, &length, 4);
    asio::write(socket_, asio::buffer(bytes + payload));
  }

  std::string raw(std::size_t n) {
    std::string bytes(n, '\0');
    asio::read(socket_, asio::buffer(bytes));
    return bytes;
  }

  std::string receive() {
    const std::string header = raw(5);
    EXPECT_EQ(header[0], '\x1d');
    std::uint32_t length = 0;
    std::memcpy(&length, header.data() + 1, 4);
    return raw(length);
  }

  std::string call(const std::string& payload) {
    send(payload);
    return receive();
  }

  void authorize() { EXPECT_EQ(call(hello), R"({"jsonrpc":"2.0","id":"h","result":{"orvanta_app_version":"1.2.58.411"}})"); }

  // True when the server has closed the connection.
  bool closed() {
    char byte = 0;
    std::error_code ec;
    asio::read(socket_, asio::buffer(&byte, 1), ec);
    return ec == asio::error::eof;
  }

 private:
  asio::io_context context_;
  asio::ip::tcp::socket socket_;
};

class SessionTest : public ::testing::Test {
 protected:
  SimState state = default_state();
  Dispatcher dispatcher{state};
  FaultPlan faults;
  RequestLog log;
  asio::io_context context;
  std::unique_ptr<Server> server;
  std::thread thread;

  void start(RequestLog* request_log = nullptr) {
    server = std::make_unique<Server>(context, dispatcher, faults, request_log);
    ASSERT_EQ(server->listen({0}), "");
    server->start();
    thread = std::thread([this] { context.run(); });
  }

  std::uint16_t port() const { return server->ports().front(); }

  void stop() {
    if (!thread.joinable()) return;
    asio::post(context, [this] { server->stop(); });
    thread.join();
  }

  void TearDown() override { stop(); }
};

TEST_F(SessionTest, HandshakeThenRequestsAnsweredInTheClientsEnvelope) {
  start();
  Client client(port());
  EXPECT_EQ(client.call(request("me", "{}", "1")),
            R"({"jsonrpc":"2.0","id":"1","error":{"code":3,"category":"desktop_api","message":"Send authorize_connection before me"}})");
  client.authorize();
  EXPECT_EQ(client.call(request("login_state_subscription", "{}", "2")), R"({"jsonrpc":"2.0","id":"2","result":{}})");
  EXPECT_EQ(client.receive(), R"({"jsonrpc":"2.0","method":"login_state_subscription","params":{"logged_in":true}})");
  EXPECT_EQ(client.call(request("queue_remove", "{}", "3")),
            R"({"jsonrpc":"2.0","id":"3","error":{"code":2,"category":"desktop_api","message":"The parameters of queue_remove don't fit: Missing required field(s) at byte 2"}})");
  EXPECT_EQ(client.call(request("rewind", "{}", "4")),
            R"({"jsonrpc":"2.0","id":"4","error":{"code":1,"category":"desktop_api","message":"Unknown method 'rewind'"}})");
  EXPECT_EQ(client.call(R"({"jsonrpc":"2.0","id":"5"})"),
            R"({"jsonrpc":"2.0","error":{"code":-32600,"category":"desktop_api","message":"The message is not a Partner API request"}})");
  // A stray byte between frames is skipped.
  client.send("");
  EXPECT_EQ(client.call(request("tk_message_auth_policy", "{}", "6")), R"({"jsonrpc":"2.0","id":"6","result":{"enabled":false}})");
}

TEST_F(SessionTest, CompletingNotificationFollowsTheHello) {
  dispatcher.set_complete_notification(true);
  start();
  Client client(port());
  EXPECT_EQ(client.call(hello),
            R"({"jsonrpc":"2.0","id":"h","result":{"orvanta_app_version":"1.2.58.411","sends_complete_notification":true}})");
  EXPECT_EQ(client.receive(), R"({"jsonrpc":"2.0","method":"authorize_connection","params":{}})");
}

TEST_F(SessionTest, ChangesReachOtherSubscribedConnections) {
  start();
  Client watcher(port());
  Client actor(port());
  watcher.authorize();
  actor.authorize();
  EXPECT_EQ(watcher.call(request("connect_active_device_subscription", "{}", "s")), R"({"jsonrpc":"2.0","id":"s","result":{}})");
  EXPECT_EQ(watcher.receive(),
            R"({"jsonrpc":"2.0","method":"connect_active_device_subscription","params":{"active_device_id":"4c1e9a7b2d6f","is_local":true}})");
  EXPECT_EQ(actor.call(request("connect_transfer", R"({"device_id":"Hallway Phone"})", "t")), R"({"jsonrpc":"2.0","id":"t","result":{}})");
  EXPECT_EQ(watcher.receive(),
            R"({"jsonrpc":"2.0","method":"connect_active_device_subscription","params":{"active_device_id":"71f3c8e0a4b2","is_local":false}})");
  // The actor never subscribed, so its next frame is its own next reply.
  EXPECT_EQ(actor.call(request("tk_message_auth_policy", "{}", "u")), R"({"jsonrpc":"2.0","id":"u","result":{"enabled":false}})");
}

TEST_F(SessionTest, InjectedFailureReplacesTheAnswer) {
  ASSERT_EQ(add_fail(faults, "playback_pause=16"), "");
  start();
  Client client(port());
  client.authorize();
  EXPECT_EQ(client.call(request("playback_pause", "{}", "p")),
            R"({"jsonrpc":"2.0","id":"p","error":{"code":16,"category":"desktop_api","message":"injected failure: not logged in"}})");
  EXPECT_TRUE(state.player.is_playing);
}

TEST_F(SessionTest, HungMethodGetsNoAnswerWhileOthersDo) {
  ASSERT_EQ(add_hang(faults, "now_playing"), "");
  start();
  Client client(port());
  client.authorize();
  client.send(request("now_playing", "{}", "never"));
  EXPECT_EQ(client.call(request("tk_message_auth_policy", "{}", "next")), R"({"jsonrpc":"2.0","id":"next","result":{"enabled":false}})");
}

TEST_F(SessionTest, DelayedMethodStillAnswers) {
  ASSERT_EQ(add_delay(faults, "tk_message_auth_policy=20"), "");
  start();
  Client client(port());
  client.authorize();
  EXPECT_EQ(client.call(request("tk_message_auth_policy", "{}", "d")), R"({"jsonrpc":"2.0","id":"d","result":{"enabled":false}})");
}

TEST_F(SessionTest, WrongIdAnswersUnderAnotherId) {
  ASSERT_EQ(add_wrong_id(faults, "me"), "");
  start();
  Client client(port());
  client.authorize();
  EXPECT_EQ(client.call(request("me", "{}", "m1")).substr(0, 39), R"({"jsonrpc":"2.0","id":"m1-not-yours","r)");
}

TEST_F(SessionTest, GarbageGoesBeforeTheAnswer) {
  ASSERT_EQ(add_garbage(faults, "me"), "");
  ASSERT_EQ(add_garbage(faults, "tk_message_auth_policy=oversize"), "");
  start();
  Client client(port());
  client.authorize();
  client.send(request("me", "{}", "g1"));
  EXPECT_EQ(client.raw(1), std::string(1, '\0'));
  EXPECT_EQ(client.receive().substr(0, 29), R"({"jsonrpc":"2.0","id":"g1","r)");
  client.send(request("tk_message_auth_policy", "{}", "g2"));
  EXPECT_EQ(client.raw(5), std::string("\x1d\x00\x00\x40\x00", 5));
  EXPECT_EQ(client.receive(), R"({"jsonrpc":"2.0","id":"g2","result":{"enabled":false}})");
}

TEST_F(SessionTest, CloseAfterDropsTheConnectionOnceTheCountIsAnswered) {
  faults.close_after = 2;
  start();
  Client client(port());
  client.authorize();
  EXPECT_EQ(client.call(request("tk_message_auth_policy", "{}", "1")), R"({"jsonrpc":"2.0","id":"1","result":{"enabled":false}})");
  EXPECT_TRUE(client.closed());
  // Each connection counts for itself.
  Client next(port());
  next.authorize();
}

TEST_F(SessionTest, RejectedHelloLeavesTheClientUnauthorized) {
  faults.reject_hello = true;
  start();
  Client client(port());
  EXPECT_EQ(client.call(hello),
            R"({"jsonrpc":"2.0","id":"h","error":{"code":3,"category":"desktop_api","message":"This desktop client does not accept connections from the CLI"}})");
  EXPECT_EQ(client.call(request("me", "{}", "m")).substr(0, 60), R"({"jsonrpc":"2.0","id":"m","error":{"code":3,"category":"desk)");
}

TEST_F(SessionTest, SilentHelloIsNeverAnswered) {
  faults.silent_hello = true;
  start();
  Client client(port());
  client.send(hello);
  // Without the hello's answer every later request is still unauthorized.
  EXPECT_EQ(client.call(request("me", "{}", "m")).substr(0, 60), R"({"jsonrpc":"2.0","id":"m","error":{"code":3,"category":"desk)");
}

TEST_F(SessionTest, RequestLogHasOneLinePerRequestWithParamsAsReceived) {
  const std::string path = (std::filesystem::temp_directory_path() / "orvanta_sim_session_log.jsonl").string();
  std::filesystem::remove(path);
  ASSERT_TRUE(log.open(path));
  start(&log);
  Client client(port());
  client.authorize();
  client.call(request("search", R"({ "query" : "moor", "limit":2 })", "s"));
  stop();
  std::ifstream in(path);
  std::string line;
  std::vector<std::string> lines;
  while (std::getline(in, line)) lines.push_back(line);
  EXPECT_EQ(lines, (std::vector<std::string>{
                       R"({"method":"authorize_connection","params":{"client_id":"c","name":"Orvanta CLI","version":"1"}})",
                       R"({"method":"search","params":{ "query" : "moor", "limit":2 }})"}));
  std::filesystem::remove(path);
}

}  // namespace
}  // namespace orvanta::sim
