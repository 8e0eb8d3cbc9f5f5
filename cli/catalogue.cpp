#include "cli/catalogue.hpp"

#include <algorithm>

namespace orvanta::cli {

const HelpCatalogue& HelpCatalogue::instance() {
  // A function-local static: built once, under the compiler's guard, by
  // whichever thread asks first, and released at exit.
  static const HelpCatalogue catalogue;
  return catalogue;
}

HelpCatalogue::HelpCatalogue() : rows_(command_rows) {
  parents_.reserve(parent_rows.size());
  for (const ParentRow& parent : parent_rows) {
    parents_.push_back(Parent{parent, {}});
  }

  // The word list keeps a group word where its first child stands, so the
  // unknown-command page lists groups among the commands in table order.
  for (const CommandRow& row : rows_) {
    groups_.at(row.group).push_back(&row);
    std::string_view word = row.parent.empty() ? row.name : row.parent;
    if (std::find(top_level_words_.begin(), top_level_words_.end(), word) ==
        top_level_words_.end()) {
      top_level_words_.push_back(word);
    }
    for (Parent& parent : parents_) {
      if (parent.row.name == row.parent) parent.children.push_back(&row);
    }
  }
}

const CommandRow* HelpCatalogue::find_top_level(std::string_view name) const {
  return find_child({}, name);
}

const CommandRow* HelpCatalogue::find_child(std::string_view parent, std::string_view name) const {
  for (const CommandRow& row : rows_) {
    if (row.parent == parent && row.name == name) return &row;
  }
  return nullptr;
}

const HelpCatalogue::Parent* HelpCatalogue::find_parent(std::string_view name) const {
  for (const Parent& parent : parents_) {
    if (parent.row.name == name) return &parent;
  }
  return nullptr;
}

bool HelpCatalogue::is_parent(std::string_view name) const {
  return find_parent(name) != nullptr;
}

std::string_view HelpCatalogue::parent_summary(std::string_view name) const {
  const Parent* parent = find_parent(name);
  return parent != nullptr ? parent->row.summary : std::string_view{};
}

const HelpCatalogue::RowList& HelpCatalogue::children(std::string_view name) const {
  static const RowList none;
  const Parent* parent = find_parent(name);
  return parent != nullptr ? parent->children : none;
}

const std::vector<std::string_view>& HelpCatalogue::top_level_words() const {
  return top_level_words_;
}

const HelpCatalogue::RowList& HelpCatalogue::group_rows(std::size_t group) const {
  static const RowList none;
  return group < groups_.size() ? groups_[group] : none;
}

}  // namespace orvanta::cli
