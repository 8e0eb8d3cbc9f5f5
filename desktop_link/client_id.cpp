#include "desktop_link/client_id.hpp"

#include <cstdint>

namespace orvanta::link {
namespace {

// The identifier, XOR'd with the key stream below, so that it doesn't stand in
// the binary as text.
constexpr unsigned char scrambled[] = {
    0x1b, 0xf7, 0xc1, 0x5d, 0xbe, 0x63, 0x9a, 0xb1, 0xca, 0x0d, 0x8f, 0x19, 0xe2, 0x85, 0x93, 0xe6,
    0xcc, 0x64, 0x9c, 0xce, 0xca, 0xa9, 0x58, 0x55, 0xe4, 0x69, 0xf4, 0x29, 0xb6, 0xd8, 0xe0, 0x3e,
};

std::string unscramble() {
  std::uint32_t state = 0x5eed1a7e;
  std::string text;
  text.reserve(sizeof scrambled);
  for (unsigned char byte : scrambled) {
    state = state * 1103515245u + 12345u;
    text.push_back(static_cast<char>(byte ^ static_cast<unsigned char>(state >> 16)));
  }
  return text;
}

}  // namespace

const std::string& client_id() {
  static const std::string id = unscramble();
  return id;
}

}  // namespace orvanta::link
