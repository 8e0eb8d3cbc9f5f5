#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvanta::crash {

// One line of /proc/<pid>/maps.
struct Mapping {
  std::uint64_t start = 0;
  std::uint64_t end = 0;  // one past the last byte
  std::string permissions;  // "r-xp" and the like
  std::uint64_t offset = 0;  // file offset of `start`
  std::uint64_t inode = 0;
  std::string path;  // file or pseudo name ("[stack]"); empty for anonymous memory

  bool executable() const { return permissions.size() >= 3 && permissions[2] == 'x'; }
  bool contains(std::uint64_t address) const { return address >= start && address < end; }
};

// The mappings of a maps text, in its order (rising addresses). Lines that
// do not parse are skipped.
std::vector<Mapping> parse_maps(std::string_view text);

// The mapping holding `address`, or nullptr.
const Mapping* find_mapping(const std::vector<Mapping>& maps, std::uint64_t address);

// Where an address lies within a loaded file.
struct ModuleLocation {
  std::string path;
  std::uint64_t offset = 0;  // from the module's load base
  bool operator==(const ModuleLocation&) const = default;
};

// The module of `address` and its distance from the module's load base,
// that is the lowest mapping of the same file. For a position-independent
// executable or a shared library this is the address a symboliser takes
// ("addr2line -e PATH OFFSET"). nullopt outside any named mapping.
std::optional<ModuleLocation> locate_module(const std::vector<Mapping>& maps,
                                            std::uint64_t address);

}  // namespace orvanta::crash
