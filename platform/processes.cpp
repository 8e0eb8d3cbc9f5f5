#include "platform/processes.hpp"

#include <cctype>
#include <cerrno>
#include <cstdlib>
#include <dirent.h>
#include <fcntl.h>
#include <climits>
#include <cstdio>
#include <string_view>
#include <unistd.h>
#include <sys/wait.h>

namespace orvanta::platform {
namespace {

bool all_digits(const char* text) {
  if (*text == '\0') return false;
  for (; *text != '\0'; ++text) {
    if (std::isdigit(static_cast<unsigned char>(*text)) == 0) return false;
  }
  return true;
}

// Runs in the grandchild between fork and exec: only async-signal-safe calls.
[[noreturn]] void exec_detached(const char* program, char* const* argv) {
  int null_fd = ::open("/dev/null", O_RDWR);
  if (null_fd >= 0) {
    ::dup2(null_fd, STDIN_FILENO);
    ::dup2(null_fd, STDOUT_FILENO);
    ::dup2(null_fd, STDERR_FILENO);
  }
  ::close_range(3, ~0U, 0);
  ::execv(program, argv);
  ::_exit(127);
}

// Reads at most `size` bytes of /proc/<pid>/<file> into `buffer`; the byte
// count, or 0 when the process went away meanwhile.
std::size_t read_proc_file(int proc_fd, const char* pid, const char* file, char* buffer, std::size_t size) {
  char path[NAME_MAX + 16];
  std::snprintf(path, sizeof path, "%s/%s", pid, file);
  int fd = ::openat(proc_fd, path, O_RDONLY | O_CLOEXEC);
  if (fd < 0) return 0;
  ssize_t got = ::read(fd, buffer, size);
  ::close(fd);
  return got > 0 ? static_cast<std::size_t>(got) : 0;
}

// The short name, from the small comm file: the kernel writes it without
// gathering the dozens of counters of the stat line.
std::optional<std::string> process_name(int proc_fd, const char* pid) {
  char name[64];
  std::size_t size = read_proc_file(proc_fd, pid, "comm", name, sizeof name);
  if (size == 0) return std::nullopt;
  if (name[size - 1] == '\n') --size;
  return std::string(name, size);
}

// A process that has ended but not been waited for (a zombie, which an init
// that never reaps keeps forever) is not live. The stat line is
// "pid (name) state ...", and the name (at most 15 bytes) may itself hold
// blanks and brackets, so the state follows the last ')'.
bool is_live(int proc_fd, const char* pid) {
  char line[256];
  std::size_t size = read_proc_file(proc_fd, pid, "stat", line, sizeof line);
  std::string_view text(line, size);
  auto close = text.rfind(')');
  if (close == text.npos || close + 2 >= text.size()) return false;
  char state = text[close + 2];
  return state != 'Z' && state != 'X' && state != 'x';
}

// Calls `visit` with each process of /proc, in directory order, until it
// returns true; the liveness check is left to `visit`, since it costs a
// second file per process.
template <typename Visit>
void for_each_process(Visit visit) {
  DIR* proc = ::opendir("/proc");
  if (proc == nullptr) return;
  int proc_fd = ::dirfd(proc);
  while (const dirent* entry = ::readdir(proc)) {
    if (!all_digits(entry->d_name)) continue;
    auto name = process_name(proc_fd, entry->d_name);
    if (!name) continue;
    RunningProcess process;
    process.name = std::move(*name);
    process.pid = static_cast<pid_t>(std::strtol(entry->d_name, nullptr, 10));
    if (visit(proc_fd, entry->d_name, process)) break;
  }
  ::closedir(proc);
}

}  // namespace

// Only the processes whose name is wanted have their state read: the check
// that the desktop client runs reads one small file per process.
std::optional<RunningProcess> find_process(const std::function<bool(const RunningProcess&)>& wanted) {
  std::optional<RunningProcess> found;
  for_each_process([&](int proc_fd, const char* pid, RunningProcess& process) {
    if (!wanted(process) || !is_live(proc_fd, pid)) return false;
    found = std::move(process);
    return true;
  });
  return found;
}

std::vector<RunningProcess> running_processes() {
  std::vector<RunningProcess> processes;
  for_each_process([&](int proc_fd, const char* pid, RunningProcess& process) {
    if (is_live(proc_fd, pid)) processes.push_back(std::move(process));
    return false;
  });
  return processes;
}

bool spawn_detached(const std::string& program, const std::vector<std::string>& args) {
  // Everything the children need is built before fork: after it, in a
  // process with other threads, only async-signal-safe calls are allowed.
  std::vector<std::string> words;
  words.reserve(args.size() + 1);
  words.push_back(program);
  words.insert(words.end(), args.begin(), args.end());
  std::vector<char*> argv;
  for (auto& word : words) argv.push_back(word.data());
  argv.push_back(nullptr);

  pid_t child = ::fork();
  if (child < 0) return false;
  if (child == 0) {
    // The intermediate child starts a new session and leaves at once, so the
    // program is adopted by init and never becomes our zombie.
    ::setsid();
    pid_t grandchild = ::fork();
    if (grandchild == 0) exec_detached(program.c_str(), argv.data());
    ::_exit(grandchild < 0 ? 1 : 0);
  }
  int status = 0;
  while (::waitpid(child, &status, 0) < 0 && errno == EINTR) {
  }
  return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

}  // namespace orvanta::platform
