#pragma once

// The retry schedule around one connection attempt. The desktop client
// listens on one of a few loopback ports and may need a few seconds before it
// is ready, so the first port is tried again and again for a window of time,
// then each other port once. The runner knows nothing of sockets: an attempt
// is a function it is given.

#include <atomic>
#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <system_error>
#include <vector>

#include <asio/awaitable.hpp>
#include <asio/io_context.hpp>
#include <asio/ip/address.hpp>
#include <asio/ip/tcp.hpp>
#include <asio/steady_timer.hpp>

#include "desktop_link/connect_settings.hpp"

namespace orvanta::link {

// Stops a connection attempt in progress. Made for each attempt; the cancel
// function holds only a weak pointer, so a cancel after the attempt ended does
// nothing. cancel() may be called from any thread.
class ConnectCanceller {
 public:
  void cancel() const {
    if (cancel_) cancel_();
  }
  void set_cancel(std::function<void()> cancel) { cancel_ = std::move(cancel); }

 private:
  std::function<void()> cancel_;
};

class DesktopLauncherRunner : public std::enable_shared_from_this<DesktopLauncherRunner> {
 public:
  using Attempt = std::function<asio::awaitable<std::error_code>(asio::ip::tcp::endpoint)>;

  // Makes a runner and installs its cancel function in `canceller`. `ports`
  // must not be empty.
  static std::shared_ptr<DesktopLauncherRunner> create(asio::ip::address address, std::vector<std::uint16_t> ports,
                                                       std::uint64_t retry_window_ms, std::uint64_t retry_pause_ms,
                                                       asio::io_context& context,
                                                       std::shared_ptr<ConnectCanceller> canceller, Attempt connect);

  // Tries the first port until it answers or the window is over, then every
  // other port once. Returns `success`, `cancelled` (a cancel seen between
  // steps) or `client_connection_failed` of desktop_api; the attempts' own
  // codes only reach the log. A cancel during a pause ends the run with the
  // timer's std::system_error (operation_aborted).
  asio::awaitable<std::error_code> run();

  // Sets the stop flag and cancels a pending pause. Any thread.
  void stop();

 private:
  DesktopLauncherRunner(asio::ip::address address, std::vector<std::uint16_t> ports, std::uint64_t retry_window_ms,
                        std::uint64_t retry_pause_ms, asio::io_context& context,
                        std::shared_ptr<ConnectCanceller> canceller, Attempt connect);

  // The code of the pause: zero, or operation_aborted when stop() cut it.
  asio::awaitable<std::error_code> pause();
  asio::ip::tcp::endpoint endpoint(std::size_t index) const { return {address_, ports_[index]}; }
  bool window_open(std::chrono::system_clock::time_point start) const;

  asio::ip::address address_;
  std::vector<std::uint16_t> ports_;
  std::uint64_t retry_window_ms_;
  std::uint64_t retry_pause_ms_;
  std::shared_ptr<ConnectCanceller> canceller_;
  Attempt connect_;
  asio::steady_timer pause_timer_;
  std::atomic<bool> stopped_{false};
};

}  // namespace orvanta::link
