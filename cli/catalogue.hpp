#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "cli/command_id.hpp"

namespace orvanta::cli {

// The catalogue serves help only. The recogniser does not read it, so its
// words and the grammar's words are kept in step by hand.

struct FlagRow {
  std::string_view name;
  std::string_view value;  // empty for a flag that takes no value
  std::string_view description;
};

struct CommandRow {
  std::string_view name;    // the last word of the command
  std::string_view parent;  // the words in front of it; empty at the top level
  CommandId id;
  std::uint8_t group;  // index into group_titles
  std::string_view summary;
  std::string_view usage;  // printed behind the program name
  std::string_view long_text;
  std::span<const FlagRow> flags;
  std::span<const std::string_view> examples;
  bool is_default;  // printed as a mark on the group page, nothing more
};

struct ParentRow {
  std::string_view name;
  std::string_view summary;
};

inline constexpr std::uint8_t group_playback = 0;
inline constexpr std::uint8_t group_content = 1;
inline constexpr std::uint8_t group_messaging = 2;
inline constexpr std::uint8_t group_library = 3;
inline constexpr std::uint8_t group_system = 4;
inline constexpr std::size_t group_count = 5;

// Indexed by CommandRow::group; the top-level page shows them in this order
// and leaves out a title that has no rows.
inline constexpr std::array<std::string_view, group_count> group_titles{
    "PLAYBACK", "CONTENT", "MESSAGING", "LIBRARY", "SYSTEM"};

inline constexpr std::size_t command_row_count = 65;
inline constexpr std::size_t parent_row_count = 11;

extern const std::array<CommandRow, command_row_count> command_rows;
extern const std::array<ParentRow, parent_row_count> parent_rows;

// The index over the constant tables that the help pages read. There is one,
// built at its first use and kept to the end of the process; every lookup
// compares exactly and scans linearly.
class HelpCatalogue {
 public:
  using RowList = std::vector<const CommandRow*>;

  // Thread-safe; the first call builds the catalogue.
  static const HelpCatalogue& instance();

  HelpCatalogue(const HelpCatalogue&) = delete;
  HelpCatalogue& operator=(const HelpCatalogue&) = delete;

  // The row with an empty parent and this name; nullptr when there is none.
  const CommandRow* find_top_level(std::string_view name) const;
  // The row with this parent and this name; nullptr when there is none.
  const CommandRow* find_child(std::string_view parent, std::string_view name) const;
  bool is_parent(std::string_view name) const;
  // Empty when no group has this name.
  std::string_view parent_summary(std::string_view name) const;
  // The rows whose parent is `name`, in table order; empty for a non-group.
  const RowList& children(std::string_view name) const;
  // Top-level command names and group words in order of first appearance,
  // third-level groups ("pod shows") included.
  const std::vector<std::string_view>& top_level_words() const;
  // The rows of one group index in table order; empty for an index out of range.
  const RowList& group_rows(std::size_t group) const;

 private:
  struct Parent {
    ParentRow row;
    RowList children;
  };

  HelpCatalogue();
  const Parent* find_parent(std::string_view name) const;

  std::array<CommandRow, command_row_count> rows_;
  std::array<RowList, group_count> groups_;
  std::vector<std::string_view> top_level_words_;
  std::vector<Parent> parents_;
};

}  // namespace orvanta::cli
