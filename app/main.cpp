#include <cstdio>

#include "cli/catalogue.hpp"
#include "cli/help.hpp"
#include "cli/recognizer.hpp"
#include "cli/runner.hpp"
#include "commands/program.hpp"
#include "crash/crash_reporter.hpp"
#include "crash/defaults.hpp"
#include "platform/standard_streams.hpp"
#include "platform/terminal_stream.hpp"

using orvanta::cli::CommandId;

namespace {

// A crash in any later step leaves a report behind. Whether the handler
// started is not our concern here: without one the command runs as usual.
void start_crash_reporter() {
  namespace program = orvanta::commands;
  auto& reporter = orvanta::crash::CrashReporter::instance();
  orvanta::crash::CrashReporterConfig config;
  config.handler_dir = orvanta::crash::default_handler_dir();
  config.data_dir = orvanta::crash::default_data_dir();
  config.product = program::kProduct;
  config.version = program::kVersion;
  config.ptype = program::kProgramType;
  config.upload_url = orvanta::crash::build_upload_url();
  config.rate_limit = true;
  (void)reporter.start(config);
}

// Everything from the crash reporter to the command's status.
int run(int argc, char** argv) {
  start_crash_reporter();
  const auto line = orvanta::cli::parse_command_line(argc, argv);
  const auto& catalogue = orvanta::cli::HelpCatalogue::instance();

  if (line.help_requested()) {
    orvanta::cli::print_help(line.program_name(), line.help_topic(), line.help_subtopic(), catalogue);
    return 0;
  }

  if (line.command() != CommandId::None) {
    // Names that come from the desktop client are shown on a terminal, not
    // obeyed; pipes and files get them byte for byte.
    orvanta::platform::TerminalSafeStream out(stdout);
    orvanta::platform::TerminalSafeStream err(stderr);
    orvanta::cli::CommandRunner runner(out.get(), err.get());
    return runner.run(line);
  }

  const auto& error = line.error_text();
  if (!error.empty()) {
    std::fprintf(stderr, "Error: %.*s\n\n", static_cast<int>(error.size()), error.data());
  }
  if (!line.unknown_word().empty()) {
    orvanta::cli::print_unknown_command(line.program_name(), line.unknown_word(), catalogue);
  } else {
    orvanta::cli::print_usage(line.program_name(), catalogue);
  }
  return 1;
}

}  // namespace

int main(int argc, char** argv) {
  // Before anything opens a descriptor: a closed stdin must not become the
  // crash handler's pipe that a manifest read then waits on.
  orvanta::platform::ensure_standard_descriptors();
  const int status = run(argc, argv);
  // Output that did not reach its file or pipe makes a failed run. (A closed
  // pipe ends the program by SIGPIPE before this, as it should.)
  if (!orvanta::platform::stdout_written()) return 1;
  return status;
}
