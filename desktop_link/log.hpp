#pragma once

// The one log facility of the link. `log` formats a line and hands a record
// of it to every sink of the calling thread's logger. The program itself
// registers no sink, so the records are built and dropped; tests register one
// to look at the lines that matter.
//
// Levels: 2 for failures, 4 for state changes.

#include <chrono>
#include <cstddef>
#include <functional>
#include <mutex>
#include <string_view>
#include <thread>
#include <utility>
#include <vector>

namespace orvanta::link {

inline constexpr int log_level_failure = 2;
inline constexpr int log_level_state = 4;

struct LogRecord {
  std::chrono::system_clock::time_point time;
  int level = 0;
  std::string_view tag;   // always empty
  std::string_view file;  // always "/f"
  int line = 0;
  std::string_view text;  // valid for the length of the sink call
  std::thread::id thread;
};

using LogSink = std::function<void(const LogRecord&)>;

// The sinks of one thread. A sink filters by level itself if it wants to.
class Logger {
 public:
  // Returns a handle for remove_sink.
  std::size_t add_sink(LogSink sink);
  void remove_sink(std::size_t handle);
  void write(const LogRecord& record);

 private:
  // Recursive, so that a sink may log.
  std::recursive_mutex mutex_;
  std::vector<std::pair<std::size_t, LogSink>> sinks_;
  std::size_t next_handle_ = 1;
};

// The logger of the calling thread.
Logger& thread_logger();

// printf-style; a text longer than 255 bytes is formatted again on the heap.
// Never throws: a failure to format or to allocate drops the line.
void log(int level, const char* format, ...) noexcept __attribute__((format(printf, 2, 3)));

// Registers a sink on the calling thread's logger for the length of a scope.
class ScopedLogSink {
 public:
  explicit ScopedLogSink(LogSink sink) : handle_(thread_logger().add_sink(std::move(sink))) {}
  ~ScopedLogSink() { thread_logger().remove_sink(handle_); }
  ScopedLogSink(const ScopedLogSink&) = delete;
  ScopedLogSink& operator=(const ScopedLogSink&) = delete;

 private:
  std::size_t handle_;
};

}  // namespace orvanta::link
