#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

#include "cli/command_line.hpp"
#include "cli/flag_parser.hpp"
#include "cli/recognizer.hpp"

namespace orvanta::cli::detail {

using ErrorText = std::string (*)(std::string_view);

inline constexpr std::string_view uri_prefix = "orvanta:";

// The argument vector as the grammar sees it: word 1 is the command word.
// The recogniser's row functions read words by index and finish in one of
// three ways: a command (maybe followed by flags), an error, or neither,
// which is the bare usage failure.
class Recognition {
 public:
  Recognition(CommandLine& line, int argc, const char* const* argv)
      : f(writable(line)), line_(line), argc_(argc), argv_(argv) {}

  CommandLineFields& f;

  int count() const { return argc_; }
  bool has(int i) const { return i < argc_; }
  const char* text(int i) const { return argv_[i]; }
  std::string_view word(int i) const { return argv_[i]; }
  bool is(int i, std::string_view expected) const { return has(i) && word(i) == expected; }
  bool dashed(int i) const { return has(i) && argv_[i][0] == '-'; }
  bool double_dashed(int i) const { return has(i) && starts_with(word(i), "--"); }
  bool missing_or_dashed(int i) const { return !has(i) || dashed(i); }

  void accept(CommandId id) { f.command = id; }

  void fail(std::string text) {
    f.error_text = std::move(text);
    f.command = CommandId::None;
  }

  void flags_from(int start) { parse_flags(line_, argc_, argv_, start); }

  void accept_then_flags(CommandId id, int start) {
    accept(id);
    flags_from(start);
  }

  // The main positional must be a URI; false after storing the error.
  bool take_uri(int i, ErrorText error) {
    if (!starts_with(word(i), uri_prefix)) {
      fail(error(word(i)));
      return false;
    }
    f.argument = word(i);
    return true;
  }

  bool take_float(int i, float max, ErrorText error) {
    if (!is_float_in_range(text(i), max)) {
      fail(error(word(i)));
      return false;
    }
    f.argument = word(i);
    return true;
  }

  // URIs up to the first word that begins with "--", which starts the
  // flags; URIs behind that are not collected.
  void uri_walk(int start, ErrorText error) {
    for (int i = start; i < argc_; ++i) {
      if (starts_with(word(i), "--")) return flags_from(i);
      if (!starts_with(word(i), uri_prefix)) return fail(error(word(i)));
      f.uris.emplace_back(word(i));
    }
  }

  void restricted_flags_from(int start, const std::string_view* allowed, std::size_t count,
                             std::string_view unknown_flag, std::string_view positional) {
    parse_flags(line_, argc_, argv_, start, allowed, count, unknown_flag, positional);
  }

 private:
  CommandLine& line_;
  int argc_;
  const char* const* argv_;
};

}  // namespace orvanta::cli::detail
