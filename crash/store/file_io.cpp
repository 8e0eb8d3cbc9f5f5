#include "crash/store/file_io.hpp"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

namespace orvanta::crash {

std::optional<std::string> read_file(const std::string& path, bool follow_link) {
  int fd = open(path.c_str(), O_RDONLY | O_CLOEXEC | (follow_link ? 0 : O_NOFOLLOW));
  if (fd < 0) return std::nullopt;
  std::string contents;
  char buffer[8192];
  for (;;) {
    ssize_t got = read(fd, buffer, sizeof buffer);
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) {
      close(fd);
      return std::nullopt;
    }
    if (got == 0) break;
    contents.append(buffer, static_cast<std::size_t>(got));
  }
  close(fd);
  return contents;
}

namespace {

bool write_all(int fd, std::string_view contents) {
  while (!contents.empty()) {
    ssize_t put = write(fd, contents.data(), contents.size());
    if (put < 0 && errno == EINTR) continue;
    if (put <= 0) return false;
    contents.remove_prefix(static_cast<std::size_t>(put));
  }
  return true;
}

}  // namespace

bool write_file_atomically(const std::string& temporary_path, const std::string& path,
                           std::string_view contents) {
  // A leftover of an earlier attempt goes first; whatever is found at the
  // name after that (a link planted meanwhile) makes the open fail.
  unlink(temporary_path.c_str());
  int fd = open(temporary_path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600);
  if (fd < 0) return false;
  bool written = write_all(fd, contents) && fsync(fd) == 0;
  written = close(fd) == 0 && written;
  if (written && std::rename(temporary_path.c_str(), path.c_str()) == 0) return true;
  unlink(temporary_path.c_str());
  return false;
}

}  // namespace orvanta::crash
