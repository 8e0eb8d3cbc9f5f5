#include "commands/library_batch.hpp"

#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>

#include "commands/batch_runner.hpp"

namespace orvanta::commands {
namespace {

std::string read_all(std::FILE* in) {
  std::string text;
  char buffer[4096];
  std::size_t got = 0;
  while ((got = std::fread(buffer, 1, sizeof buffer, in)) > 0) text.append(buffer, got);
  return text;
}

}  // namespace

int library_batch(const cli::CommandLine& line, Context& context) {
  std::string manifest;
  if (line.from_file()) {
    std::ifstream file(*line.from_file(), std::ios::binary);
    if (!file) return context.fail("library batch: could not open file '%s'\n", line.from_file()->c_str());
    // An empty file is left to the decoder to refuse.
    manifest.assign(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
  } else {
    manifest = read_all(context.in);
    if (manifest.empty()) {
      return context.fail("library batch: no manifest input (expected JSON on stdin or --from-file)\n");
    }
  }
  return run_batch(manifest, line.stop_on_error(), line.json_output(), context);
}

}  // namespace orvanta::commands
