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
        if (candidate.size() == key.size() && same_bytes(candidate.data(), key.data(), key.size())) {
          return slot.index_plus_one - 1;
        }
      }
    }
  }

  std::size_t size() const noexcept { return keys_.size(); }

  // Length and three bytes, mixed: keys of one record rarely agree in all of
  // them, and a collision only costs a comparison. Reads only inside the key.
  static std::uint32_t hash_key(std::string_view key) noexcept {
    const std::size_t n = key.size();
    std::uint64_t h = n;
    if (n != 0) {
      const auto* p = reinterpret_cast<const unsigned char*>(key.data());
      h |= (std::uint64_t{p[0]} << 16) | (std::uint64_t{p[n / 2]} << 24) | (std::uint64_t{p[n - 1]} << 32);
    }
    h *= 0x9E3779B97F4A7C15ULL;
    return static_cast<std::uint32_t>(h >> 32);
  }

  // Equality of n bytes with overlapping word loads that stay inside both
  // ranges; keys are short.
  static bool same_bytes(const char* a, const char* b, std::size_t n) noexcept {
    if (n >= 8) {
      if (n > 16) return std::memcmp(a, b, n) == 0;
      return load<std::uint64_t>(a) == load<std::uint64_t>(b) &&
             load<std::uint64_t>(a + n - 8) == load<std::uint64_t>(b + n - 8);
    }
    if (n >= 4) {
      return load<std::uint32_t>(a) == load<std::uint32_t>(b) &&
             load<std::uint32_t>(a + n - 4) == load<std::uint32_t>(b + n - 4);
    }
    for (std::size_t i = 0; i < n; ++i) {
      if (a[i] != b[i]) return false;
    }
    return true;
  }

 private:
  template <class Word>
  static Word load(const char* p) noexcept {
    Word word;
    std::memcpy(&word, p, sizeof word);
    return word;
  }

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
