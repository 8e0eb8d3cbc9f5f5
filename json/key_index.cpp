#include "json/key_index.hpp"

namespace orvanta::json::detail {

bool KeyIndex::insert(std::string_view key) {
  if (find(key) != npos) return false;
  keys_.emplace_back(key);
  // At most half full, so that a probe always ends on an empty slot.
  if (keys_.size() * 2 > slots_.size()) {
    rebuild(slots_.empty() ? 16 : slots_.size() * 2);
    return true;
  }
  const std::uint32_t hash = hash_key(key);
  std::size_t i = hash & mask_;
  while (slots_[i].index_plus_one != 0) i = (i + 1) & mask_;
  slots_[i] = Slot{hash, static_cast<std::uint32_t>(keys_.size())};
  return true;
}

void KeyIndex::rebuild(std::size_t slot_count) {
  slots_.assign(slot_count, Slot{0, 0});
  mask_ = slot_count - 1;
  for (std::size_t k = 0; k < keys_.size(); ++k) {
    const std::uint32_t hash = hash_key(keys_[k]);
    std::size_t i = hash & mask_;
    while (slots_[i].index_plus_one != 0) i = (i + 1) & mask_;
    slots_[i] = Slot{hash, static_cast<std::uint32_t>(k + 1)};
  }
}

}  // namespace orvanta::json::detail
