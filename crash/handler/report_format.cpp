#include "crash/handler/report_format.hpp"

#include <csignal>
#include <cstdio>

namespace orvanta::crash {
namespace {

std::string escape(std::string_view text, bool is_key) {
  std::string escaped;
  escaped.reserve(text.size());
  for (char c : text) {
    auto byte = static_cast<unsigned char>(c);
    if (c == '\\') {
      escaped += "\\\\";
    } else if (c == '\n') {
      escaped += "\\n";
    } else if (c == '\t') {
      escaped += "\\t";
    } else if (c == '\r') {
      escaped += "\\r";
    } else if (c == '=' && is_key) {
      escaped += "\\=";
    } else if (byte < 0x20 || byte == 0x7f) {
      char hex[5];
      std::snprintf(hex, sizeof hex, "\\x%02x", byte);
      escaped += hex;
    } else {
      escaped += c;
    }
  }
  return escaped;
}

std::string hex(std::uint64_t value) {
  char text[19];
  std::snprintf(text, sizeof text, "0x%016llx", static_cast<unsigned long long>(value));
  return text;
}

std::string pair_line(std::string_view field, std::string_view key, std::string_view value) {
  return std::string(field) + " " + escape(key, true) + "=" + escape(value, false) + "\n";
}

std::string frame_line(std::size_t index, const ReportFrame& entry) {
  std::string line = "frame " + std::to_string(index) + " " + hex(entry.frame.address) + " " +
                     std::string(trust_name(entry.frame.trust));
  if (entry.module) {
    char offset[24];
    std::snprintf(offset, sizeof offset, "+0x%llx",
                  static_cast<unsigned long long>(entry.module->offset));
    line += " " + escape(entry.module->path, false) + offset;
  } else {
    line += " ?";
  }
  return line + "\n";
}

}  // namespace

std::string_view signal_name(int signal) {
  switch (signal) {
    case SIGSEGV: return "SIGSEGV";
    case SIGBUS: return "SIGBUS";
    case SIGILL: return "SIGILL";
    case SIGFPE: return "SIGFPE";
    case SIGABRT: return "SIGABRT";
    default: return "SIG?";
  }
}

std::string format_report(const CrashReport& report) {
  std::string text = "orvanta crash report 1\n";
  text += "uuid " + report.uuid + "\n";
  text += "client_id " + report.client_id + "\n";
  text += "time " + std::to_string(report.time) + "\n";
  text += "pid " + std::to_string(report.pid) + "\n";
  text += "tid " + std::to_string(report.tid) + "\n";
  text += "signal " + std::to_string(report.signal) + " " +
          std::string(signal_name(report.signal)) + "\n";
  text += "code " + std::to_string(report.code) + "\n";
  text += "fault_address " + hex(report.fault_address) + "\n";
  text += "register pc " + hex(report.registers.pc) + "\n";
  text += "register sp " + hex(report.registers.sp) + "\n";
  text += "register fp " + hex(report.registers.fp) + "\n";
  for (const auto& [key, value] : report.annotations) text += pair_line("annotation", key, value);
  for (const auto& [key, value] : report.simple_annotations) {
    text += pair_line("simple_annotation", key, value);
  }
  for (std::size_t i = 0; i < report.frames.size(); ++i) text += frame_line(i, report.frames[i]);
  for (const Mapping& m : report.modules) {
    text += "module " + hex(m.start) + " " + hex(m.end) + " " + hex(m.offset) + " " +
            escape(m.path, false) + "\n";
  }
  for (const std::string& note : report.notes) text += "note " + escape(note, false) + "\n";
  text += "end\n";
  return text;
}

}  // namespace orvanta::crash
