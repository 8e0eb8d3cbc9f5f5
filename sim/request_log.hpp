#pragma once

// One JSON line per request received, written as it arrives, so that a test
// can read what the CLI sent: {"method":"...","params":{...}}. The params are
// the bytes of the request as received. The request id is left out: it is
// random and would keep lines from being compared whole. Numbered, each line
// also says on which connection the request came, counting from 1:
// {"method":"...","params":{...},"connection":2}.

#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>

namespace orvanta::sim {

class RequestLog {
 public:
  RequestLog() = default;
  RequestLog(const RequestLog&) = delete;
  RequestLog& operator=(const RequestLog&) = delete;
  ~RequestLog();

  // Opens `path` for appending. Returns false when it can't be opened.
  [[nodiscard]] bool open(const std::string& path, bool numbered = false);

  // Writes and flushes one line; does nothing when no file is open.
  void record(std::string_view method, std::string_view params, std::uint32_t connection);

 private:
  std::FILE* file_ = nullptr;
  bool numbered_ = false;
};

}  // namespace orvanta::sim
