#pragma once

#include "crash/handler/process_maps.hpp"
#include "crash/handler/stack_walk.hpp"
#include "crash/store/crash_message.hpp"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace orvanta::crash {

struct ReportFrame {
  StackFrame frame;
  std::optional<ModuleLocation> module;  // nullopt in anonymous memory
};

// Everything one crash report holds. Whatever could not be captured is
// named in `notes`, so that a report is still written, and says what it
// lacks, when the crashed process's memory cannot be read.
struct CrashReport {
  std::string uuid;
  std::string client_id;
  std::int64_t time = 0;  // seconds since the epoch
  std::int64_t pid = 0;
  std::int64_t tid = 0;
  int signal = 0;
  int code = 0;
  std::uint64_t fault_address = 0;
  CrashRegisters registers;
  std::map<std::string, std::string> annotations;
  std::vector<std::pair<std::string, std::string>> simple_annotations;
  std::vector<ReportFrame> frames;
  std::vector<Mapping> modules;  // the executable file mappings
  std::vector<std::string> notes;
};

}  // namespace orvanta::crash
