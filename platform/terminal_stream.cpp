#include "platform/terminal_stream.hpp"

#include <unistd.h>

#include <string>

namespace orvanta::platform {

TerminalSafeStream::TerminalSafeStream(std::FILE* stream) : stream_(stream) {
  if (::isatty(::fileno(stream)) == 0) return;
  cookie_io_functions_t functions{};
  functions.write = &TerminalSafeStream::write;
  safe_ = ::fopencookie(this, "w", functions);
  // Line by line, as a terminal stream is.
  if (safe_ != nullptr) std::setvbuf(safe_, nullptr, _IOLBF, BUFSIZ);
}

TerminalSafeStream::~TerminalSafeStream() {
  if (safe_ == nullptr) return;
  std::fclose(safe_);
  if (pending_c2_) std::fputc(0xC2, stream_);
  std::fflush(stream_);
}

ssize_t TerminalSafeStream::write(void* cookie, const char* data, size_t size) {
  auto* self = static_cast<TerminalSafeStream*>(cookie);
  std::string shown;
  shown.reserve(size);
  char escape[8];
  for (size_t i = 0; i < size; ++i) {
    const auto byte = static_cast<unsigned char>(data[i]);
    if (self->pending_c2_) {
      self->pending_c2_ = false;
      if (byte >= 0x80 && byte <= 0x9F) {
        std::snprintf(escape, sizeof escape, "\\u%04x", byte);
        shown += escape;
        continue;
      }
      shown += '\xC2';
    }
    if (byte == 0xC2) {
      self->pending_c2_ = true;
    } else if ((byte < 0x20 && byte != '\n' && byte != '\t') || byte == 0x7F) {
      std::snprintf(escape, sizeof escape, "\\x%02x", byte);
      shown += escape;
    } else {
      shown += static_cast<char>(byte);
    }
  }
  if (std::fwrite(shown.data(), 1, shown.size(), self->stream_) != shown.size()) return -1;
  return static_cast<ssize_t>(size);
}

}  // namespace orvanta::platform
