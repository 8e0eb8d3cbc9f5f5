// The simulator's connections, end to end over loopback: the handshake, the
// envelopes on the wire, notifications to subscribers, and each fault flag.
// The server runs on its own thread; the test talks to it with blocking
// sockets and reads exact bytes, so nothing here waits on time.
#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <thread>

#include <asio/connect.hpp>
#include <asio/io_context.hpp>
#include <asio/ip/tcp.hpp>
#include <asio/post.hpp>
#include <asio/read.hpp>
#include <asio/write.hpp>

#include "sim/fixture.hpp"
#include "sim/server.hpp"
#include "tests/support/loopback_peer.hpp"

namespace orvanta::sim {
namespace {

const std::string hello =
    R"({"jsonrpc":"2.0","method":"authorize_connection","params":{"client_id":"c","name":"Orvanta CLI","version":"1"},"id":"h"})";

std::string request(std::string_view method, std::string_view params, std::string_view id) {
  return R"({"jsonrpc":"2.0","method":")" + std::string(method) + R"(","params":)" + std::string(params) +
         R"(,"id":")" + std::string(id) + R"("})";
}

// A blocking client that frames by hand, independently of the link's code
// (as the link tests' fake desktop client does).
class Client {
 public:
  explicit Client(std::uint16_t port) : socket_(context_) {
    socket_.connect(asio::ip::tcp::endpoint(asio::ip::make_address_v4("127.0.0.1"), port));
  }

  void send(const std::string& payload) { asio::write(socket_, asio::buffer(orvanta::testing::frame(payload))); }

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
  asio::io_context context;
  std::unique_ptr<Server> server;
  std::thread thread;

  void start() {
    server = std::make_unique<Server>(context, dispatcher, faults, nullptr);
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

// A hung method gets no answer while later ones do, a delayed one still
// answers, a wrong id answers under another id, and garbage goes on the wire
// before the answer.
TEST_F(SessionTest, FaultsChangeOnlyTheirOwnMethodsAnswers) {
  ASSERT_EQ(add_hang(faults, "now_playing"), "");
  ASSERT_EQ(add_delay(faults, "queue_list=20"), "");
  ASSERT_EQ(add_wrong_id(faults, "me"), "");
  ASSERT_EQ(add_garbage(faults, "search"), "");
  ASSERT_EQ(add_garbage(faults, "tk_message_auth_policy=oversize"), "");
  start();
  Client client(port());
  client.authorize();
  client.send(request("now_playing", "{}", "never"));
  EXPECT_EQ(client.call(request("queue_list", "{}", "d")).substr(0, 28), R"({"jsonrpc":"2.0","id":"d","r)");
  EXPECT_EQ(client.call(request("me", "{}", "m1")).substr(0, 39), R"({"jsonrpc":"2.0","id":"m1-not-yours","r)");
  client.send(request("search", R"({"query":"x"})", "g1"));
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

TEST_F(SessionTest, SilentHelloIsNeverAnswered) {
  faults.silent_hello = true;
  start();
  Client client(port());
  client.send(hello);
  // Without the hello's answer every later request is still unauthorized.
  EXPECT_EQ(client.call(request("me", "{}", "m")).substr(0, 60), R"({"jsonrpc":"2.0","id":"m","error":{"code":3,"category":"desk)");
}

}  // namespace
}  // namespace orvanta::sim
