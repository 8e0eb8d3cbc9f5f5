// orvanta_docgen: writes the manual page and the shell completions of
// orvanta_cli from the command catalogue, at build time.
//
//   orvanta_docgen man TEMPLATE OUT
//   orvanta_docgen bash|zsh|fish OUT

#include <cstdio>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <string_view>

#include "cli/catalogue.hpp"
#include "commands/program.hpp"
#include "tools/docgen/command_tree.hpp"
#include "tools/docgen/completions.hpp"
#include "tools/docgen/man_page.hpp"

namespace {

bool read_file(const char* path, std::string& text) {
  std::ifstream in(path, std::ios::binary);
  if (!in) return false;
  text.assign(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
  return true;
}

bool write_file(const char* path, const std::string& text) {
  std::ofstream out(path, std::ios::binary | std::ios::trunc);
  out << text;
  return static_cast<bool>(out.flush());
}

int usage() {
  std::fputs("usage: orvanta_docgen man TEMPLATE OUT | bash OUT | zsh OUT | fish OUT\n", stderr);
  return 2;
}

}  // namespace

int main(int argc, char** argv) {
  using namespace orvanta;
  if (argc < 3) return usage();
  const std::string_view what = argv[1];
  const cli::HelpCatalogue& catalogue = cli::HelpCatalogue::instance();

  std::string text;
  const char* out_path = argv[2];
  if (what == "man") {
    if (argc != 4) return usage();
    std::string page_template;
    if (!read_file(argv[2], page_template)) {
      std::fprintf(stderr, "orvanta_docgen: cannot read %s\n", argv[2]);
      return 1;
    }
    text = docgen::man_page(page_template, catalogue, commands::kVersion);
    out_path = argv[3];
  } else if (what == "bash") {
    text = docgen::bash_completion(docgen::command_tree(catalogue));
  } else if (what == "zsh") {
    text = docgen::zsh_completion(docgen::command_tree(catalogue));
  } else if (what == "fish") {
    text = docgen::fish_completion(docgen::command_tree(catalogue));
  } else {
    return usage();
  }
  if (!write_file(out_path, text)) {
    std::fprintf(stderr, "orvanta_docgen: cannot write %s\n", out_path);
    return 1;
  }
  return 0;
}
