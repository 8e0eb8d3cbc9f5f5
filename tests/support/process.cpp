#include "tests/support/process.hpp"

#include <cerrno>
#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>

extern char** environ;

namespace orvanta::testing {
namespace {

std::vector<char*> pointers(std::vector<std::string>& texts) {
  std::vector<char*> list;
  for (std::string& text : texts) list.push_back(text.data());
  list.push_back(nullptr);
  return list;
}

// Appends what `fd` has to `into`; false once it is at its end.
bool drain(int fd, std::string& into) {
  char buffer[4096];
  ssize_t n = ::read(fd, buffer, sizeof buffer);
  if (n > 0) into.append(buffer, static_cast<std::size_t>(n));
  return n > 0 || (n < 0 && errno == EINTR);
}

}  // namespace

std::array<int, 2> make_pipe() {
  int ends[2];
  if (::pipe2(ends, O_CLOEXEC) != 0) throw std::runtime_error("pipe");
  std::array<int, 2> moved{};
  for (int i = 0; i < 2; ++i) {
    moved[i] = ::fcntl(ends[i], F_DUPFD_CLOEXEC, 10);
    ::close(ends[i]);
  }
  return moved;
}

std::vector<std::string> environment_with(const std::vector<std::string>& extra,
                                          const std::vector<std::string>& drop) {
  std::vector<std::string> env(extra);
  for (char** entry = environ; *entry != nullptr; ++entry) {
    std::string text = *entry;
    bool dropped = false;
    for (const std::string& name : drop) dropped = dropped || text.starts_with(name + "=");
    if (!dropped) env.push_back(text);
  }
  return env;
}

pid_t spawn(const std::string& program, std::vector<std::string> argv, std::vector<std::string> env,
            std::array<int, 3> fds, const std::string& dir) {
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  for (int fd = 0; fd < 3; ++fd) {
    if (fds[fd] < 0) {
      posix_spawn_file_actions_addopen(&actions, fd, "/dev/null", fd == 0 ? O_RDONLY : O_WRONLY, 0);
    } else {
      posix_spawn_file_actions_adddup2(&actions, fds[fd], fd);
    }
  }
  if (!dir.empty()) posix_spawn_file_actions_addchdir_np(&actions, dir.c_str());
  pid_t pid = -1;
  if (::posix_spawnp(&pid, program.c_str(), &actions, nullptr, pointers(argv).data(),
                     pointers(env).data()) != 0) {
    pid = -1;
  }
  posix_spawn_file_actions_destroy(&actions);
  return pid;
}

ProcessResult run_process(const std::string& program, const std::vector<std::string>& args,
                          const ProcessOptions& options) {
  auto out = make_pipe();
  auto err = make_pipe();
  std::vector<std::string> argv{options.argv0.empty() ? program : options.argv0};
  argv.insert(argv.end(), args.begin(), args.end());
  pid_t pid = spawn(program, argv, environment_with(options.env), {-1, out[1], err[1]});
  ::close(out[1]);
  ::close(err[1]);
  ProcessResult result;
  bool out_open = pid > 0;
  bool err_open = pid > 0;
  while (out_open || err_open) {
    pollfd fds[2] = {{out_open ? out[0] : -1, POLLIN, 0}, {err_open ? err[0] : -1, POLLIN, 0}};
    if (::poll(fds, 2, -1) < 0 && errno != EINTR) break;
    if (out_open && fds[0].revents != 0) out_open = drain(out[0], result.out);
    if (err_open && fds[1].revents != 0) err_open = drain(err[0], result.err);
  }
  ::close(out[0]);
  ::close(err[0]);
  if (pid < 0) throw std::runtime_error("cannot start " + program);
  result.status = wait_for_exit(pid);
  return result;
}

int wait_for_exit(pid_t pid) {
  int status = 0;
  while (::waitpid(pid, &status, 0) < 0 && errno == EINTR) {
  }
  return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

std::string contents_of(std::FILE* file) {
  std::fflush(file);
  std::rewind(file);
  std::string text;
  char buffer[4096];
  for (std::size_t got = 0; (got = std::fread(buffer, 1, sizeof buffer, file)) > 0;) text.append(buffer, got);
  return text;
}

std::string printed(const std::function<void(std::FILE*)>& print) {
  std::FILE* file = std::tmpfile();
  if (file == nullptr) throw std::runtime_error("tmpfile failed");
  print(file);
  std::string text = contents_of(file);
  std::fclose(file);
  return text;
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
