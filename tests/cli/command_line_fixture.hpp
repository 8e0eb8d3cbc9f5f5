#pragma once

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

#include "cli/command_line.hpp"
#include "cli/flag_parser.hpp"
#include "cli/recognizer.hpp"

namespace orvanta::cli {

// Failure messages show ids by number, as the dispatcher knows them.
inline void PrintTo(CommandId id, std::ostream* out) {
  *out << static_cast<int>(id);
}

inline void PrintTo(Role role, std::ostream* out) {
  *out << static_cast<int>(role);
}

}  // namespace orvanta::cli

namespace orvanta::cli::testing {

// Owns an argument vector for the length of a test, so that the views of
// the parsed CommandLine stay valid: parse({"seek", "-10"}) reads as the
// command line `orvanta_cli seek -10`.
class CommandLineTest : public ::testing::Test {
 protected:
  void parse(const std::vector<std::string>& words) {
    const int argc = set_words(words);
    line = parse_command_line(argc, argv_.data());
  }

  // Runs the flag parser alone over `words`, from the first of them, as
  // behind a recognised `search`, so that a failure shows in command().
  void parse_only_flags(const std::vector<std::string>& words) {
    line = CommandLine{};
    detail::writable(line).command = CommandId::Search;
    const int argc = set_words(words);
    parse_flags(line, argc, argv_.data(), 1);
  }

  // The command line as typed, for failure messages of table loops.
  std::string typed() const {
    std::string text = "orvanta_cli";
    for (std::size_t i = 1; i < words_.size(); ++i) text += " '" + words_[i] + "'";
    return text;
  }

  // Returns the count; take argv() only after this call.
  int set_words(const std::vector<std::string>& words) {
    words_.assign(1, "orvanta_cli");
    words_.insert(words_.end(), words.begin(), words.end());
    argv_.clear();
    for (const std::string& word : words_) argv_.push_back(word.c_str());
    argv_.push_back(nullptr);
    return static_cast<int>(words_.size());
  }

  const char* const* argv() const { return argv_.data(); }

  CommandLine line;

 private:
  std::vector<std::string> words_;
  std::vector<const char*> argv_;
};

}  // namespace orvanta::cli::testing
