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

}  // namespace

std::optional<RunningProcess> find_process(const std::function<bool(const RunningProcess&)>& wanted) {
  DIR* proc = ::opendir("/proc");
  if (proc == nullptr) return std::nullopt;
  std::optional<RunningProcess> found;
  while (const dirent* entry = ::readdir(proc)) {
    if (!all_digits(entry->d_name)) continue;
    // "pid (name) state ...": the name (at most 15 bytes) may itself hold
    // blanks and brackets, so it runs to the last ')'.
    char path[NAME_MAX + 8];
    std::snprintf(path, sizeof path, "%s/stat", entry->d_name);
    int fd = ::openat(::dirfd(proc), path, O_RDONLY | O_CLOEXEC);
    if (fd < 0) continue;
    char line[256];
    ssize_t size = ::read(fd, line, sizeof line);
    ::close(fd);
    if (size <= 0) continue;
    std::string_view text(line, static_cast<std::size_t>(size));
    auto open = text.find('(');
    auto close = text.rfind(')');
    if (open == text.npos || close == text.npos || close < open || close + 2 >= text.size()) continue;
    // A process that has ended but not been waited for (a zombie, which an
    // init that never reaps keeps forever) is not running.
    char state = text[close + 2];
    if (state == 'Z' || state == 'X' || state == 'x') continue;
    RunningProcess process;
    process.name = text.substr(open + 1, close - open - 1);
    process.pid = static_cast<pid_t>(std::strtol(entry->d_name, nullptr, 10));
    if (wanted(process)) {
      found = std::move(process);
      break;
    }
  }
  ::closedir(proc);
  return found;
}

std::vector<RunningProcess> running_processes() {
  std::vector<RunningProcess> processes;
  find_process([&](const RunningProcess& process) {
    processes.push_back(process);
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
