#pragma once

#include "crash/handler/process_maps.hpp"
#include "crash/handler/process_memory.hpp"
#include "crash/store/crash_message.hpp"

#include <cstdint>
#include <string>
#include <sys/types.h>
#include <vector>

namespace orvanta::crash {

// A run of the crashed process's memory, copied.
struct MemoryRegion {
  std::uint64_t start = 0;
  std::string bytes;
};

struct ThreadSnapshot {
  pid_t tid = 0;
  std::string context;  // the CPU context in the dump's layout for this processor
  std::uint64_t pc = 0;
  std::uint64_t sp = 0;
  MemoryRegion stack;   // from just below the stack pointer upwards
};

struct ModuleSnapshot {
  std::uint64_t base = 0;
  std::uint64_t size = 0;
  std::string path;
  std::string build_id;  // the GNU build id's bytes; empty when none was found
};

// Everything a dump holds about one crash. Whatever could not be read is
// left out and named in `notes`, so that a dump is still written.
struct ProcessSnapshot {
  pid_t pid = 0;
  pid_t crashing_tid = 0;
  int signal = 0;
  int code = 0;
  std::uint64_t fault_address = 0;
  std::vector<ThreadSnapshot> threads;  // the crashing thread first
  std::vector<ModuleSnapshot> modules;
  std::vector<MemoryRegion> extra_memory;  // code around the crashing pc
  std::string maps, auxv, cmdline, status, os_release, cpu_info;
  std::vector<std::string> notes;
};

// The largest stack copied per thread.
inline constexpr std::size_t kMaxStackBytes = 256 * 1024;

// The CPU context of a signal, as the crashing thread's signal handler sent
// it, in the dump's layout. Empty where the processor is not supported.
std::string context_from_signal(const CrashContext& context, std::uint64_t& pc,
                                std::uint64_t& sp);

// The stack of a thread whose stack pointer is `sp`: from the red zone below
// it to the end of its mapping, at most kMaxStackBytes.
MemoryRegion copy_stack(const std::vector<Mapping>& maps, const MemoryReader& memory,
                        std::uint64_t sp);

// The mapped ELF files of `maps`, each with its load base, the extent of
// its mappings and the GNU build id read from its program headers in memory.
std::vector<ModuleSnapshot> find_modules(const std::vector<Mapping>& maps,
                                         const MemoryReader& memory);

// Takes the snapshot of process `pid`, which waits in its signal handler
// while this runs: the crashing thread from `message`, every other thread
// stopped with ptrace and let go again, the modules, and the process's own
// /proc files. The handler is allowed to trace its client because the
// client named it with PR_SET_PTRACER. Never fails as a whole.
ProcessSnapshot capture_process(pid_t pid, const CrashMessage& message);

}  // namespace orvanta::crash
