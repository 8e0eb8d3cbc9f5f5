#include "commands/system.hpp"

#include <chrono>
#include <string>
#include <vector>

#include "commands/playback.hpp"
#include "commands/program.hpp"
#include "commands/version_info.hpp"

namespace orvanta::commands {
namespace {

// Gives the application a moment to take the URI before we exit.
void pause_for_launch(Context& context) { context.pause(std::chrono::milliseconds(100)); }

}  // namespace

int version(const cli::CommandLine& line, Context& context) {
  VersionInfo info;
  if (line.json_output()) {
    context.print_json(version_info_codec(), info);
    return 0;
  }
  std::fprintf(context.out, "cli: %s\n", info.cli.c_str());
  std::fprintf(context.out, "tetherkit: %s\n", info.tetherkit.c_str());
  std::fprintf(context.out, "tetherkit-hash: %s\n", info.tetherkit_hash.c_str());
  std::fprintf(context.out, "podroom: %s\n", info.podroom.c_str());
  return 0;
}

int open(const cli::CommandLine& line, Context& context) {
  std::vector<std::string> args(line.arguments().begin(), line.arguments().end());
  context.launcher().launch(std::move(args));
  pause_for_launch(context);
  return 0;
}

int navigate(const cli::CommandLine& line, Context& context) {
  context.launcher().launch({"--uri=" + std::string(line.argument())});
  if (!line.play_after()) {
    pause_for_launch(context);
    return 0;
  }
  if (!context.connect()) return 1;
  // `navigate` has no --device, so this plays the URI straight away.
  return play(line, context);
}

}  // namespace orvanta::commands
