#pragma once

#include <sys/types.h>

#include <array>
#include <cstdio>
#include <functional>
#include <string>
#include <vector>

namespace orvanta::testing {

struct ProcessResult {
  std::string out;
  std::string err;
  int status = -1;   // exit status, or 128 + signal number
};

struct ProcessOptions {
  std::string argv0;              // empty: the program path
  std::vector<std::string> env;   // "NAME=value" entries that win over ours
};

// Runs `program` with `args`, stdin on /dev/null, and collects both output
// streams to their end.
ProcessResult run_process(const std::string& program, const std::vector<std::string>& args,
                          const ProcessOptions& options = {});

// Runs build/orvanta_cli under the name "orvanta_cli".
ProcessResult run_cli(const std::vector<std::string>& args, const ProcessOptions& options = {});

// The pieces the tests start other programs from.
//
// A pipe, read end first, both ends close-on-exec and above the standard
// descriptors, which the test runner may have closed. Throws
// std::runtime_error.
std::array<int, 2> make_pipe();
// Our environment with `extra` in front (getenv takes the first of two
// entries of one name, so they win) and the variables named in `drop` left out.
std::vector<std::string> environment_with(const std::vector<std::string>& extra,
                                          const std::vector<std::string>& drop = {});
// Starts `program` (looked up on PATH when it has no slash) with `argv` and
// exactly `env`, with `fds` as its descriptors 0, 1 and 2 (-1: /dev/null)
// and in `dir` unless that is empty. Returns the pid, or -1.
pid_t spawn(const std::string& program, std::vector<std::string> argv, std::vector<std::string> env,
            std::array<int, 3> fds, const std::string& dir = "");

// Waits for `pid` and returns its exit status, or 128 + the signal that ended it.
int wait_for_exit(pid_t pid);

// Everything written to `file` so far, read from its start.
std::string contents_of(std::FILE* file);
// What `print` writes to the stream it is given.
std::string printed(const std::function<void(std::FILE*)>& print);

// A new directory under the system's temporary one. Throws std::runtime_error.
std::string make_temporary_directory();
// The lines of the file at `path`; none when it can't be read.
std::vector<std::string> lines_of_file(const std::string& path);
// The methods of a simulator's request log, in order.
std::vector<std::string> methods_of(const std::vector<std::string>& requests);

// The binaries of this build.
std::string cli_binary();
std::string sim_binary();

}  // namespace orvanta::testing
