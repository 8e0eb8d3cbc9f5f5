// Table-driven runs of commands in-process against the simulator of the
// test (tests/support/in_process.hpp): each row is a command line and what it
// must print on both streams, with its exit status.
#pragma once

#include <gtest/gtest.h>

#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <vector>

#include "tests/support/in_process.hpp"

namespace orvanta::testing {

struct CliCase {
  std::vector<std::string> args;
  std::string out;
  std::string err;
  int status;
};

// Each case run in-process, or by `run` when given (the real program, say).
inline void expect_command_cases(const std::vector<CliCase>& cases,
                                 const std::function<ProcessResult(const std::vector<std::string>&)>& run = {}) {
  for (const CliCase& c : cases) {
    std::string typed;
    for (const auto& a : c.args) typed += " [" + a + "]";
    SCOPED_TRACE(typed);
    ProcessResult r = run ? run(c.args) : run_command(c.args);
    EXPECT_EQ(r.out, c.out);
    EXPECT_EQ(r.err, c.err);
    EXPECT_EQ(r.status, c.status);
  }
}

// The params of every logged request of `method`, in order.
inline std::vector<std::string> params_of(const Sim& sim, const std::string& method) {
  const std::string head = R"({"method":")" + method + R"(","params":)";
  std::vector<std::string> params;
  for (const std::string& r : sim.requests()) {
    if (r.compare(0, head.size(), head) == 0) params.push_back(r.substr(head.size(), r.size() - head.size() - 1));
  }
  return params;
}

// The methods of the simulator's log behind the handshake of the last run.
inline std::vector<std::string> after_handshake(const Sim& sim) {
  std::vector<std::string> all = sim.methods();
  auto subscribed = std::find(all.rbegin(), all.rend(), "login_state_subscription");
  return subscribed == all.rend() ? std::vector<std::string>{} : std::vector<std::string>(subscribed.base(), all.end());
}

// A simulator state of a test's own, in a file that lives as long as this.
struct StateFile {
  std::string path = std::filesystem::temp_directory_path() / ("orvanta_state_" + std::to_string(::getpid()));
  explicit StateFile(const std::string& json) { std::ofstream(path) << json; }
  ~StateFile() { std::filesystem::remove(path); }
  StateFile(const StateFile&) = delete;
  StateFile& operator=(const StateFile&) = delete;
};

}  // namespace orvanta::testing
