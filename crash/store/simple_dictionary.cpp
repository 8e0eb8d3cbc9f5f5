#include "crash/store/simple_dictionary.hpp"

#include <algorithm>
#include <cstring>

namespace orvanta::crash {
namespace {

template <std::size_t N>
void copy_text(std::array<char, N>& slot, std::string_view text) {
  std::size_t length = std::min(text.size(), N - 1);
  std::memcpy(slot.data(), text.data(), length);
  std::fill(slot.begin() + static_cast<std::ptrdiff_t>(length), slot.end(), '\0');
}

template <std::size_t N>
std::string_view text_of(const std::array<char, N>& slot) {
  return {slot.data(), strnlen(slot.data(), N)};
}

// Keys are stored cut to fit, so lookups compare against the cut form.
std::string_view stored_key(std::string_view key) {
  return key.substr(0, SimpleStringDictionary::kKeySize - 1);
}

}  // namespace

bool SimpleStringDictionary::set(std::string_view key, std::string_view value) {
  if (key.empty()) return false;
  key = stored_key(key);
  Entry* free_slot = nullptr;
  for (Entry& entry : entries_) {
    if (text_of(entry.key) == key) {
      copy_text(entry.value, value);
      return true;
    }
    if (free_slot == nullptr && entry.key[0] == '\0') free_slot = &entry;
  }
  if (free_slot == nullptr) return false;
  copy_text(free_slot->key, key);
  copy_text(free_slot->value, value);
  return true;
}

void SimpleStringDictionary::remove(std::string_view key) {
  key = stored_key(key);
  for (Entry& entry : entries_) {
    if (entry.key[0] != '\0' && text_of(entry.key) == key) entry = Entry{};
  }
}

const char* SimpleStringDictionary::get(std::string_view key) const {
  key = stored_key(key);
  for (const Entry& entry : entries_) {
    if (entry.key[0] != '\0' && text_of(entry.key) == key) return entry.value.data();
  }
  return nullptr;
}

std::vector<std::pair<std::string, std::string>> SimpleStringDictionary::entries() const {
  std::vector<std::pair<std::string, std::string>> used;
  for (const Entry& entry : entries_) {
    if (entry.key[0] == '\0') continue;
    used.emplace_back(text_of(entry.key), text_of(entry.value));
  }
  return used;
}

}  // namespace orvanta::crash
