#include "crash/handler/capture.hpp"

#include "crash/handler/process_memory.hpp"
#include "crash/handler/stack_walk.hpp"
#include "crash/store/file_io.hpp"
#include "crash/store/uuid.hpp"

#include <cerrno>
#include <cstring>
#include <ctime>

namespace orvanta::crash {
namespace {

std::vector<Mapping> executable_modules(const std::vector<Mapping>& maps) {
  std::vector<Mapping> modules;
  for (const Mapping& m : maps) {
    if (m.executable() && !m.path.empty()) modules.push_back(m);
  }
  return modules;
}

void capture_stack(pid_t pid, const CrashMessage& message, CrashReport& report) {
  std::string proc = "/proc/" + std::to_string(pid);
  auto maps_text = read_file(proc + "/maps");
  if (!maps_text) {
    report.notes.push_back("maps unreadable: " + std::string(std::strerror(errno)));
    report.frames.push_back({{message.registers.pc, FrameTrust::context}, std::nullopt});
    return;
  }
  std::vector<Mapping> maps = parse_maps(*maps_text);
  ProcessMemory memory(pid);
  if (memory.open_error() != 0) {
    report.notes.push_back("memory unreadable: " + std::string(std::strerror(memory.open_error())));
  }
  for (const StackFrame& frame : walk_stack(message.registers, maps, memory)) {
    report.frames.push_back({frame, locate_module(maps, frame.address)});
  }
  report.modules = executable_modules(maps);
}

}  // namespace

CrashReport capture_crash(const HandlerOptions& options, const std::string& client_id,
                          const CrashMessage& message,
                          const SimpleStringDictionary& dictionary) {
  CrashReport report;
  report.uuid = random_uuid();
  report.client_id = client_id;
  report.time = static_cast<std::int64_t>(std::time(nullptr));
  report.pid = options.client_pid;
  report.tid = message.tid;
  report.signal = message.signal;
  report.code = message.code;
  report.fault_address = message.fault_address;
  report.registers = message.registers;
  report.annotations = options.annotations;
  if (message.has_annotations != 0) report.simple_annotations = dictionary.entries();
  capture_stack(options.client_pid, message, report);
  return report;
}

}  // namespace orvanta::crash
