// The `by_key` table of an object codec: an open-addressed hash table from a
// plain key to the index of its field.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

namespace orvanta::json::detail {

class KeyIndex {
 public:
  static constexpr std::size_t npos = static_cast<std::size_t>(-1);

  // Adds `key` with the index size(); returns false, changing nothing, when
  // the key is already present.
  bool insert(std::string_view key);

  // The index of `key`, or npos.
  std::size_t find(std::string_view key) const noexcept {
    if (slots_.empty()) return npos;
    const std::uint32_t hash = hash_key(key);
    for (std::size_t i = hash & mask_;; i = (i + 1) & mask_) {
      const Slot& slot = slots_[i];
      if (slot.index_plus_one == 0) return npos;
      if (slot.hash == hash) {
        const std::string& candidate = keys_[slot.index_plus_one - 1];
        if (candidate.size() == key.size() && std::memcmp(candidate.data(), key.data(), key.size()) == 0) {
          return slot.index_plus_one - 1;
        }
      }
    }
  }

  std::size_t size() const noexcept { return keys_.size(); }

  static std::uint32_t hash_key(std::string_view key) noexcept {
    constexpr std::uint64_t kMultiplier = 0x9E3779B97F4A7C15ULL;
    std::uint64_t h = key.size() * kMultiplier;
    const char* p = key.data();
    std::size_t n = key.size();
    while (n >= 8) {
      std::uint64_t word;
      std::memcpy(&word, p, 8);
      h = (h ^ word) * kMultiplier;
      h ^= h >> 29;
      p += 8;
      n -= 8;
    }
    std::uint64_t tail = 0;
    if (n != 0) std::memcpy(&tail, p, n);
    h = (h ^ tail) * kMultiplier;
    h ^= h >> 32;
    return static_cast<std::uint32_t>(h);
  }

 private:
  struct Slot {
    std::uint32_t hash;
    std::uint32_t index_plus_one;  // 0: empty
  };

  void rebuild(std::size_t slot_count);

  std::vector<std::string> keys_;
  std::vector<Slot> slots_;
  std::size_t mask_ = 0;
};

}  // namespace orvanta::json::detail
