#pragma once

#include <string>
#include <sys/types.h>
#include <vector>

namespace orvanta::platform {

struct RunningProcess {
  pid_t pid = 0;
  std::string name;  // the kernel's short name of the process (comm)
};

// Every live process this user can see in /proc, in directory order.
// Processes that end while we look, and zombies, are skipped.
std::vector<RunningProcess> running_processes();

// Starts `program` with `args` as a process of its own session that we never
// wait for: standard streams on /dev/null, no other descriptor inherited, and
// no zombie left behind. Returns false when the start could not be arranged;
// a program that cannot be executed is not reported.
bool spawn_detached(const std::string& program, const std::vector<std::string>& args);

}  // namespace orvanta::platform
