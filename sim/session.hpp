#pragma once

// One client connection. A reader takes requests one at a time and answers
// each (after any fault the plan asks for); a writer sends what is queued,
// so that replies and notifications from other connections never interleave
// on the socket.

#include <cstdint>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include <asio/awaitable.hpp>
#include <asio/ip/tcp.hpp>
#include <asio/steady_timer.hpp>

#include "desktop_link/message_queue.hpp"
#include "messages/envelope.hpp"
#include "sim/context.hpp"
#include "sim/faults.hpp"

namespace orvanta::sim {

class Server;

class Session : public std::enable_shared_from_this<Session> {
 public:
  // `number` counts the server's connections from 1.
  Session(asio::ip::tcp::socket socket, Server& server, std::uint32_t number);

  // Starts the reader and the writer on the socket's executor.
  void start();

  // Closes the socket and ends both coroutines. Safe to call twice.
  void close();

  // Queues one frame with `payload`.
  void send(std::string payload);

  // Whether this connection asked for the notifications of `method`.
  bool subscribed(std::string_view method) const { return subscriptions_.find(method) != subscriptions_.end(); }

 private:
  struct Outgoing {
    enum class Kind { frame, raw, close } kind = Kind::frame;
    std::string bytes;
  };

  asio::awaitable<void> read_loop();
  asio::awaitable<void> write_loop();
  // The text of a reply and the notifications that follow it.
  struct Reply {
    std::string text;
    std::vector<Notice> notices;
  };

  asio::awaitable<void> answer(messages::RequestMessage request);
  Reply reply_to(const messages::RequestMessage& request);
  static Reply spoiled_hello(HelloSpoil spoil, const std::optional<std::string>& id);
  void push(Outgoing item);

  asio::ip::tcp::socket socket_;
  Server& server_;
  asio::steady_timer delay_timer_;
  link::MessageQueue<Outgoing> outbox_;
  std::set<std::string, std::less<>> subscriptions_;
  bool authorized_ = false;
  bool closing_ = false;
  bool draining_ = false;  // the last answer is queued; no more requests are read
  std::uint32_t answered_ = 0;
  std::uint32_t number_;
};

}  // namespace orvanta::sim
