// The request path of PartnerApiTransport: one exchange at a time under the
// request lock, from the frame written to the reply taken from the queue.

#include "desktop_link/transport.hpp"

#include <utility>
#include <variant>

#include "desktop_link/deadline.hpp"
#include "desktop_link/error_category.hpp"
#include "desktop_link/frame_codec.hpp"
#include "desktop_link/log.hpp"

namespace orvanta::link {

asio::awaitable<Result<ResponseMessage>> PartnerApiTransport::send_request(std::string payload, std::string id) {
  auto self = lock_self();
  try {
    // Held until the reply has been taken, so that exchanges never overlap.
    AsyncLockGuard guard(request_lock_);
    auto locked = co_await guard.lock(endless_timeout);
    if (locked) {
      log(log_level_failure, "Partner API - Failed to acquire lock: %s", locked.message().c_str());
      co_return locked;
    }
    auto written = co_await write_frame(socket_, std::move(payload));
    if (written.value() != 0) {
      log(log_level_failure, "Partner API - Failed to send request: %s", written.message().c_str());
      static_cast<void>(should_continue(written));
      co_return written;
    }
    co_return co_await receive_response(std::move(id));
  } catch (const std::system_error& e) {
    log(log_level_failure, "Partner API - Exception (%d): %s", e.code().value(), e.code().message().c_str());
    static_cast<void>(should_continue(e.code()));
    co_return e.code();
  }
}

asio::awaitable<Result<ResponseMessage>> PartnerApiTransport::receive_response(std::string expected_id) {
  auto self = lock_self();
  auto popped = co_await response_queue_.pop(endless_timeout);
  if (!popped) co_return popped.error();

  if (auto* response = std::get_if<ResponseMessage>(&popped.value())) {
    if (response->id == expected_id) co_return std::move(*response);
    // The stray reply is gone; the real one, if it comes, fails the next
    // request the same way.
    log(log_level_failure, "Partner API - Wrong ID, Response ID: %s, Expected ID: %s", response->id.c_str(),
        expected_id.c_str());
    co_return make_error_code(DesktopApiError::client_unknown_error);
  }
  if (auto* error = std::get_if<ErrorMessage>(&popped.value())) {
    // Any error reply ends the request that waits, whatever its id.
    log(log_level_failure, "Partner API - Error in response: %s", error->message.c_str());
    co_return error_from_wire(error->error_object());
  }
  // The reader never queues a notification here.
  log(log_level_failure, "Partner API - Unexpected response type");
  co_return make_error_code(DesktopApiError::client_unknown_error);
}

}  // namespace orvanta::link
