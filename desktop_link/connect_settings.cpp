#include "desktop_link/connect_settings.hpp"

namespace orvanta::link {

std::vector<std::uint16_t> port_range(std::uint16_t begin, std::uint16_t end) {
  std::vector<std::uint16_t> ports;
  for (std::uint32_t port = begin; port < end; ++port) ports.push_back(static_cast<std::uint16_t>(port));
  return ports;
}

const asio::ip::address& desktop_ip_address() {
  static const asio::ip::address address = asio::ip::make_address_v4(desktop_address);
  return address;
}

}  // namespace orvanta::link
