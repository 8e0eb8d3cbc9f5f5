#include "cli/help.hpp"

#include <algorithm>
#include <string>
#include <vector>

namespace orvanta::cli {
namespace {

// Column widths of the two-column lists: commands and global flags line up
// at 15, command flags at 24. A left text that reaches the column still gets
// two blanks, so the global flags' descriptions do not line up, by design.
constexpr std::size_t list_width = 15;
constexpr std::size_t flag_width = 24;

void put(std::FILE* out, std::string_view text) {
  std::fwrite(text.data(), 1, text.size(), out);
}

void put_row(std::FILE* out, std::string_view left, std::string_view right, std::size_t width) {
  put(out, "  ");
  put(out, left);
  std::size_t blanks = left.size() + 2 < width ? width - left.size() : 2;
  for (std::size_t i = 0; i < blanks; ++i) std::fputc(' ', out);
  put(out, right);
  std::fputc('\n', out);
}

void put_global_flags(std::FILE* out) {
  put(out, "\nGLOBAL FLAGS\n");
  put_row(out, "--format text|json", "Output format (default: text)", list_width);
  put_row(out, "-h, --help", "Show help for command", list_width);
}

// One group's lines on the top-level page. A group word stands where its
// first child stands; third-level rows ("pod shows list") stay off the page.
void put_group_lines(std::FILE* out, const HelpCatalogue::RowList& rows,
                     const HelpCatalogue& catalogue) {
  std::vector<std::string_view> printed;
  for (const CommandRow* row : rows) {
    if (row->parent.empty()) {
      put_row(out, row->name, row->summary, list_width);
      continue;
    }
    if (row->parent.find(' ') != std::string_view::npos) continue;
    if (std::find(printed.begin(), printed.end(), row->parent) != printed.end()) continue;
    printed.push_back(row->parent);
    put_row(out, row->parent, catalogue.parent_summary(row->parent), list_width);
  }
}

}  // namespace

void print_usage(std::string_view program_name, const HelpCatalogue& catalogue, std::FILE* out) {
  put(out, "Control Orvanta from the command line.\n\n");
  put(out, "USAGE\n  ");
  put(out, program_name);
  put(out, " <command> [flags]\n");
  for (std::size_t group = 0; group < group_count; ++group) {
    const HelpCatalogue::RowList& rows = catalogue.group_rows(group);
    if (rows.empty()) continue;
    put(out, "\n");
    put(out, group_titles[group]);
    put(out, "\n");
    put_group_lines(out, rows, catalogue);
  }
  put_global_flags(out);
  put(out, "\nLEARN MORE\n  ");
  put(out, program_name);
  put(out, " <command> --help\n");
}

void print_group_help(std::string_view program_name, std::string_view group_name,
                      const HelpCatalogue& catalogue, std::FILE* out) {
  std::string_view summary = catalogue.parent_summary(group_name);
  if (!summary.empty()) {
    put(out, summary);
    put(out, "\n");
  }
  put(out, "\nUSAGE\n  ");
  put(out, program_name);
  put(out, " ");
  put(out, group_name);
  put(out, " <subcommand> [flags]\n");
  put(out, "\nSUBCOMMANDS\n");
  for (const CommandRow* child : catalogue.children(group_name)) {
    std::string left(child->name);
    if (child->is_default) left += " (default)";
    put_row(out, left, child->summary, list_width);
  }
  put_global_flags(out);
  put(out, "\nLEARN MORE\n  ");
  put(out, program_name);
  put(out, " ");
  put(out, group_name);
  put(out, " <subcommand> --help\n");
}

void print_command_help(std::string_view program_name, const CommandRow& row, std::FILE* out) {
  put(out, row.summary);
  put(out, "\n");
  if (!row.long_text.empty()) {
    put(out, "\n");
    put(out, row.long_text);
    put(out, "\n");
  }
  put(out, "\nUSAGE\n  ");
  put(out, program_name);
  put(out, " ");
  put(out, row.usage);
  put(out, "\n");
  if (!row.flags.empty()) {
    put(out, "\nFLAGS\n");
    for (const FlagRow& flag : row.flags) {
      std::string left(flag.name);
      if (!flag.value.empty()) {
        left += ' ';
        left += flag.value;
      }
      put_row(out, left, flag.description, flag_width);
    }
  }
  put_global_flags(out);
  if (!row.examples.empty()) {
    put(out, "\nEXAMPLES\n");
    for (std::string_view example : row.examples) {
      put(out, "  $ ");
      put(out, example);
      put(out, "\n");
    }
  }
}

void print_unknown_command(std::string_view program_name, std::string_view word,
                           const HelpCatalogue& catalogue, std::FILE* out) {
  put(out, "unknown command \"");
  put(out, word);
  put(out, "\" for \"");
  put(out, program_name);
  put(out, "\"\n\n");
  put(out, "USAGE\n  ");
  put(out, program_name);
  put(out, " <command> [flags]\n\n");
  put(out, "Available commands:\n  ");
  // Ten words to a line; the break comes after the separator, so each full
  // line ends in a comma and a blank.
  const std::vector<std::string_view>& words = catalogue.top_level_words();
  for (std::size_t n = 0; n < words.size(); ++n) {
    if (n > 0) {
      put(out, ", ");
      if (n % 10 == 0) put(out, "\n  ");
    }
    put(out, words[n]);
  }
  put(out, "\n\n");
  put(out, "Run '");
  put(out, program_name);
  put(out, " --help' for usage.\n");
}

void print_help(std::string_view program_name, std::string_view topic, std::string_view subtopic,
                const HelpCatalogue& catalogue, std::FILE* out) {
  if (topic.empty()) {
    print_usage(program_name, catalogue, out);
    return;
  }
  if (catalogue.is_parent(topic)) {
    if (subtopic.empty()) {
      print_group_help(program_name, topic, catalogue, out);
      return;
    }
    std::string joined = std::string(topic) + ' ' + std::string(subtopic);
    if (catalogue.is_parent(joined)) {
      print_group_help(program_name, joined, catalogue, out);
    } else if (const CommandRow* row = catalogue.find_child(topic, subtopic)) {
      print_command_help(program_name, *row, out);
    } else {
      print_group_help(program_name, topic, catalogue, out);
    }
    return;
  }
  // An unknown topic is no failure here: help was asked for and is given.
  if (const CommandRow* row = catalogue.find_top_level(topic)) {
    print_command_help(program_name, *row, out);
  } else {
    print_usage(program_name, catalogue, out);
  }
}

}  // namespace orvanta::cli
