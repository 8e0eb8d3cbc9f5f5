#include "sim/request_log.hpp"

#include "json/json.hpp"

namespace orvanta::sim {

namespace {

struct LogLine {
  std::string method;
  json::RawJsonValue params;
};

json::ObjectCodec<LogLine> log_line_codec() {
  using json::presence::required;
  json::ObjectCodec<LogLine> codec;
  codec.add_field("method", required, &LogLine::method);
  codec.add_field("params", required, &LogLine::params);
  return codec;
}

}  // namespace

RequestLog::~RequestLog() {
  if (file_ != nullptr) std::fclose(file_);
}

bool RequestLog::open(const std::string& path) {
  file_ = std::fopen(path.c_str(), "a");
  return file_ != nullptr;
}

void RequestLog::record(std::string_view method, std::string_view params) {
  if (file_ == nullptr) return;
  const json::EncodedText line =
      json::encode(log_line_codec(), LogLine{std::string(method), json::RawJsonValue(params)});
  std::fwrite(line.view().data(), 1, line.view().size(), file_);
  std::fputc('\n', file_);
  std::fflush(file_);
}

}  // namespace orvanta::sim
