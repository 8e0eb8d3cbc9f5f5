#include "sim/bounded_file.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdint>

namespace orvanta::sim {

FileRead read_bounded_file(const std::string& path, std::string& text) {
  // Without O_NONBLOCK the open of a FIFO would wait for a writer.
  const int fd = ::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
  if (fd < 0) return FileRead::unreadable;
  struct stat info {};
  FileRead result = FileRead::ok;
  if (::fstat(fd, &info) != 0) {
    result = FileRead::unreadable;
  } else if (!S_ISREG(info.st_mode)) {
    result = FileRead::not_regular;
  } else if (static_cast<std::uintmax_t>(info.st_size) > file_size_limit) {
    result = FileRead::too_large;
  }
  char buffer[65536];
  while (result == FileRead::ok) {
    const ssize_t got = ::read(fd, buffer, sizeof buffer);
    if (got == 0) break;
    if (got < 0) {
      result = FileRead::unreadable;
    } else if (text.size() + static_cast<std::size_t>(got) > file_size_limit) {
      result = FileRead::too_large;  // it grew while we read
    } else {
      text.append(buffer, static_cast<std::size_t>(got));
    }
  }
  ::close(fd);
  return result;
}

std::string file_read_reason(FileRead result) {
  switch (result) {
    case FileRead::not_regular:
      return " is not a regular file";
    case FileRead::too_large:
      return " is larger than 16 MiB";
    case FileRead::ok:
    case FileRead::unreadable:
      break;
  }
  return {};
}

}  // namespace orvanta::sim
