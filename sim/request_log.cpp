#include "sim/request_log.hpp"

#include <optional>

#include "json/json.hpp"

namespace orvanta::sim {

namespace {

struct LogLine {
  std::string method;
  json::RawJsonValue params;
  std::optional<std::uint32_t> connection;
};

json::ObjectCodec<LogLine> log_line_codec() {
  using json::presence::optional;
  using json::presence::required;
  json::ObjectCodec<LogLine> codec;
  codec.add_field("method", required, &LogLine::method);
  codec.add_field("params", required, &LogLine::params);
  codec.add_field("connection", optional, &LogLine::connection);
  return codec;
}

}  // namespace

RequestLog::~RequestLog() {
  if (file_ != nullptr) std::fclose(file_);
}

bool RequestLog::open(const std::string& path, bool numbered) {
  numbered_ = numbered;
  file_ = std::fopen(path.c_str(), "a");
  return file_ != nullptr;
}

void RequestLog::record(std::string_view method, std::string_view params, std::uint32_t connection) {
  if (file_ == nullptr) return;
  LogLine entry{std::string(method), json::RawJsonValue(params), std::nullopt};
  if (numbered_) entry.connection = connection;
  const json::EncodedText line = json::encode(log_line_codec(), entry);
  std::fwrite(line.view().data(), 1, line.view().size(), file_);
  std::fputc('\n', file_);
  std::fflush(file_);
}

}  // namespace orvanta::sim
