// libFuzzer target: the flag parser and the recogniser on an arbitrary
// argument vector. The input is cut at its NUL bytes into the words after
// the program name. parse_command_line must neither throw nor read past
// argv, and a usage failure leaves the command at None, except for `play`
// without a URI or device, which resumes whatever its flags held (so
// `play --nonsense` resumes, its error text never shown).
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "cli/recognizer.hpp"
#include "fuzz/fuzz_property.hpp"

using orvanta::fuzz::check;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::vector<std::string> words{"orvanta_cli"};
  std::string word;
  for (std::size_t i = 0; i < size; ++i) {
    if (data[i] == 0) {
      words.push_back(word);
      word.clear();
    } else {
      word.push_back(static_cast<char>(data[i]));
    }
  }
  if (!word.empty()) words.push_back(word);
  if (words.size() > 64) return 0;
  // Each word in a block of its own, so that ASan sees a read past its end.
  std::vector<std::unique_ptr<char[]>> storage;
  std::vector<const char*> argv;
  for (const auto& w : words) {
    storage.push_back(std::make_unique<char[]>(w.size() + 1));
    std::memcpy(storage.back().get(), w.c_str(), w.size() + 1);
    argv.push_back(storage.back().get());
  }
  argv.push_back(nullptr);
  const auto line = orvanta::cli::parse_command_line(static_cast<int>(words.size()), argv.data());
  if (!line.error_text().empty()) {
    check(line.command() == orvanta::cli::CommandId::None || line.command() == orvanta::cli::CommandId::Resume,
          "a rejected word leaves no command but resume");
  }
  return 0;
}
