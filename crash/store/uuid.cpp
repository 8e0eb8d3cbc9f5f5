#include "crash/store/uuid.hpp"

#include <array>
#include <cstdint>
#include <cstdio>
#include <ctime>
#include <fcntl.h>
#include <sys/random.h>
#include <unistd.h>

namespace orvanta::crash {
namespace {

using Bytes = std::array<std::uint8_t, 16>;

bool read_urandom(Bytes& bytes) {
  int fd = open("/dev/urandom", O_RDONLY | O_CLOEXEC);
  if (fd < 0) return false;
  ssize_t got = read(fd, bytes.data(), bytes.size());
  close(fd);
  return got == static_cast<ssize_t>(bytes.size());
}

void fill_from_clock(Bytes& bytes) {
  timespec now{};
  clock_gettime(CLOCK_REALTIME, &now);
  std::uint64_t a = static_cast<std::uint64_t>(now.tv_sec) * 1000000000u +
                    static_cast<std::uint64_t>(now.tv_nsec);
  std::uint64_t b = static_cast<std::uint64_t>(getpid()) * 0x9e3779b97f4a7c15u ^ a;
  for (int i = 0; i < 8; ++i) {
    bytes[static_cast<std::size_t>(i)] = static_cast<std::uint8_t>(a >> (8 * i));
    bytes[static_cast<std::size_t>(i) + 8] = static_cast<std::uint8_t>(b >> (8 * i));
  }
}

}  // namespace

std::string random_uuid() {
  Bytes bytes{};
  if (getrandom(bytes.data(), bytes.size(), 0) != static_cast<ssize_t>(bytes.size()) &&
      !read_urandom(bytes)) {
    fill_from_clock(bytes);
  }
  bytes[6] = static_cast<std::uint8_t>((bytes[6] & 0x0f) | 0x40);  // version 4
  bytes[8] = static_cast<std::uint8_t>((bytes[8] & 0x3f) | 0x80);  // RFC 4122 variant

  std::string text;
  text.reserve(36);
  static constexpr char kHex[] = "0123456789abcdef";
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    if (i == 4 || i == 6 || i == 8 || i == 10) text.push_back('-');
    text.push_back(kHex[bytes[i] >> 4]);
    text.push_back(kHex[bytes[i] & 0x0f]);
  }
  return text;
}

}  // namespace orvanta::crash
