#include "desktop_link/log.hpp"

#include <cstdarg>
#include <cstdio>
#include <string>

namespace orvanta::link {

std::size_t Logger::add_sink(LogSink sink) {
  std::lock_guard lock(mutex_);
  const std::size_t handle = next_handle_++;
  sinks_.emplace_back(handle, std::move(sink));
  return handle;
}

void Logger::remove_sink(std::size_t handle) {
  std::lock_guard lock(mutex_);
  std::erase_if(sinks_, [handle](const auto& entry) { return entry.first == handle; });
}

void Logger::write(const LogRecord& record) {
  std::lock_guard lock(mutex_);
  // A sink may add or remove sinks while it runs; walk a copy.
  const auto sinks = sinks_;
  for (const auto& entry : sinks) entry.second(record);
}

Logger& thread_logger() {
  thread_local Logger logger;
  return logger;
}

namespace {

void dispatch(int level, std::string_view text) {
  LogRecord record;
  record.time = std::chrono::system_clock::now();
  record.level = level;
  record.tag = "";
  record.file = "/f";
  record.line = 0;
  record.text = text;
  record.thread = std::this_thread::get_id();
  thread_logger().write(record);
}

}  // namespace

void log(int level, const char* format, ...) noexcept {
  try {
    char buffer[256];
    va_list args;
    va_start(args, format);
    const int length = std::vsnprintf(buffer, sizeof buffer, format, args);
    va_end(args);
    if (length < 0) return;
    if (static_cast<std::size_t>(length) < sizeof buffer) {
      dispatch(level, std::string_view(buffer, static_cast<std::size_t>(length)));
      return;
    }
    // Too long for the stack buffer: a heap string of the exact size.
    std::string text(static_cast<std::size_t>(length), '\0');
    va_start(args, format);
    std::vsnprintf(text.data(), text.size() + 1, format, args);
    va_end(args);
    dispatch(level, text);
  } catch (...) {
    // A log line is never worth a failure of the caller.
  }
}

}  // namespace orvanta::link
