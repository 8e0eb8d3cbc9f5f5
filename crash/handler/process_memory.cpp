#include "crash/handler/process_memory.hpp"

#include <cerrno>
#include <fcntl.h>
#include <string>
#include <unistd.h>

namespace orvanta::crash {

ProcessMemory::ProcessMemory(pid_t pid) {
  std::string path = "/proc/" + std::to_string(pid) + "/mem";
  fd_ = open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (fd_ < 0) open_error_ = errno;
}

ProcessMemory::~ProcessMemory() {
  if (fd_ >= 0) close(fd_);
}

bool ProcessMemory::read(std::uint64_t address, void* buffer, std::size_t size) const {
  if (fd_ < 0) return false;
  auto* out = static_cast<char*>(buffer);
  while (size > 0) {
    // Addresses above the signed range cannot be file offsets.
    if (address > static_cast<std::uint64_t>(INT64_MAX)) return false;
    ssize_t got = pread(fd_, out, size, static_cast<off_t>(address));
    if (got < 0 && errno == EINTR) continue;
    if (got <= 0) return false;
    out += got;
    address += static_cast<std::uint64_t>(got);
    size -= static_cast<std::size_t>(got);
  }
  return true;
}

}  // namespace orvanta::crash
