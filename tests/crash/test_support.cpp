#include "tests/crash/test_support.hpp"

#include "crash/store/file_io.hpp"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <poll.h>
#include <spawn.h>
#include <sstream>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

extern char** environ;

namespace orvanta::crash::test {
namespace {

constexpr int kBoundMs = 60000;

// getenv() takes the first of two entries with one name, so `extra` goes
// first.
std::vector<std::string> helper_environment(const std::string& data_home,
                                            const std::vector<std::string>& extra) {
  std::vector<std::string> env(extra);
  env.push_back("XDG_DATA_HOME=" + data_home);
  for (char** entry = environ; *entry != nullptr; ++entry) {
    std::string_view text = *entry;
    if (text.starts_with("XDG_DATA_HOME=") || text.starts_with("TEAMCITY_BUILD_ID=")) continue;
    env.emplace_back(text);
  }
  return env;
}

std::vector<char*> pointers(std::vector<std::string>& texts) {
  std::vector<char*> list;
  for (std::string& text : texts) list.push_back(text.data());
  list.push_back(nullptr);
  return list;
}

}  // namespace

TempDir::TempDir() {
  std::string pattern = (std::filesystem::temp_directory_path() / "orvanta-crash-XXXXXX").string();
  path_ = mkdtemp(pattern.data());
}

TempDir::~TempDir() {
  std::error_code ec;
  std::filesystem::remove_all(path_, ec);
}

bool wait_until_gone(pid_t pid) {
  prctl(PR_SET_CHILD_SUBREAPER, 1);
  int fd = static_cast<int>(syscall(SYS_pidfd_open, pid, 0));
  if (fd < 0) return errno == ESRCH;
  pollfd exited{fd, POLLIN, 0};
  bool gone = poll(&exited, 1, kBoundMs) == 1;
  close(fd);
  if (gone) waitpid(pid, nullptr, WNOHANG);  // ours to reap, unless someone else did
  return gone;
}

HelperProcess::HelperProcess(const std::string& mode, const std::string& work_dir,
                             const std::vector<std::string>& extra_env,
                             const std::string& handler_directory)
    : HelperProcess(std::vector<std::string>{helper_path(), handler_directory, mode}, work_dir,
                    extra_env) {}

HelperProcess::HelperProcess(std::vector<std::string> args, const std::string& work_dir,
                             const std::vector<std::string>& extra_env) {
  prctl(PR_SET_CHILD_SUBREAPER, 1);
  int in[2];
  int out[2];
  if (pipe2(in, O_CLOEXEC) != 0 || pipe2(out, O_CLOEXEC) != 0) return;
  stderr_path_ = work_dir + "/helper.stderr";
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, in[0], 0);
  posix_spawn_file_actions_adddup2(&actions, out[1], 1);
  posix_spawn_file_actions_addopen(&actions, 2, stderr_path_.c_str(), O_WRONLY | O_CREAT, 0600);
  posix_spawn_file_actions_addchdir_np(&actions, work_dir.c_str());
  std::vector<std::string> env = helper_environment(work_dir, extra_env);
  if (posix_spawn(&pid_, args[0].c_str(), &actions, nullptr, pointers(args).data(),
                  pointers(env).data()) != 0) {
    pid_ = -1;
  }
  posix_spawn_file_actions_destroy(&actions);
  close(in[0]);
  close(out[1]);
  stdin_fd_ = in[1];
  stdout_fd_ = out[0];
}

HelperProcess::~HelperProcess() {
  close_stdin();
  if (stdout_fd_ >= 0) close(stdout_fd_);
  if (pid_ > 0) wait();
}

std::optional<std::string> HelperProcess::read_output() {
  std::string text;
  char buffer[512];
  for (;;) {
    pollfd readable{stdout_fd_, POLLIN, 0};
    if (poll(&readable, 1, kBoundMs) != 1) return std::nullopt;
    ssize_t got = read(stdout_fd_, buffer, sizeof buffer);
    if (got <= 0) break;
    text.append(buffer, static_cast<std::size_t>(got));
  }
  return text;
}

std::map<std::string, std::string> HelperProcess::read_facts() {
  auto output = read_output();
  if (!output) return {{"timeout", "1"}};
  const std::string& text = *output;
  std::map<std::string, std::string> facts;
  std::istringstream lines(text);
  std::string name;
  std::string value;
  while (lines >> name >> value) facts[name] = value;
  return facts;
}

void HelperProcess::close_stdin() {
  if (stdin_fd_ >= 0) close(stdin_fd_);
  stdin_fd_ = -1;
}

int HelperProcess::wait() {
  int status = -1;
  if (pid_ > 0 && waitpid(pid_, &status, 0) == pid_) pid_ = -1;
  return status;
}

std::string HelperProcess::stderr_text() const { return read_file(stderr_path_).value_or("?"); }

std::string only_pending_dump(const std::string& database) {
  std::vector<std::string> dumps;
  std::error_code ec;
  for (const auto& entry : std::filesystem::directory_iterator(database + "/pending", ec)) {
    if (entry.path().extension() == ".dmp") dumps.push_back(entry.path().string());
  }
  return dumps.size() == 1 ? dumps[0] : std::string();
}

std::string helper_path() { return ORVANTA_BINARY_DIR "/tests/crash_test_helper"; }
std::string handler_dir() { return ORVANTA_BINARY_DIR; }

}  // namespace orvanta::crash::test
