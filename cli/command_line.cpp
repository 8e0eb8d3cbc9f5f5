#include "cli/command_line.hpp"

namespace orvanta::cli::detail {

CommandLineFields& writable(CommandLine& line) {
  return line.f_;
}

}  // namespace orvanta::cli::detail
