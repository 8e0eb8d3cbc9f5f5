#include "tools/docgen/man_page.hpp"

#include "tools/docgen/command_tree.hpp"

namespace orvanta::docgen {

namespace {

// A description continued on a second line carries blanks that line it up on
// the help page; in the manual it is one paragraph.
std::string fold_blanks(std::string_view text) {
  std::string out;
  bool blank = false;
  for (char c : text) {
    if (c == ' ' || c == '\n') {
      blank = true;
      continue;
    }
    if (blank && !out.empty()) out += ' ';
    blank = false;
    out += c;
  }
  return out;
}

// Pre-formatted lines: the long texts are laid out by line on the help page,
// and the manual keeps their lines.
void put_verbatim(std::string& out, std::string_view text) {
  out += ".nf\n";
  while (!text.empty()) {
    std::size_t end = text.find('\n');
    std::string_view line = text.substr(0, end);
    // An empty line in no-fill mode is an empty output line.
    out += line.empty() ? std::string() : roff_escape(line);
    out += '\n';
    if (end == std::string_view::npos) break;
    text.remove_prefix(end + 1);
  }
  out += ".fi\n";
}

void put_flag(std::string& out, const cli::FlagRow& flag) {
  out += ".TP\n\\fB" + roff_escape(flag.name) + "\\fR";
  if (!flag.value.empty()) out += " \\fI" + roff_escape(flag.value) + "\\fR";
  out += "\n" + roff_escape(fold_blanks(flag.description)) + "\n";
}

void put_command(std::string& out, const cli::CommandRow& row) {
  out += ".PP\n\\fBorvanta_cli " + roff_escape(row.usage) + "\\fR\n";
  out += ".RS 4\n" + roff_escape(row.summary) + "\n";
  if (!row.long_text.empty()) {
    out += ".PP\n";
    put_verbatim(out, row.long_text);
  }
  if (!row.flags.empty()) {
    out += ".PP\nFlags:\n.RS 4\n";
    for (const cli::FlagRow& flag : row.flags) put_flag(out, flag);
    out += ".RE\n";
  }
  if (!row.examples.empty()) {
    out += ".PP\nExamples:\n.RS 4\n.nf\n";
    for (std::string_view example : row.examples) out += roff_escape(example) + "\n";
    out += ".fi\n.RE\n";
  }
  out += ".RE\n";
}

// The commands under the group titles of the top-level help page, each group
// in catalogue order, third-level commands included.
std::string commands_section(const cli::HelpCatalogue& catalogue) {
  std::string out;
  for (std::size_t group = 0; group < cli::group_count; ++group) {
    const cli::HelpCatalogue::RowList& rows = catalogue.group_rows(group);
    if (rows.empty()) continue;
    out += ".SS " + std::string(cli::group_titles[group]) + "\n";
    for (const cli::CommandRow* row : rows) put_command(out, *row);
  }
  return out;
}

std::string global_flags_section() {
  std::string out;
  for (const cli::FlagRow& flag : global_flags()) put_flag(out, flag);
  return out;
}

}  // namespace

std::string roff_escape(std::string_view text) {
  std::string out;
  bool line_start = true;
  for (char c : text) {
    if (line_start && (c == '.' || c == '\'')) out += "\\&";
    line_start = c == '\n';
    if (c == '\\') {
      out += "\\e";
    } else if (c == '-') {
      out += "\\-";
    } else {
      out += c;
    }
  }
  return out;
}

std::string man_page(std::string_view page_template, const cli::HelpCatalogue& catalogue,
                     std::string_view version) {
  std::string out;
  while (!page_template.empty()) {
    std::size_t end = page_template.find('\n');
    std::string_view line = page_template.substr(0, end);
    if (line == "@COMMANDS@") {
      out += commands_section(catalogue);
    } else if (line == "@GLOBAL_FLAGS@") {
      out += global_flags_section();
    } else {
      std::size_t at = line.find("@VERSION@");
      if (at != std::string_view::npos) {
        out += std::string(line.substr(0, at)) + std::string(version) +
               std::string(line.substr(at + 9));
      } else {
        out += line;
      }
      out += '\n';
    }
    if (end == std::string_view::npos) break;
    page_template.remove_prefix(end + 1);
  }
  return out;
}

}  // namespace orvanta::docgen
