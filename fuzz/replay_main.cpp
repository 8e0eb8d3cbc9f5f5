// The main of the fuzz targets outside clang: feeds every file named on the
// command line (or found in a named folder) through LLVMFuzzerTestOneInput
// once, so that the targets build and their corpus replays with any
// compiler. Arguments that start with '-' (libFuzzer's flags) are ignored.
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

void replay_file(const std::filesystem::path& path) {
  std::ifstream in(path, std::ios::binary);
  const std::vector<char> bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
}

}  // namespace

int main(int argc, char** argv) {
  std::size_t count = 0;
  for (int i = 1; i < argc; ++i) {
    const std::string argument = argv[i];
    if (argument.starts_with("-")) continue;
    const std::filesystem::path path(argument);
    if (std::filesystem::is_directory(path)) {
      for (const auto& entry : std::filesystem::recursive_directory_iterator(path)) {
        if (!entry.is_regular_file()) continue;
        replay_file(entry.path());
        ++count;
      }
    } else {
      replay_file(path);
      ++count;
    }
  }
  std::printf("replayed %zu inputs\n", count);
  return 0;
}
