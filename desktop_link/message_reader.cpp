// The two long-running coroutines of a PartnerApiTransport: the reader, which
// takes frames off the socket and sorts them into the queues, and the
// notification pump, which hands notifications to the client. Both end when
// should_continue() says so.

#include "desktop_link/transport.hpp"

#include <utility>
#include <variant>

#include "desktop_link/deadline.hpp"
#include "desktop_link/error_category.hpp"
#include "desktop_link/frame_codec.hpp"
#include "desktop_link/log.hpp"

namespace orvanta::link {

asio::awaitable<void> PartnerApiTransport::reader_loop(std::uint64_t generation) {
  auto self = lock_self();
  std::error_code ec;
  // A reader whose socket was closed under it, and perhaps opened again for
  // the next attempt, ends without a word: the socket is no longer its own.
  while (generation == socket_generation_ && should_continue(ec)) {
    auto message = co_await read_message();
    ec = message ? dispatch(std::move(message.value())) : message.error();
  }
}

asio::awaitable<Result<ClassifiedMessage>> PartnerApiTransport::read_message() {
  auto self = lock_self();
  try {
    auto frame = co_await read_frame(socket_, max_frame_payload);
    if (frame.ec.value() != 0) {
      // Every read failure of a frame carries these words, not only the tag's.
      log(log_level_failure, "Partner API - Failed to read message tag: %s", frame.ec.message().c_str());
      co_return frame.ec;
    }
    auto message = classify_message(frame.payload.data(), frame.payload.size());
    if (!message) {
      log(log_level_failure, "Partner API - Failed to deserialize message: %s", message.error().message().c_str());
    }
    co_return message;
  } catch (const std::system_error& e) {
    log(log_level_failure, "Partner API - Exception (%d): %s", e.code().value(), e.code().message().c_str());
    co_return e.code();
  }
}

std::error_code PartnerApiTransport::dispatch(ClassifiedMessage message) {
  if (auto* notification = std::get_if<NotificationMessage>(&message)) {
    return notification_queue_.push(std::move(*notification));
  }
  if (auto* error = std::get_if<ErrorMessage>(&message); error && !error->id) {
    // No request can claim it; it goes to the error signal instead.
    log(log_level_failure, "Partner API - Error without ID received: %s", error->message.c_str());
    return error_from_wire(error->error_object());
  }
  return response_queue_.push(std::move(message));
}

asio::awaitable<void> PartnerApiTransport::notification_pump() {
  auto self = lock_self();
  std::error_code ec;
  while (should_continue(ec)) {
    auto popped = co_await notification_queue_.pop(endless_timeout);
    if (!popped) {
      log(log_level_failure, "Partner API - Failed to pop notification: %s", popped.error().message().c_str());
      ec = popped.error();
    } else if (notification_handler_) {
      notification_handler_(std::move(popped.value()));
    }
  }
}

}  // namespace orvanta::link
