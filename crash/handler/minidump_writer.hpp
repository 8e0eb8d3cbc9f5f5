#pragma once

#include "crash/handler/process_snapshot.hpp"

#include <cstdint>
#include <string>

namespace orvanta::crash {

// The minidump of `snapshot`, taken at `time` (seconds since the epoch):
// header and stream directory, then the system info, thread list (each
// thread's CPU context and stack), exception, module list (each module with
// an ELF CodeView record carrying its build id), memory list, and the Linux
// streams of the process's maps, auxv, command line and status, the CPU
// info and the OS release. There is no environment stream: it may hold
// secrets.
std::string write_minidump(const ProcessSnapshot& snapshot, std::uint32_t time);

}  // namespace orvanta::crash
