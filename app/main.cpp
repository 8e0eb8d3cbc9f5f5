#include <cstdio>

#include "cli/catalogue.hpp"
#include "cli/help.hpp"
#include "cli/recognizer.hpp"
#include "cli/runner.hpp"

using orvanta::cli::CommandId;

int main(int argc, char** argv) {
  const auto line = orvanta::cli::parse_command_line(argc, argv);
  const auto& catalogue = orvanta::cli::HelpCatalogue::instance();

  if (line.help_requested()) {
    orvanta::cli::print_help(line.program_name(), line.help_topic(), line.help_subtopic(), catalogue);
    return 0;
  }

  if (line.command() != CommandId::None) {
    orvanta::cli::CommandRunner runner;
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
