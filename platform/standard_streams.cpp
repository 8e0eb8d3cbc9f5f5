#include "platform/standard_streams.hpp"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>

namespace orvanta::platform {

void ensure_standard_descriptors() noexcept {
  for (int fd = 0; fd <= 2; ++fd) {
    if (::fcntl(fd, F_GETFD) != -1 || errno != EBADF) continue;
    // The lowest free number is `fd` itself, since the ones below it are open.
    const int opened = ::open("/dev/null", fd == 0 ? O_RDONLY : O_WRONLY);
    if (opened >= 0 && opened != fd) ::close(opened);
  }
}

bool stdout_written() noexcept {
  errno = 0;
  const bool flushed = std::fflush(stdout) == 0;
  const int flush_error = errno;
  if (flushed && !std::ferror(stdout)) return true;
  // A write that failed before the last flush may have left no errno behind.
  if (!flushed && flush_error != 0) {
    std::fprintf(stderr, "Error: cannot write to standard output: %s\n", std::strerror(flush_error));
  } else {
    std::fprintf(stderr, "Error: cannot write to standard output\n");
  }
  return false;
}

}  // namespace orvanta::platform
