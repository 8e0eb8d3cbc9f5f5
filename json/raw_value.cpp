#include "json/raw_value.hpp"

#include <cstdlib>
#include <cstring>
#include <new>
#include <ostream>
#include <utility>

#include "json/skip_value.hpp"

namespace orvanta::json {

namespace {

const char* copy_block(const char* bytes, std::size_t size) {
  // malloc(0) may return null; one byte keeps "null means failure" true.
  auto* block = static_cast<char*>(std::malloc(size == 0 ? 1 : size));
  if (block == nullptr) throw std::bad_alloc();
  if (size != 0) std::memcpy(block, bytes, size);
  return block;
}

}  // namespace

void RawJsonValue::release(void* block) { std::free(block); }

RawJsonValue::RawJsonValue(std::string_view text)
    : size_(text.size()), data_(copy_block(text.data(), text.size())), deleter_(&release) {}

RawJsonValue::RawJsonValue(EncodedText&& text) noexcept {
  const std::size_t size = text.size();
  char* block = text.release();
  if (block != nullptr) {
    size_ = size;
    data_ = block;
    deleter_ = &release;
  } else {
    size_ = 0;
    data_ = "";
  }
}

RawJsonValue::RawJsonValue(const RawJsonValue& other) {
  if (other.deleter_ == &keep) {
    size_ = other.size_;
    data_ = other.data_;
    return;
  }
  data_ = copy_block(other.data_, other.size_);
  size_ = other.size_;
  deleter_ = &release;
}

RawJsonValue::RawJsonValue(RawJsonValue&& other) noexcept { swap(other); }

RawJsonValue& RawJsonValue::operator=(const RawJsonValue& other) {
  if (this != &other) {
    RawJsonValue copy(other);
    swap(copy);
  }
  return *this;
}

RawJsonValue& RawJsonValue::operator=(RawJsonValue&& other) noexcept {
  RawJsonValue taken(std::move(other));
  swap(taken);
  return *this;
}

void RawJsonValue::swap(RawJsonValue& other) noexcept {
  std::swap(size_, other.size_);
  std::swap(data_, other.data_);
  std::swap(deleter_, other.deleter_);
}

std::ostream& operator<<(std::ostream& out, const RawJsonValue& value) { return out << value.view(); }

RawJsonValue RawValueCodec::decode(DecodeContext& context) const {
  const char* start = context.position;
  skip_value(context);
  const auto size = static_cast<std::size_t>(context.position - start);
  return RawJsonValue(copy_block(start, size), size, &std::free);
}

}  // namespace orvanta::json
