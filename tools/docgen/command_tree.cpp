#include "tools/docgen/command_tree.hpp"

#include <algorithm>

namespace orvanta::docgen {

namespace {

Node* find(std::vector<Node>& tree, std::string_view path) {
  for (Node& node : tree) {
    if (node.path == path) return &node;
  }
  return nullptr;
}

Node& find_or_add(std::vector<Node>& tree, std::string_view path) {
  if (Node* node = find(tree, path)) return *node;
  tree.push_back(Node{std::string(path), {}, {}, false});
  return tree.back();
}

std::string join(std::string_view parent, std::string_view name) {
  return parent.empty() ? std::string(name) : std::string(parent) + " " + std::string(name);
}

void add_flag(Node& node, const cli::FlagRow& flag) {
  auto same = [&](const cli::FlagRow* f) { return f->name == flag.name; };
  if (std::none_of(node.flags.begin(), node.flags.end(), same)) node.flags.push_back(&flag);
}

}  // namespace

const std::vector<cli::FlagRow>& global_flags() {
  static const std::vector<cli::FlagRow> flags{
      {"--format", "text|json", "Output format (default: text)"},
      {"--help", "", "Show help for command"},
  };
  return flags;
}

std::vector<Node> command_tree(const cli::HelpCatalogue& catalogue) {
  std::vector<Node> tree;
  Node& root = find_or_add(tree, "");
  for (std::string_view word : catalogue.top_level_words()) {
    if (word.find(' ') != std::string_view::npos) continue;  // "pod shows" hangs under "pod"
    const cli::CommandRow* row = catalogue.find_top_level(word);
    root.subcommands.push_back(Word{word, row != nullptr ? row->summary : catalogue.parent_summary(word)});
  }
  for (const cli::ParentRow& parent : cli::parent_rows) {
    Node& node = find_or_add(tree, parent.name);
    for (const cli::CommandRow* child : catalogue.children(parent.name)) {
      node.subcommands.push_back(Word{child->name, child->summary});
    }
  }
  for (const cli::CommandRow& row : cli::command_rows) {
    Node& node = find_or_add(tree, join(row.parent, row.name));
    for (const cli::FlagRow& flag : row.flags) add_flag(node, flag);
    if (row.usage.find("<file>") != std::string_view::npos) node.file_argument = true;
  }
  for (Node& node : tree) {
    for (const cli::FlagRow& flag : global_flags()) add_flag(node, flag);
  }
  return tree;
}

ValueKind value_kind(const cli::FlagRow& flag) {
  if (flag.value.empty()) return ValueKind::none;
  if (!flag_choices(flag).empty()) return ValueKind::choices;
  if (flag.value.find("path") != std::string_view::npos) return ValueKind::path;
  return ValueKind::free;
}

std::vector<std::string_view> flag_choices(const cli::FlagRow& flag) {
  // The catalogue writes --format's value as "<json>"; text is its default.
  if (flag.name == "--format") return {"text", "json"};
  if (flag.value == "<on|off>") return {"on", "off"};
  return {};
}

std::vector<const cli::FlagRow*> all_flags(const std::vector<Node>& tree) {
  std::vector<const cli::FlagRow*> flags;
  for (const Node& node : tree) {
    for (const cli::FlagRow* flag : node.flags) {
      auto same = [&](const cli::FlagRow* f) { return f->name == flag->name; };
      if (std::none_of(flags.begin(), flags.end(), same)) flags.push_back(flag);
    }
  }
  return flags;
}

std::string first_line(std::string_view text) {
  return std::string(text.substr(0, text.find('\n')));
}

}  // namespace orvanta::docgen
