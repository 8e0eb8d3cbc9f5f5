#pragma once

#include <cstdio>
#include <functional>

#include "cli/command_line.hpp"
#include "desktop_link/desktop_app_launcher.hpp"

namespace orvanta::commands {

// What a handler gets from the runner: the application control, the streams
// to print on, and the connect step for the handlers that connect by
// themselves.
struct Context {
  link::DesktopAppLauncher& launcher;
  // Connects and authorizes; prints its own failure line and returns false.
  std::function<bool()> connect;
  // The `play` handler, for `navigate --play`.
  std::function<int(const cli::CommandLine&)> play;
  std::FILE* out = stdout;
  std::FILE* err = stderr;
};

}  // namespace orvanta::commands
