#include "desktop_link/transport.hpp"

#include <utility>
#include <variant>

#include <asio/co_spawn.hpp>
#include <asio/detached.hpp>
#include <asio/error.hpp>
#include <asio/steady_timer.hpp>
#include <asio/use_awaitable.hpp>

#include "desktop_link/deadline.hpp"
#include "desktop_link/error_category.hpp"
#include "desktop_link/frame_codec.hpp"
#include "desktop_link/log.hpp"
#include "desktop_link/request_id.hpp"
#include "desktop_link/typed_call.hpp"

namespace orvanta::link {

PartnerApiTransport::PartnerApiTransport(asio::io_context& context, ConnectSettings settings)
    : settings_(std::move(settings)),
      executor_(&context),
      socket_(context),
      request_lock_(context),
      response_queue_(context),
      notification_queue_(context) {}

std::shared_ptr<PartnerApiTransport> PartnerApiTransport::lock_self() {
  auto self = weak_from_this().lock();
  if (!self) throw std::bad_weak_ptr();
  return self;
}

bool PartnerApiTransport::is_open() const { return socket_.is_open(); }

asio::awaitable<std::error_code> PartnerApiTransport::connect(std::string client_id, std::string name,
                                                              std::string version, NotificationHandler handler,
                                                              std::shared_ptr<ConnectCanceller> canceller) {
  auto self = lock_self();
  auto attempt = [self, client_id, name, version](asio::ip::tcp::endpoint endpoint) {
    return self->authorized_attempt(endpoint, client_id, name, version);
  };
  auto runner = DesktopLauncherRunner::create(settings_.address, settings_.ports, settings_.retry_window_ms,
                                              settings_.retry_pause_ms, *executor_, std::move(canceller),
                                              std::move(attempt));
  auto ec = co_await runner->run();
  if (ec.value() != 0) co_return ec;

  connection_signal.emit(true);
  notification_handler_ = std::move(handler);
  asio::co_spawn(*executor_, notification_pump(), asio::detached);
  co_return make_error_code(DesktopApiError::success);
}

void PartnerApiTransport::start_hello_timer(asio::steady_timer& timer) {
  timer.expires_after(settings_.hello_limit);
  timer.async_wait([weak = weak_from_this()](std::error_code ec) {
    if (ec == asio::error::operation_aborted) return;
    if (auto self = weak.lock()) {
      log(log_level_failure, "Partner API - Auth handshake timed out, disconnecting");
      self->disconnect();
    }
  });
}

asio::awaitable<std::error_code> PartnerApiTransport::authorized_attempt(asio::ip::tcp::endpoint endpoint,
                                                                         std::string client_id, std::string name,
                                                                         std::string version) {
  auto self = lock_self();
  try {
    // A hello that failed with a code left its socket open. Connecting it
    // again must not pass for a new connection (on Linux a second connect on
    // a connected socket succeeds): this attempt fails as already connected,
    // the catch closes the socket, and the next attempt starts afresh. So no
    // second hello goes out on one connection, and one reader runs per socket.
    if (socket_.is_open()) throw std::system_error(asio::error::already_connected);
    co_await socket_.async_connect(endpoint, asio::use_awaitable);
    // The reply to the hello comes through the response queue, so the reader
    // has to run before the hello goes out.
    asio::co_spawn(*executor_, reader_loop(++socket_generation_), asio::detached);

    asio::steady_timer timer(*executor_);
    start_hello_timer(timer);
    auto said_hello = co_await hello(std::move(client_id), std::move(name), std::move(version));
    timer.cancel();
    co_return said_hello;
  } catch (const std::system_error& e) {
    log(log_level_failure, "Partner API - Connect exception (%d): %s", e.code().value(), e.code().message().c_str());
    std::error_code ignored;
    socket_.close(ignored);
    co_return e.code();
  }
}

asio::awaitable<std::error_code> PartnerApiTransport::hello(std::string client_id, std::string name,
                                                            std::string version) {
  auto self = lock_self();
  messages::HelloRequest request;
  request.client_id = std::move(client_id);
  request.name = std::move(name);
  request.version = std::move(version);
  request.feature_identifier = "partner_api_client";
  auto answer = co_await typed_call<messages::AuthorizeConnection>(self, std::move(request), new_request_id());
  if (!answer) co_return answer.error();
  if (answer->sends_complete_notification.value_or(false)) co_return co_await await_hello_completion();
  co_return make_error_code(DesktopApiError::success);
}

// The desktop client that says so finishes the authorization with one
// notification, whatever its method. The pump does not run yet, so this pop
// owns the queue.
asio::awaitable<std::error_code> PartnerApiTransport::await_hello_completion() {
  auto self = lock_self();
  auto popped = co_await notification_queue_.pop(endless_timeout);
  if (!popped) {
    log(log_level_failure, "Partner API - Failed to pop Authorization notification: %s",
        popped.error().message().c_str());
    co_return popped.error();
  }
  const auto& params = popped->params;
  messages::EmptyResponse ignored;
  if (params && !json::try_decode(messages::empty_response_codec(), params->data(), params->size(), ignored)) {
    const auto ec = std::make_error_code(std::errc::bad_message);
    log(log_level_failure, "Partner API - Failed to decode auth Authorization notification: %s", ec.message().c_str());
    co_return ec;
  }
  co_return make_error_code(DesktopApiError::success);
}

void PartnerApiTransport::disconnect() {
  if (socket_.is_open()) {
    try {
      socket_.shutdown(asio::ip::tcp::socket::shutdown_both);
      socket_.close();
    } catch (const std::system_error& e) {
      // A peer that is already gone is no news at shutdown.
      if (e.code() != asio::error::not_connected) {
        log(log_level_failure, "Partner API - Disconnect exception (%d): %s", e.code().value(),
            e.code().message().c_str());
        error_signal.emit(e.code());
      }
    }
  }
  if (auto ec = response_queue_.clear()) {
    log(log_level_failure, "Partner API - Failed to clear response queue: %s", ec.message().c_str());
    error_signal.emit(ec);
  }
  if (auto ec = notification_queue_.clear()) {
    log(log_level_failure, "Partner API - Failed to clear notification queue: %s", ec.message().c_str());
    error_signal.emit(ec);
  }
  connection_signal.emit(false);
}

bool PartnerApiTransport::should_continue(std::error_code ec) {
  if (!socket_.is_open()) return false;
  if (ec.value() == 0) return true;
  if (ec != asio::error::eof && ec != asio::error::operation_aborted) {
    error_signal.emit(ec);
    // A text that doesn't decode (generic) or a refused frame (desktop_api)
    // never ends the connection.
    if (ec.category() != asio::system_category() && ec.category() != asio::error::get_misc_category()) return true;
    if (ec == asio::error::timed_out || ec == asio::error::try_again || ec == asio::error::would_block) return true;
  }
  log(log_level_failure, "Partner API - Connection error: %s", ec.message().c_str());
  disconnect();
  return false;
}

}  // namespace orvanta::link
