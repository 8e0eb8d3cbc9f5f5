#pragma once

// PartnerApiTransport: one connection to the desktop client. It owns the
// socket, the request lock and the two message queues, and the coroutines
// around them: the reader, which sorts incoming frames into the queues, and
// the notification pump, which hands notifications to the client.
//
// Every coroutine of the transport starts by locking its weak self and holds
// that strong pointer, so the object outlives any coroutine in flight; a lock
// that fails throws std::bad_weak_ptr. A transport serves one connection: a
// new connect makes a new transport.

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <system_error>

#include <asio/awaitable.hpp>
#include <asio/io_context.hpp>
#include <asio/ip/tcp.hpp>

#include "desktop_link/async_lock.hpp"
#include "desktop_link/connect_settings.hpp"
#include "desktop_link/incoming_message.hpp"
#include "desktop_link/launcher_runner.hpp"
#include "desktop_link/message_queue.hpp"
#include "desktop_link/result.hpp"
#include "desktop_link/signal.hpp"

namespace orvanta::link {

class PartnerApiTransport : public std::enable_shared_from_this<PartnerApiTransport> {
 public:
  using NotificationHandler = std::function<void(NotificationMessage)>;

  explicit PartnerApiTransport(asio::io_context& context, ConnectSettings settings = {});
  virtual ~PartnerApiTransport() = default;
  PartnerApiTransport(const PartnerApiTransport&) = delete;
  PartnerApiTransport& operator=(const PartnerApiTransport&) = delete;

  // Finds the desktop client on the ports of the settings and authorizes
  // there; then signals true on `connection_signal` and starts the
  // notification pump, which hands each notification to `handler`. Returns
  // `success`, `cancelled` or `client_connection_failed` of desktop_api; a
  // cancel during a retry pause throws std::system_error (operation_aborted).
  virtual asio::awaitable<std::error_code> connect(std::string client_id, std::string name, std::string version,
                                                   NotificationHandler handler,
                                                   std::shared_ptr<ConnectCanceller> canceller);

  // Shuts the socket down and closes it, clears both queues (which wakes
  // their waiters with operation_aborted) and signals false. Does not wait
  // for the reader or the pump: they see the closed socket and end. Never
  // throws; failures go to the log and to `error_signal`.
  virtual void disconnect();

  // Whether the socket's descriptor is valid.
  virtual bool is_open() const;

  // Writes one request frame under the request lock and waits, without a
  // time limit, for the reply. Returns the response whose id is `id`, or:
  // the write's code; operation_aborted when the connection went down during
  // the wait; `client_unknown_error` for a response with another id (which
  // is consumed); the code of an error reply, whatever its id.
  virtual asio::awaitable<Result<ResponseMessage>> send_request(std::string payload, std::string id);

  // The connection-error decision of the reader, the pump and the send path:
  // whether to go on after `ec`. Reports failures on `error_signal`; a
  // connection error is logged and ends in disconnect().
  bool should_continue(std::error_code ec);

  Signal<bool> connection_signal;
  Signal<std::error_code> error_signal;

 private:
  std::shared_ptr<PartnerApiTransport> lock_self();
  asio::awaitable<std::error_code> authorized_attempt(asio::ip::tcp::endpoint endpoint, std::string client_id,
                                                      std::string name, std::string version);
  asio::awaitable<std::error_code> hello(std::string client_id, std::string name, std::string version);
  asio::awaitable<std::error_code> await_hello_completion();
  void start_hello_timer(asio::steady_timer& timer);
  asio::awaitable<Result<ResponseMessage>> receive_response(std::string expected_id);
  asio::awaitable<void> reader_loop(std::uint64_t generation);
  asio::awaitable<Result<ClassifiedMessage>> read_message();
  std::error_code dispatch(ClassifiedMessage message);
  asio::awaitable<void> notification_pump();

  ConnectSettings settings_;
  asio::io_context* executor_;
  asio::ip::tcp::socket socket_;
  AsyncLock request_lock_;
  MessageQueue<ClassifiedMessage> response_queue_;
  MessageQueue<NotificationMessage> notification_queue_;
  NotificationHandler notification_handler_;
  std::uint64_t socket_generation_ = 0;  // counts the sockets connected; a reader serves one
};

}  // namespace orvanta::link
