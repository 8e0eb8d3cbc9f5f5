#pragma once

// build/orvanta_desktop_sim as a child process for end-to-end tests. The
// constructor starts it in a fresh temporary directory with a ready file and
// a request log there, and returns once the ready file exists (the simulator
// listens by then) or throws. The destructor stops it with SIGTERM.
//
//   SimProcess sim({"--logged-out"});
//   ProcessResult r = run_cli({"status"});
//   EXPECT_EQ(sim.requests(), (std::vector<std::string>{...}));

#include <sys/types.h>

#include <cstdint>
#include <string>
#include <vector>

namespace orvanta::testing {

class SimProcess {
 public:
  // `flags` go to the simulator after the harness's own --ready-file and
  // --log. Throws std::runtime_error, with what the simulator wrote on
  // stderr, when it exits or stays silent for 30 seconds before it is ready.
  explicit SimProcess(std::vector<std::string> flags = {});
  ~SimProcess();
  SimProcess(const SimProcess&) = delete;
  SimProcess& operator=(const SimProcess&) = delete;

  // The ports named in the ready file.
  const std::vector<std::uint16_t>& ports() const { return ports_; }
  // The temporary directory, for files a test hands to the simulator or the CLI.
  const std::string& directory() const { return directory_; }

  // The request log so far, one JSON text per request: {"method":...,"params":...}.
  std::vector<std::string> requests() const;
  // Only the methods of the request log, in order.
  std::vector<std::string> methods() const;
  // What the simulator wrote on stderr so far.
  std::string error_output() const;

  // Sends SIGTERM and waits. Returns the exit status, or 128 + the signal
  // that ended it; later calls return the same.
  int stop();

 private:
  void wait_until_ready();

  std::string directory_;
  pid_t pid_ = -1;
  int status_ = -1;
  std::vector<std::uint16_t> ports_;
};

}  // namespace orvanta::testing
