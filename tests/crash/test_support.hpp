#pragma once

#include <map>
#include <optional>
#include <string>
#include <sys/types.h>
#include <vector>

namespace orvanta::crash::test {

// A fresh directory under the system's temporary directory, removed with
// everything in it when the object goes.
class TempDir {
 public:
  TempDir();
  ~TempDir();
  TempDir(const TempDir&) = delete;
  TempDir& operator=(const TempDir&) = delete;
  const std::string& path() const { return path_; }

 private:
  std::string path_;
};

// Waits, for a generous 60 seconds at most, until process `pid` has ended,
// and reaps it if it is ours. This process is made a subreaper first, so an
// orphaned handler becomes our child rather than init's. Returns true when
// the process is gone.
bool wait_until_gone(pid_t pid);

// The path of the helper and of the handler directory of this build.
std::string helper_path();
std::string handler_dir();

// crash_test_helper running in a mode: working directory and data home
// `work_dir`, TEAMCITY_BUILD_ID removed from its environment, the entries of
// `extra_env` added in front (so they win over the others, XDG_DATA_HOME
// too), stdout and stdin pipes, stderr the file work_dir/helper.stderr.
class HelperProcess {
 public:
  HelperProcess(const std::string& mode, const std::string& work_dir,
                const std::vector<std::string>& extra_env = {},
                const std::string& handler_directory = handler_dir());
  // Any program, `args` its argv, in the same surroundings.
  HelperProcess(std::vector<std::string> args, const std::string& work_dir,
                const std::vector<std::string>& extra_env = {});
  ~HelperProcess();
  HelperProcess(const HelperProcess&) = delete;
  HelperProcess& operator=(const HelperProcess&) = delete;

  pid_t pid() const { return pid_; }

  // Reads stdout until every writer has closed it (60 seconds at most);
  // nullopt when the end never came.
  std::optional<std::string> read_output();
  // The same, taken as "name value" lines by name; "timeout" is set when the
  // end never came.
  std::map<std::string, std::string> read_facts();
  void close_stdin();
  // Waits for the exit and returns the wait status.
  int wait();
  std::string stderr_text() const;

 private:
  pid_t pid_ = -1;
  int stdin_fd_ = -1;
  int stdout_fd_ = -1;
  std::string stderr_path_;
};

// The path of the one dump in `database`/pending; empty when there is not
// exactly one.
std::string only_pending_dump(const std::string& database);


}  // namespace orvanta::crash::test
