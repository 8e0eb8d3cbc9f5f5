#pragma once

#include <chrono>
#include <cstdio>
#include <functional>
#include <memory>
#include <optional>

#include <asio/io_context.hpp>

#include "cli/command_line.hpp"
#include "commands/context.hpp"
#include "desktop_link/desktop_app_launcher.hpp"
#include "desktop_link/io_thread.hpp"
#include "desktop_link/partner_api.hpp"

namespace orvanta::cli {

// The bounded waits of a run, which tests shorten.
struct RunTiming {
  // When set, replaces the limit of every bounded wait (folder list's 8 s).
  std::optional<std::chrono::milliseconds> wait_limit;
  // When set, replaces the length of every fixed pause (the moment given to
  // the login notification, a transfer's pauses between looks).
  std::optional<std::chrono::milliseconds> pause_length;
};

// Owns what one command needs at run time (the IO context and its thread,
// the application control, the client), connects when the command needs the
// desktop client, runs the handler and turns every exception into one line
// on stderr and an exit status.
class CommandRunner {
 public:
  using LauncherFactory = std::function<std::unique_ptr<link::DesktopAppLauncher>()>;
  using ClientFactory = std::function<std::unique_ptr<link::PartnerApi>(asio::io_context&)>;
  using Timing = RunTiming;

  // Starts the IO thread and waits until it runs. Throws std::system_error
  // when the thread can't be started.
  CommandRunner();
  // The same, printing on `out` and `err`.
  CommandRunner(std::FILE* out, std::FILE* err);
  // The same runner around another launcher and client, printing on other
  // streams: how tests put a double in the desktop client's place.
  CommandRunner(const LauncherFactory& make_launcher, const ClientFactory& make_client, std::FILE* out,
                std::FILE* err, Timing timing = {}, std::FILE* in = stdin);
  // Disconnects, stops the IO context and joins its thread. Never throws.
  ~CommandRunner();

  CommandRunner(const CommandRunner&) = delete;
  CommandRunner& operator=(const CommandRunner&) = delete;

  // Runs the command of `line` and returns the exit status.
  int run(const CommandLine& line);

  // Connects to the desktop client and authorizes, then gives the first
  // login notification a moment to arrive. Prints the failure line and
  // returns false on failure.
  bool connect();

 private:
  class RunContext;
  int run_command(const CommandLine& line, commands::Context& context);
  void pause(std::chrono::milliseconds length) const;

  asio::io_context context_;
  link::IoThread io_thread_;
  std::unique_ptr<link::DesktopAppLauncher> launcher_;
  std::unique_ptr<link::PartnerApi> client_;
  std::FILE* out_;
  std::FILE* err_;
  Timing timing_;
  std::FILE* in_;
};

}  // namespace orvanta::cli
