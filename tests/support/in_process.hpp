#pragma once

// The command runner and the simulator inside the test process. The
// simulator serves on a loopback port the system picks, on a thread of its
// own; each run builds a runner whose client looks at that port only, with
// a launcher that reports the desktop client running. Tests of different
// executables can so run side by side, and a command takes milliseconds.
//
//   Sim sim({"--logged-out"});
//   ProcessResult r = run_command({"status"});
//   EXPECT_EQ(sim.requests(), (std::vector<std::string>{...}));
//
// A command line that asks for help or has no command is the front end's
// alone: it runs the real program, as the end-to-end tests do.

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "tests/support/process.hpp"

namespace orvanta::testing {

class Sim {
 public:
  // `flags` are the simulator's own, as on its command line; the port and
  // the request log are the harness's. Throws std::runtime_error for flags
  // the simulator refuses or a state file it can't load.
  explicit Sim(std::vector<std::string> flags = {});
  ~Sim();
  Sim(const Sim&) = delete;
  Sim& operator=(const Sim&) = delete;

  std::uint16_t port() const;
  // A temporary directory, for files a test hands to the simulator or the CLI.
  const std::string& directory() const;
  // The request log so far, one JSON text per request: {"method":...,"params":...}.
  std::vector<std::string> requests() const;
  // Only the methods of the request log, in order.
  std::vector<std::string> methods() const;

  // The limit that replaces every bounded wait of the commands (folder
  // list's 8 s); unset, the command's own limit holds.
  void shorten_waits(std::chrono::milliseconds limit);
  std::optional<std::chrono::milliseconds> wait_limit() const;
  // The length of every fixed pause of the commands; 1 ms unless a test
  // needs the commands' own (the moment the login notification gets).
  void set_pauses(std::optional<std::chrono::milliseconds> length);
  std::optional<std::chrono::milliseconds> pause_length() const;

  // The simulator of the test that runs now; run_command talks to it.
  static Sim& current();

  struct State;

 private:
  std::unique_ptr<State> state_;
};

// Runs the command line `args` against Sim::current(), with `input` as stdin.
ProcessResult run_command(const std::vector<std::string>& args, const std::string& input = {});

}  // namespace orvanta::testing
