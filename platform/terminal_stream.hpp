#pragma once

// Text that other people choose (device, playlist and member names) reaches
// our output. On a terminal, escape sequences in it could rewrite the user's
// screen, so there control characters are shown instead of sent: a byte
// below 0x20 other than newline and tab, and DEL, as "\x1b"; a C1 control
// (U+0080 to U+009F in UTF-8) as "\u009b". Output to pipes and files stays
// byte for byte what was written.

#include <cstdio>

namespace orvanta::platform {

class TerminalSafeStream {
 public:
  // Wraps `stream` when it is a terminal; otherwise stands for it as it is.
  explicit TerminalSafeStream(std::FILE* stream);
  // Flushes what is buffered into the wrapped stream.
  ~TerminalSafeStream();
  TerminalSafeStream(const TerminalSafeStream&) = delete;
  TerminalSafeStream& operator=(const TerminalSafeStream&) = delete;

  std::FILE* get() const noexcept { return safe_ != nullptr ? safe_ : stream_; }

 private:
  std::FILE* stream_;
  std::FILE* safe_ = nullptr;
  bool pending_c2_ = false;  // a 0xC2 lead byte waits for the next write

  static ssize_t write(void* cookie, const char* data, size_t size);
};

}  // namespace orvanta::platform
