#pragma once

#include <functional>
#include <optional>
#include <string>
#include <sys/types.h>
#include <vector>

namespace orvanta::platform {

struct RunningProcess {
  pid_t pid = 0;
  std::string name;  // the kernel's short name of the process (comm)
};

// Walks the live processes this user can see in /proc, in directory order,
// and returns the first one that `wanted` accepts. Processes that end while
// we look, and zombies, are skipped.
std::optional<RunningProcess> find_process(const std::function<bool(const RunningProcess&)>& wanted);

// Every live process, in the same order.
std::vector<RunningProcess> running_processes();

// Starts `program` with `args` as a process of its own session that we never
// wait for: standard streams on /dev/null, no other descriptor inherited, and
// no zombie left behind. Returns false when the start could not be arranged;
// a program that cannot be executed is not reported.
bool spawn_detached(const std::string& program, const std::vector<std::string>& args);

}  // namespace orvanta::platform
