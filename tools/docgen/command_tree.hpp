#pragma once

// The catalogue seen as the shell sees it: a tree of command words. Each node
// is a command path as typed ("", "pod", "pod shows", "pod shows create")
// with the words that may follow it and the flags its page offers. The man
// page and every completion script are written from this one view.

#include <string>
#include <string_view>
#include <vector>

#include "cli/catalogue.hpp"

namespace orvanta::docgen {

struct Word {
  std::string_view name;
  std::string_view summary;
};

struct Node {
  std::string path;                        // words after the program name, joined by one blank
  std::vector<Word> subcommands;           // in catalogue order
  std::vector<const cli::FlagRow*> flags;  // the row's own flags, then the global ones
  bool file_argument = false;              // its usage names a <file> operand
};

// What a flag's value is, for completion.
enum class ValueKind {
  none,     // the flag takes no value
  free,     // anything; nothing to offer
  path,     // a file name
  choices,  // one of flag_choices()
};

// --format and --help: every page lists them under GLOBAL FLAGS.
const std::vector<cli::FlagRow>& global_flags();

// Every node of the tree, the program itself first, then in catalogue order.
std::vector<Node> command_tree(const cli::HelpCatalogue& catalogue);

ValueKind value_kind(const cli::FlagRow& flag);
// The fixed values of a flag of kind `choices`; empty for any other.
std::vector<std::string_view> flag_choices(const cli::FlagRow& flag);

// Every distinct flag of the tree, in order of first appearance.
std::vector<const cli::FlagRow*> all_flags(const std::vector<Node>& tree);

// The first line of a flag description, with its run of blanks folded.
std::string first_line(std::string_view text);

}  // namespace orvanta::docgen
