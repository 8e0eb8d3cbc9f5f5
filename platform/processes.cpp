#include "platform/processes.hpp"

#include <cctype>
#include <cerrno>
#include <cstdlib>
#include <dirent.h>
#include <fcntl.h>
#include <fstream>
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

std::vector<RunningProcess> running_processes() {
  std::vector<RunningProcess> processes;
  DIR* proc = ::opendir("/proc");
  if (proc == nullptr) return processes;
  while (const dirent* entry = ::readdir(proc)) {
    if (!all_digits(entry->d_name)) continue;
    // "pid (name) state ...": the name may itself hold blanks and brackets,
    // so it runs to the last ')'.
    std::ifstream stat(std::string("/proc/") + entry->d_name + "/stat");
    std::string line;
    if (!std::getline(stat, line)) continue;
    auto open = line.find('(');
    auto close = line.rfind(')');
    if (open == std::string::npos || close == std::string::npos || close < open || close + 2 >= line.size()) continue;
    // A process that has ended but not been waited for (a zombie, which an
    // init that never reaps keeps forever) is not running.
    char state = line[close + 2];
    if (state == 'Z' || state == 'X' || state == 'x') continue;
    RunningProcess process;
    process.name = line.substr(open + 1, close - open - 1);
    process.pid = static_cast<pid_t>(std::strtol(entry->d_name, nullptr, 10));
    processes.push_back(std::move(process));
  }
  ::closedir(proc);
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
