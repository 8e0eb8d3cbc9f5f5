#pragma once

// The listening side: one acceptor per port on 127.0.0.1, a Session per
// accepted connection, all on one io_context thread and all sharing one
// state through the dispatcher. Connections are served concurrently.

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <asio/awaitable.hpp>
#include <asio/io_context.hpp>
#include <asio/ip/tcp.hpp>

#include "sim/context.hpp"
#include "sim/dispatcher.hpp"
#include "sim/faults.hpp"
#include "sim/request_log.hpp"

namespace orvanta::sim {

class Session;

class Server {
 public:
  // `log` may be null. All references must outlive the server.
  Server(asio::io_context& context, Dispatcher& dispatcher, const FaultPlan& faults, RequestLog* log);
  Server(const Server&) = delete;
  Server& operator=(const Server&) = delete;

  // Binds and listens on each port (0 picks a free one). Returns an empty
  // string, or the reason for the first port that failed.
  std::string listen(const std::vector<std::uint16_t>& ports);

  // The ports actually listened on, in the order given.
  const std::vector<std::uint16_t>& ports() const noexcept { return ports_; }

  // Starts accepting.
  void start();

  // Stops accepting and closes every connection; io_context::run returns
  // once the coroutines have ended.
  void stop();

  Dispatcher& dispatcher() noexcept { return dispatcher_; }
  const FaultPlan& faults() const noexcept { return faults_; }
  RequestLog* log() noexcept { return log_; }

  // Sends each notice: to the caller, or to every connection subscribed.
  void deliver(const std::vector<Notice>& notices, Session& caller);

  // True for the first hello of the server's life only, when the plan says
  // to spoil it.
  bool spoils_this_hello() noexcept { return faults_.spoil_first_hello && !std::exchange(hello_seen_, true); }

 private:
  asio::awaitable<void> accept_loop(asio::ip::tcp::acceptor* acceptor);

  asio::io_context& context_;
  Dispatcher& dispatcher_;
  const FaultPlan& faults_;
  RequestLog* log_;
  std::vector<std::unique_ptr<asio::ip::tcp::acceptor>> acceptors_;
  std::vector<std::uint16_t> ports_;
  std::vector<std::weak_ptr<Session>> sessions_;
  std::uint32_t connections_ = 0;  // accepted so far
  bool hello_seen_ = false;
};

// The completion of every detached coroutine of the simulator: an exception
// that ended one is reported on stderr and dropped with it.
void report_coroutine_end(std::exception_ptr error);

}  // namespace orvanta::sim
