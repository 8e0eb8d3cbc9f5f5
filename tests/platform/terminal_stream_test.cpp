// Terminal-safe output, on a real pseudo-terminal and on a pipe.
#include <gtest/gtest.h>

#include <fcntl.h>
#include <pty.h>
#include <unistd.h>

#include <cstdio>
#include <string>

#include "platform/terminal_stream.hpp"

namespace {

using orvanta::platform::TerminalSafeStream;

// Writes `pieces` one by one through a TerminalSafeStream around a stream on
// `fd`, and returns what arrived at `read_fd`.
std::string through(int fd, int read_fd, std::initializer_list<std::string> pieces) {
  std::FILE* stream = ::fdopen(fd, "w");
  {
    TerminalSafeStream safe(stream);
    for (const std::string& piece : pieces) std::fwrite(piece.data(), 1, piece.size(), safe.get());
  }
  std::fclose(stream);
  std::string got;
  char buffer[256];
  ssize_t n = 0;
  while ((n = ::read(read_fd, buffer, sizeof buffer)) > 0) got.append(buffer, static_cast<std::size_t>(n));
  ::close(read_fd);
  return got;
}

const std::string kName = "\x1b]0;owned\x07Kitchen\r\x7f \xc2\x9b" "2J caf\xc3\xa9\tok\n";

TEST(TerminalSafeStream, ATerminalSeesControlsEscaped) {
  int master = -1;
  int slave = -1;
  ASSERT_EQ(::openpty(&master, &slave, nullptr, nullptr, nullptr), 0);
  termios raw{};
  ::tcgetattr(slave, &raw);
  ::cfmakeraw(&raw);  // no newline translation by the line discipline
  ::tcsetattr(slave, TCSANOW, &raw);
  ::fcntl(master, F_SETFL, O_NONBLOCK);
  // The C1 control's lead byte ends one write and its second byte begins the next.
  EXPECT_EQ(through(slave, master, {kName.substr(0, 21), kName.substr(21)}),
            "\\x1b]0;owned\\x07Kitchen\\x0d\\x7f \\u009b2J caf\xc3\xa9\tok\n");
}

TEST(TerminalSafeStream, APipeGetsTheBytesAsTheyAre) {
  int fds[2];
  ASSERT_EQ(::pipe(fds), 0);
  EXPECT_EQ(through(fds[1], fds[0], {kName}), kName);
}

}  // namespace
