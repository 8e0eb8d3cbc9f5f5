#include "crash/handler/process_maps.hpp"

#include <algorithm>
#include <charconv>

namespace orvanta::crash {
namespace {

// Takes the next blank-separated field off the front of `line`.
std::string_view next_field(std::string_view& line) {
  auto begin = line.find_first_not_of(' ');
  if (begin == std::string_view::npos) {
    line = {};
    return {};
  }
  line.remove_prefix(begin);
  auto end = line.find(' ');
  std::string_view field = line.substr(0, end);
  line = end == std::string_view::npos ? std::string_view{} : line.substr(end);
  return field;
}

bool parse_number(std::string_view text, std::uint64_t& number, int base) {
  auto [end, ec] = std::from_chars(text.data(), text.data() + text.size(), number, base);
  return ec == std::errc{} && end == text.data() + text.size() && !text.empty();
}

std::optional<Mapping> parse_line(std::string_view line) {
  Mapping mapping;
  std::string_view range = next_field(line);
  std::string_view permissions = next_field(line);
  std::string_view offset = next_field(line);
  next_field(line);  // device
  std::string_view inode = next_field(line);
  auto dash = range.find('-');
  if (dash == std::string_view::npos || !parse_number(range.substr(0, dash), mapping.start, 16) ||
      !parse_number(range.substr(dash + 1), mapping.end, 16) ||
      !parse_number(offset, mapping.offset, 16) || !parse_number(inode, mapping.inode, 10) ||
      permissions.size() != 4 || mapping.end <= mapping.start) {
    return std::nullopt;
  }
  mapping.permissions = permissions;
  // The path runs to the end of the line and may hold blanks of its own.
  auto path_begin = line.find_first_not_of(' ');
  if (path_begin != std::string_view::npos) mapping.path = line.substr(path_begin);
  return mapping;
}

}  // namespace

std::vector<Mapping> parse_maps(std::string_view text) {
  std::vector<Mapping> maps;
  while (!text.empty()) {
    auto end = text.find('\n');
    if (auto mapping = parse_line(text.substr(0, end))) maps.push_back(std::move(*mapping));
    text = end == std::string_view::npos ? std::string_view{} : text.substr(end + 1);
  }
  return maps;
}

const Mapping* find_mapping(const std::vector<Mapping>& maps, std::uint64_t address) {
  auto it = std::find_if(maps.begin(), maps.end(),
                         [address](const Mapping& m) { return m.contains(address); });
  return it == maps.end() ? nullptr : &*it;
}

std::optional<ModuleLocation> locate_module(const std::vector<Mapping>& maps,
                                            std::uint64_t address) {
  const Mapping* holder = find_mapping(maps, address);
  if (holder == nullptr || holder->path.empty()) return std::nullopt;
  std::uint64_t base = holder->start;
  for (const Mapping& m : maps) {
    if (m.path == holder->path && m.inode == holder->inode) base = std::min(base, m.start);
  }
  return ModuleLocation{holder->path, address - base};
}

}  // namespace orvanta::crash
