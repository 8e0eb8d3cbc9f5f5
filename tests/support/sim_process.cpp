#include "tests/support/sim_process.hpp"

#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>

#include "tests/support/process.hpp"

extern char** environ;

namespace orvanta::testing {

namespace {

constexpr int ready_bound_ms = 30000;

std::string read_file(const std::string& path) {
  std::ifstream in(path);
  std::ostringstream text;
  text << in.rdbuf();
  return text.str();
}

}  // namespace

SimProcess::SimProcess(std::vector<std::string> flags) : directory_(make_temporary_directory()) {
  std::vector<std::string> words{"orvanta_desktop_sim", "--ready-file", directory_ + "/ready",
                                 "--log",               directory_ + "/requests.jsonl"};
  words.insert(words.end(), flags.begin(), flags.end());
  std::vector<char*> argv;
  for (auto& word : words) argv.push_back(word.data());
  argv.push_back(nullptr);

  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
  posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
  const std::string err_path = directory_ + "/stderr.txt";
  posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, err_path.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
  const int rc = ::posix_spawn(&pid_, sim_binary().c_str(), &actions, nullptr, argv.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  if (rc != 0) throw std::runtime_error("cannot start " + sim_binary());
  try {
    wait_until_ready();
  } catch (...) {
    stop();
    throw;
  }
}

// The simulator renames the ready file into place once it listens.
void SimProcess::wait_until_ready() {
  const std::string ready = directory_ + "/ready";
  for (int waited_ms = 0; !std::filesystem::exists(ready); waited_ms += 5) {
    int status = 0;
    if (::waitpid(pid_, &status, WNOHANG) == pid_) {
      pid_ = -1;
      status_ = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    }
    if (pid_ < 0 || waited_ms >= ready_bound_ms) {
      throw std::runtime_error("orvanta_desktop_sim did not become ready: " + error_output());
    }
    ::usleep(5000);
  }
  for (const std::string& line : lines_of_file(ready)) {
    ports_.push_back(static_cast<std::uint16_t>(std::stoul(line)));
  }
}

SimProcess::~SimProcess() {
  stop();
  std::error_code ignored;
  std::filesystem::remove_all(directory_, ignored);
}

int SimProcess::stop() {
  if (pid_ <= 0) return status_;
  ::kill(pid_, SIGTERM);
  int status = 0;
  while (::waitpid(pid_, &status, 0) < 0 && errno == EINTR) {
  }
  pid_ = -1;
  status_ = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
  return status_;
}

std::vector<std::string> SimProcess::requests() const { return lines_of_file(directory_ + "/requests.jsonl"); }
std::vector<std::string> SimProcess::methods() const { return methods_of(requests()); }

std::string SimProcess::error_output() const { return read_file(directory_ + "/stderr.txt"); }

}  // namespace orvanta::testing
