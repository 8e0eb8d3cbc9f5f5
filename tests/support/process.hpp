#pragma once

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
  std::vector<std::string> env;   // "NAME=value" entries added to ours
};

// Runs `program` with `args`, stdin on /dev/null, and collects both output
// streams to their end.
ProcessResult run_process(const std::string& program, const std::vector<std::string>& args,
                          const ProcessOptions& options = {});

// Runs build/orvanta_cli under the name "orvanta_cli".
ProcessResult run_cli(const std::vector<std::string>& args, const ProcessOptions& options = {});

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
