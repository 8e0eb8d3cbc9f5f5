#include "json/context.hpp"

#include <limits>
#include <ostream>

namespace orvanta::json {

void fail(const DecodeContext& context, const char* message, int delta) {
  const auto offset = static_cast<std::size_t>(context.position - context.begin) + static_cast<std::size_t>(delta);
  throw decode_exception(message, offset);
}

void fail(const DecodeContext& context, const std::string& message, int delta) {
  const auto offset = static_cast<std::size_t>(context.position - context.begin) + static_cast<std::size_t>(delta);
  throw decode_exception(message, offset);
}

void fail_encode(const char* message) { throw encode_exception(message); }

std::ostream& operator<<(std::ostream& out, const EncodedText& text) { return out << text.view(); }

EncodeContext::EncodeContext(std::size_t initial_capacity) {
  if (initial_capacity == 0) return;
  data = static_cast<char*>(std::malloc(initial_capacity));
  if (data == nullptr) throw std::bad_alloc();
  position = data;
  end = data + initial_capacity;
  capacity = initial_capacity;
}

char* EncodeContext::grow(std::size_t n) {
  const auto used = static_cast<std::size_t>(position - data);
  constexpr std::size_t all_ones = std::numeric_limits<std::size_t>::max();
  if (n > all_ones - used) throw std::bad_alloc();
  // Doubling starts from the capacity, not from what is used, and saturates.
  const std::size_t doubled = capacity > all_ones / 2 ? all_ones : capacity * 2;
  const std::size_t wanted = used + n > doubled ? used + n : doubled;
  auto* block = static_cast<char*>(std::realloc(data, wanted));
  if (block == nullptr) throw std::bad_alloc();
  data = block;
  position = block + used;
  end = block + wanted;
  capacity = wanted;
  return position;
}

EncodedText EncodeContext::release() noexcept {
  EncodedText text(data, size());
  data = nullptr;
  position = nullptr;
  end = nullptr;
  capacity = 0;
  return text;
}

}  // namespace orvanta::json
