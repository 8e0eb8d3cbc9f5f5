#include "desktop_link/launcher_runner.hpp"

#include <cassert>
#include <utility>

#include <asio/dispatch.hpp>
#include <asio/error.hpp>
#include <asio/experimental/as_tuple.hpp>
#include <asio/use_awaitable.hpp>

#include "desktop_link/error_category.hpp"
#include "desktop_link/log.hpp"

namespace orvanta::link {

DesktopLauncherRunner::DesktopLauncherRunner(asio::ip::address address, std::vector<std::uint16_t> ports,
                                             std::uint64_t retry_window_ms, std::uint64_t retry_pause_ms,
                                             asio::io_context& context, std::shared_ptr<ConnectCanceller> canceller,
                                             Attempt connect)
    : address_(std::move(address)),
      ports_(std::move(ports)),
      retry_window_ms_(retry_window_ms),
      retry_pause_ms_(retry_pause_ms),
      canceller_(std::move(canceller)),
      connect_(std::move(connect)),
      pause_timer_(context) {
  assert(!ports_.empty());
}

std::shared_ptr<DesktopLauncherRunner> DesktopLauncherRunner::create(
    asio::ip::address address, std::vector<std::uint16_t> ports, std::uint64_t retry_window_ms,
    std::uint64_t retry_pause_ms, asio::io_context& context, std::shared_ptr<ConnectCanceller> canceller,
    Attempt connect) {
  std::shared_ptr<DesktopLauncherRunner> runner(new DesktopLauncherRunner(
      std::move(address), std::move(ports), retry_window_ms, retry_pause_ms, context, canceller, std::move(connect)));
  if (canceller) {
    canceller->set_cancel([weak = std::weak_ptr<DesktopLauncherRunner>(runner)] {
      if (auto strong = weak.lock()) strong->stop();
    });
  }
  return runner;
}

void DesktopLauncherRunner::stop() {
  stopped_.store(true);
  // The timer belongs to the IO thread; a cancel from elsewhere goes there.
  asio::dispatch(pause_timer_.get_executor(), [weak = weak_from_this()] {
    if (auto self = weak.lock()) self->pause_timer_.cancel();
  });
}

bool DesktopLauncherRunner::window_open(std::chrono::system_clock::time_point start) const {
  const auto elapsed =
      std::chrono::duration_cast<std::chrono::microseconds>(std::chrono::system_clock::now() - start);
  return elapsed.count() < static_cast<std::int64_t>(retry_window_ms_ * 1000);
}

asio::awaitable<std::error_code> DesktopLauncherRunner::pause() {
  pause_timer_.expires_after(std::chrono::milliseconds(retry_pause_ms_));
  auto [ec] = co_await pause_timer_.async_wait(asio::experimental::as_tuple(asio::use_awaitable));
  co_return ec;
}

asio::awaitable<std::error_code> DesktopLauncherRunner::run() {
  auto self = weak_from_this().lock();
  if (!self) throw std::bad_weak_ptr();
  const auto cancelled = make_error_code(DesktopApiError::cancelled);

  stopped_.store(false);
  const auto start = std::chrono::system_clock::now();
  for (;;) {
    auto ec = co_await connect_(endpoint(0));
    if (ec.value() == 0) co_return make_error_code(DesktopApiError::success);
    if (stopped_.load()) co_return cancelled;
    if (!window_open(start)) break;
    auto paused = co_await pause();
    // A cancelled pause is not a step boundary: it ends the run by exception.
    if (paused) throw std::system_error(paused);
    if (stopped_.load()) co_return cancelled;
  }

  std::error_code last_error = make_error_code(DesktopApiError::request_timed_out);
  for (std::size_t index = 1; index < ports_.size(); ++index) {
    // The line names the port that comes next, not the one that failed.
    log(log_level_failure, "DesktopLauncherRunner - Partner API Connection Failed, retrying at port %d",
        static_cast<int>(ports_[index]));
    auto paused = co_await pause();
    if (paused) throw std::system_error(paused);
    if (stopped_.load()) co_return cancelled;
    auto result = co_await connect_(endpoint(index));
    last_error = result;
    if (result.value() == 0) co_return make_error_code(DesktopApiError::success);
    if (stopped_.load()) co_return cancelled;
  }
  log(log_level_failure, "DesktopLauncherRunner - Partner API Connection Failed: %s", last_error.message().c_str());
  co_return make_error_code(DesktopApiError::client_connection_failed);
}

}  // namespace orvanta::link
