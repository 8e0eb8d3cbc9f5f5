#include "tests/crash/test_support.hpp"

#include "crash/store/file_io.hpp"
#include "tests/support/process.hpp"

#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <poll.h>
#include <sstream>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace orvanta::crash::test {
constexpr int kBoundMs = 60000;

TempDir::TempDir() : path_(testing::make_temporary_directory()) {}

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
  auto in = testing::make_pipe();
  auto out = testing::make_pipe();
  stderr_path_ = work_dir + "/helper.stderr";
  int err = open(stderr_path_.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
  std::vector<std::string> env = extra_env;
  env.push_back("XDG_DATA_HOME=" + work_dir);
  pid_ = testing::spawn(args[0], args, testing::environment_with(env, {"XDG_DATA_HOME", "TEAMCITY_BUILD_ID"}),
                        {in[0], out[1], err}, work_dir);
  for (int fd : {in[0], out[1], err}) close(fd);
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
