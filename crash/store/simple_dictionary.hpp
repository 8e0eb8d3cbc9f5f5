#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

namespace orvanta::crash {

// A fixed table of short key/value texts kept in the process that may crash.
// Its fatal-signal handler sends the table to the handler process byte for
// byte, so it holds no pointers and never allocates: a slot with an empty
// key is free, and texts are NUL-terminated and cut to fit.
class SimpleStringDictionary {
 public:
  static constexpr std::size_t kMaxEntries = 64;
  static constexpr std::size_t kKeySize = 256;    // the terminating NUL included
  static constexpr std::size_t kValueSize = 256;  // the terminating NUL included

  struct Entry {
    std::array<char, kKeySize> key;
    std::array<char, kValueSize> value;
  };

  // Sets `key` to `value`, replacing an earlier value of the same key.
  // Returns false, leaving the table as it was, when `key` is empty or every
  // slot is taken by another key.
  bool set(std::string_view key, std::string_view value);

  // Frees the slot of `key`; nothing happens when there is none.
  void remove(std::string_view key);

  // The value of `key`, or nullptr when the key is not in the table.
  const char* get(std::string_view key) const;

  // The used slots in table order.
  std::vector<std::pair<std::string, std::string>> entries() const;

 private:
  std::array<Entry, kMaxEntries> entries_{};
};

static_assert(std::is_trivially_copyable_v<SimpleStringDictionary>);

}  // namespace orvanta::crash
