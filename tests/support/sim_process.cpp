#include "tests/support/sim_process.hpp"

#include <fcntl.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>

#include "tests/support/process.hpp"

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
  std::vector<std::string> argv{"orvanta_desktop_sim", "--ready-file", directory_ + "/ready",
                                "--log",               directory_ + "/requests.jsonl"};
  argv.insert(argv.end(), flags.begin(), flags.end());
  const int err = ::open((directory_ + "/stderr.txt").c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
  pid_ = spawn(sim_binary(), argv, environment_with({}), {-1, -1, err});
  ::close(err);
  if (pid_ < 0) throw std::runtime_error("cannot start " + sim_binary());
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
  status_ = wait_for_exit(pid_);
  pid_ = -1;
  return status_;
}

std::vector<std::string> SimProcess::requests() const { return lines_of_file(directory_ + "/requests.jsonl"); }
std::vector<std::string> SimProcess::methods() const { return methods_of(requests()); }

std::string SimProcess::error_output() const { return read_file(directory_ + "/stderr.txt"); }

}  // namespace orvanta::testing
