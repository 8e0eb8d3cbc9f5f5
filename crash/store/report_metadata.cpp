#include "crash/store/report_metadata.hpp"

#include <cstdio>

namespace orvanta::crash {
namespace {

void escape(std::string& out, std::string_view text, bool key) {
  for (char c : text) {
    auto byte = static_cast<unsigned char>(c);
    if (c == '\\') out += "\\\\";
    else if (c == '\n') out += "\\n";
    else if (c == '\t') out += "\\t";
    else if (c == '\r') out += "\\r";
    else if (key && c == '=') out += "\\=";
    else if (byte < 0x20 || byte == 0x7f) {
      char hex[5];
      std::snprintf(hex, sizeof hex, "\\x%02x", byte);
      out += hex;
    } else {
      out += c;
    }
  }
}

int hex_digit(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  return -1;
}

// Reads escaped text up to an unescaped `stop` (or the end); false for a
// broken escape.
bool unescape(std::string_view& in, char stop, std::string& out) {
  while (!in.empty() && in.front() != stop) {
    char c = in.front();
    in.remove_prefix(1);
    if (c != '\\') {
      out += c;
      continue;
    }
    if (in.empty()) return false;
    char e = in.front();
    in.remove_prefix(1);
    if (e == '\\' || e == '=') out += e;
    else if (e == 'n') out += '\n';
    else if (e == 't') out += '\t';
    else if (e == 'r') out += '\r';
    else if (e == 'x' && in.size() >= 2 && hex_digit(in[0]) >= 0 && hex_digit(in[1]) >= 0) {
      out += static_cast<char>(hex_digit(in[0]) * 16 + hex_digit(in[1]));
      in.remove_prefix(2);
    } else {
      return false;
    }
  }
  return true;
}

}  // namespace

std::string format_metadata(const ReportMetadata& metadata) {
  std::string out;
  for (const auto& [key, value] : metadata.annotations) {
    out += "annotation ";
    escape(out, key, true);
    out += '=';
    escape(out, value, false);
    out += '\n';
  }
  if (!metadata.server_report_id.empty()) {
    out += "server_report_id ";
    escape(out, metadata.server_report_id, false);
    out += '\n';
  }
  return out;
}

std::optional<ReportMetadata> parse_metadata(std::string_view text) {
  ReportMetadata metadata;
  constexpr std::string_view kAnnotation = "annotation ";
  constexpr std::string_view kServerId = "server_report_id ";
  while (!text.empty()) {
    auto end = text.find('\n');
    std::string_view line = text.substr(0, end);
    text = end == std::string_view::npos ? std::string_view{} : text.substr(end + 1);
    if (line.starts_with(kAnnotation)) {
      line.remove_prefix(kAnnotation.size());
      std::string key, value;
      if (!unescape(line, '=', key) || line.empty()) return std::nullopt;
      line.remove_prefix(1);
      if (!unescape(line, '\n', value)) return std::nullopt;
      metadata.annotations.insert_or_assign(std::move(key), std::move(value));
    } else if (line.starts_with(kServerId)) {
      line.remove_prefix(kServerId.size());
      if (!unescape(line, '\n', metadata.server_report_id)) return std::nullopt;
    } else if (!line.empty()) {
      return std::nullopt;
    }
  }
  return metadata;
}

}  // namespace orvanta::crash
