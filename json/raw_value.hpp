// RawJsonValue: one JSON value kept as its text, and its codec.
#pragma once

#include <cstddef>
#include <iosfwd>
#include <string_view>

#include "json/codec.hpp"

namespace orvanta::json {

// Owns a run of bytes holding one JSON value as text. The default is the
// four bytes `null` in static storage, with a deleter that does nothing.
// Copies are deep (malloc); equality compares the bytes.
class RawJsonValue {
 public:
  using Deleter = void (*)(void*);

  RawJsonValue() noexcept = default;
  // Copies `text` into a new malloc block. Throws std::bad_alloc.
  explicit RawJsonValue(std::string_view text);
  // Takes over an encoded text without copying it.
  explicit RawJsonValue(EncodedText&& text) noexcept;
  // Takes over `size` bytes at `data`, to be released with `deleter`.
  RawJsonValue(const char* data, std::size_t size, Deleter deleter) noexcept
      : size_(size), data_(data), deleter_(deleter) {}

  RawJsonValue(const RawJsonValue& other);
  RawJsonValue(RawJsonValue&& other) noexcept;
  RawJsonValue& operator=(const RawJsonValue& other);
  RawJsonValue& operator=(RawJsonValue&& other) noexcept;
  ~RawJsonValue() { deleter_(const_cast<char*>(data_)); }

  const char* data() const noexcept { return data_; }
  std::size_t size() const noexcept { return size_; }
  std::string_view view() const noexcept { return {data_, size_}; }

  friend bool operator==(const RawJsonValue& a, const RawJsonValue& b) noexcept { return a.view() == b.view(); }
  friend bool operator==(const RawJsonValue& a, std::string_view b) noexcept { return a.view() == b; }

 private:
  static void keep(void*) {}
  static void release(void* block);
  void swap(RawJsonValue& other) noexcept;

  std::size_t size_ = 4;
  const char* data_ = "null";
  Deleter deleter_ = &keep;
};

std::ostream& operator<<(std::ostream& out, const RawJsonValue& value);

// Decodes by skipping one value (skip_value, with all its validation) and
// copying the skipped bytes; encodes the bytes as they stand.
struct RawValueCodec {
  using value_type = RawJsonValue;
  RawJsonValue decode(DecodeContext& context) const;
  void encode(EncodeContext& context, const RawJsonValue& value) const { context.append(value.data(), value.size()); }
};

inline RawValueCodec raw_value_codec() { return {}; }

template <>
struct implied_codec<RawJsonValue> {
  using type = RawValueCodec;
};

}  // namespace orvanta::json
