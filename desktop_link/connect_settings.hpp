#pragma once

// Where the desktop client listens and how long we keep trying. The program
// always uses the defaults; tests point a client at their own loopback port
// with shorter times.

#include <chrono>
#include <cstdint>
#include <vector>

#include <asio/ip/address.hpp>

namespace orvanta::link {

inline constexpr const char* desktop_address = "127.0.0.1";
inline constexpr std::uint16_t desktop_first_port = 7768;
inline constexpr std::uint16_t desktop_end_port = 7777;  // not included
inline constexpr std::uint64_t desktop_retry_window_ms = 5000;
inline constexpr std::uint64_t desktop_retry_pause_ms = 250;
inline constexpr std::chrono::milliseconds handshake_limit{1000};

// The ports from begin up to, not including, end, in rising order.
std::vector<std::uint16_t> port_range(std::uint16_t begin, std::uint16_t end);

// The loopback address, parsed once.
const asio::ip::address& desktop_ip_address();

struct ConnectSettings {
  asio::ip::address address = desktop_ip_address();
  std::vector<std::uint16_t> ports = port_range(desktop_first_port, desktop_end_port);
  std::uint64_t retry_window_ms = desktop_retry_window_ms;
  std::uint64_t retry_pause_ms = desktop_retry_pause_ms;
  // How long the desktop client has to answer the hello.
  std::chrono::milliseconds hello_limit = handshake_limit;
};

}  // namespace orvanta::link
