// Table-driven runs of commands in-process against the simulator of the
// test (tests/support/in_process.hpp).
#pragma once

#include "tests/support/cli_cases.hpp"
#include "tests/support/in_process.hpp"

namespace orvanta::testing {

inline void expect_command_cases(const std::vector<CliCase>& cases) {
  expect_cases(cases, [](const std::vector<std::string>& args) { return run_command(args); });
}

}  // namespace orvanta::testing
