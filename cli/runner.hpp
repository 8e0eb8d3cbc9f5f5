#pragma once

#include <cstdio>
#include <memory>

#include "cli/command_line.hpp"
#include "desktop_link/desktop_app_launcher.hpp"

namespace orvanta::cli {

// Owns what one command needs at run time, connects when the command needs
// the desktop client, runs the handler and turns every exception into one
// line on stderr and an exit status.
class CommandRunner {
 public:
  CommandRunner();
  // For tests: another launcher and other streams.
  CommandRunner(std::unique_ptr<link::DesktopAppLauncher> launcher, std::FILE* out, std::FILE* err);
  ~CommandRunner();

  CommandRunner(const CommandRunner&) = delete;
  CommandRunner& operator=(const CommandRunner&) = delete;

  // Runs the command of `line` and returns the exit status.
  int run(const CommandLine& line);

  // Connects to the desktop client and authorizes. Prints the failure line
  // and returns false on failure.
  bool connect();

 private:
  int run_command(const CommandLine& line);
  int dispatch(const CommandLine& line);

  std::unique_ptr<link::DesktopAppLauncher> launcher_;
  std::FILE* out_;
  std::FILE* err_;
};

}  // namespace orvanta::cli
