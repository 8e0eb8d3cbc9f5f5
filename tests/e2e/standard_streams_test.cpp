// What only a process shows about its standard streams: a closed descriptor
// at start, input without end, and output that cannot be written.
#include <gtest/gtest.h>

#include <string>

#include "tests/support/process.hpp"
#include "tests/support/sim_process.hpp"

namespace orvanta::testing {
namespace {

// Runs the CLI through sh, so that `redirections` apply to it alone, under
// a bound that turns a hang into status 124.
ProcessResult run_cli_with(const std::string& redirections, const std::string& args) {
  return run_process("/bin/sh", {"-c", "exec timeout 20 \"$0\" " + args + " " + redirections, cli_binary()});
}

// A closed stdin is /dev/null to the program, not the crash handler's pipe:
// the manifest read sees the end at once.
TEST(StandardStreams, ClosedStdinReadsAsEmpty) {
  SimProcess sim;
  ProcessResult r = run_cli_with("<&-", "library batch");
  EXPECT_EQ(r.err, "library batch: no manifest input (expected JSON on stdin or --from-file)\n");
  EXPECT_EQ(r.status, 1);
}

// A manifest without end stops at the limit, from stdin or from a file.
TEST(StandardStreams, AManifestWithoutEndIsRefusedAtTheLimit) {
  SimProcess sim;
  for (const char* source : {"</dev/zero", "--from-file /dev/zero"}) {
    SCOPED_TRACE(source);
    ProcessResult r = run_cli_with(source, "library batch");
    EXPECT_EQ(r.err, "library batch: the manifest is larger than 64 MiB\n");
    EXPECT_EQ(r.status, 1);
  }
}

// Output that is lost fails the run with one line, whatever the command: a
// page of help, a text line, or JSON.
TEST(StandardStreams, AFullDeviceFailsTheRun) {
  SimProcess sim;
  const std::string line = "Error: cannot write to standard output: No space left on device\n";
  for (const char* args : {"version", "--help", "status --format json", "search harbour"}) {
    SCOPED_TRACE(args);
    ProcessResult r = run_cli_with(">/dev/full", args);
    EXPECT_EQ(r.err, line);
    EXPECT_EQ(r.status, 1);
  }
  // With nowhere to write either, the status alone tells.
  EXPECT_EQ(run_cli_with(">/dev/full 2>&-", "version").status, 1);
  EXPECT_EQ(run_cli_with(">&- 2>&-", "version").status, 0);
}

}  // namespace
}  // namespace orvanta::testing
