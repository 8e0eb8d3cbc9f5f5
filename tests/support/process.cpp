#include "tests/support/process.hpp"

#include <cerrno>
#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>

extern char** environ;

namespace orvanta::testing {
namespace {

void drain(int fd, std::string& into, bool& open) {
  std::array<char, 4096> buffer{};
  ssize_t n = ::read(fd, buffer.data(), buffer.size());
  if (n > 0) {
    into.append(buffer.data(), static_cast<std::size_t>(n));
  } else if (n == 0 || errno != EINTR) {
    open = false;
  }
}

}  // namespace

ProcessResult run_process(const std::string& program, const std::vector<std::string>& args,
                          const ProcessOptions& options) {
  int out_pipe[2];
  int err_pipe[2];
  if (::pipe2(out_pipe, O_CLOEXEC) != 0 || ::pipe2(err_pipe, O_CLOEXEC) != 0) throw std::runtime_error("pipe");

  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
  posix_spawn_file_actions_adddup2(&actions, out_pipe[1], STDOUT_FILENO);
  posix_spawn_file_actions_adddup2(&actions, err_pipe[1], STDERR_FILENO);

  std::vector<std::string> words{options.argv0.empty() ? program : options.argv0};
  words.insert(words.end(), args.begin(), args.end());
  std::vector<char*> argv;
  for (auto& w : words) argv.push_back(w.data());
  argv.push_back(nullptr);

  std::vector<std::string> env_words;
  for (char** e = environ; *e != nullptr; ++e) env_words.emplace_back(*e);
  env_words.insert(env_words.end(), options.env.begin(), options.env.end());
  std::vector<char*> envp;
  for (auto& w : env_words) envp.push_back(w.data());
  envp.push_back(nullptr);

  pid_t pid = 0;
  int rc = ::posix_spawn(&pid, program.c_str(), &actions, nullptr, argv.data(), envp.data());
  posix_spawn_file_actions_destroy(&actions);
  ::close(out_pipe[1]);
  ::close(err_pipe[1]);
  if (rc != 0) {
    ::close(out_pipe[0]);
    ::close(err_pipe[0]);
    throw std::runtime_error("cannot start " + program);
  }

  ProcessResult result;
  bool out_open = true;
  bool err_open = true;
  while (out_open || err_open) {
    std::array<pollfd, 2> fds{pollfd{out_open ? out_pipe[0] : -1, POLLIN, 0},
                              pollfd{err_open ? err_pipe[0] : -1, POLLIN, 0}};
    if (::poll(fds.data(), fds.size(), -1) < 0) {
      if (errno == EINTR) continue;
      break;
    }
    if (out_open && fds[0].revents != 0) drain(out_pipe[0], result.out, out_open);
    if (err_open && fds[1].revents != 0) drain(err_pipe[0], result.err, err_open);
  }
  ::close(out_pipe[0]);
  ::close(err_pipe[0]);

  int status = 0;
  while (::waitpid(pid, &status, 0) < 0 && errno == EINTR) {
  }
  result.status = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
  return result;
}

ProcessResult run_cli(const std::vector<std::string>& args, const ProcessOptions& options) {
  ProcessOptions named = options;
  if (named.argv0.empty()) named.argv0 = "orvanta_cli";
  return run_process(cli_binary(), args, named);
}

std::string cli_binary() { return std::string(ORVANTA_BINARY_DIR) + "/orvanta_cli"; }
std::string sim_binary() { return std::string(ORVANTA_BINARY_DIR) + "/orvanta_desktop_sim"; }

std::string make_temporary_directory() {
  std::string pattern = (std::filesystem::temp_directory_path() / "orvanta_sim_XXXXXX").string();
  if (::mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("mkdtemp failed");
  return pattern;
}

std::vector<std::string> lines_of_file(const std::string& path) {
  std::ifstream in(path);
  std::vector<std::string> lines;
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  return lines;
}

std::vector<std::string> methods_of(const std::vector<std::string>& requests) {
  std::vector<std::string> methods;
  const std::string key = R"({"method":")";
  for (const std::string& line : requests) {
    if (line.rfind(key, 0) != 0) continue;
    methods.push_back(line.substr(key.size(), line.find('"', key.size()) - key.size()));
  }
  return methods;
}

}  // namespace orvanta::testing
