#include "commands/library_batch.hpp"

#include <sys/stat.h>

#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>

#include "commands/batch_runner.hpp"

namespace orvanta::commands {
namespace {

// No manifest of real use comes near this; a stream without end (/dev/zero)
// stops here instead of filling the memory.
constexpr std::size_t kManifestLimit = std::size_t{64} << 20;

// Reads `in` to its end into `text`. False when it holds more than the limit:
// a regular file is refused by its size before anything is read, a stream
// once the limit is passed.
bool read_manifest(std::FILE* in, std::string& text) {
  struct stat info {};
  if (::fstat(::fileno(in), &info) == 0 && S_ISREG(info.st_mode) &&
      static_cast<std::uintmax_t>(info.st_size) > kManifestLimit) {
    return false;
  }
  char buffer[65536];
  std::size_t got = 0;
  while ((got = std::fread(buffer, 1, sizeof buffer, in)) > 0) {
    if (text.size() + got > kManifestLimit) return false;
    text.append(buffer, got);
  }
  return true;
}

int too_large(Context& context) {
  std::fprintf(context.err, "library batch: the manifest is larger than 64 MiB\n");
  return 1;
}

}  // namespace

int library_batch(const cli::CommandLine& line, Context& context) {
  std::string manifest;
  if (line.from_file()) {
    std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(line.from_file()->c_str(), "rb"), std::fclose);
    if (!file) {
      std::fprintf(context.err, "library batch: could not open file '%s'\n", line.from_file()->c_str());
      return 1;
    }
    // An empty file is left to the decoder to refuse.
    if (!read_manifest(file.get(), manifest)) return too_large(context);
  } else {
    if (!read_manifest(stdin, manifest)) return too_large(context);
    if (manifest.empty()) {
      std::fprintf(context.err, "library batch: no manifest input (expected JSON on stdin or --from-file)\n");
      return 1;
    }
  }
  return run_batch(manifest, line.stop_on_error(), line.json_output(), context);
}

}  // namespace orvanta::commands
