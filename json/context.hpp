// The two byte cursors of orvanta::json, its two exception types and the
// whitespace skipper. Everything else in the library reads from a
// DecodeContext and writes into an EncodeContext.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <iosfwd>
#include <memory>
#include <new>
#include <stdexcept>
#include <string>
#include <string_view>

namespace orvanta::json {

// A failed decode: the message is one of the fixed texts of the library, the
// offset counts bytes from the first byte of the input.
class decode_exception : public std::runtime_error {
 public:
  decode_exception(const char* message, std::size_t offset)
      : std::runtime_error(message), offset_(offset) {}
  decode_exception(const std::string& message, std::size_t offset)
      : std::runtime_error(message), offset_(offset) {}

  std::size_t offset() const noexcept { return offset_; }

 private:
  std::size_t offset_;
};

// A value that has no JSON form (a non-finite double, an unknown enumerator,
// an empty optional where a value is due).
class encode_exception : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// A read cursor over bytes that the caller owns for the whole decode. Nothing
// is terminated by a zero byte: every reader checks `position` against `end`.
struct DecodeContext {
  DecodeContext(const char* first, const char* last) noexcept
      : position(first), begin(first), end(last) {}
  explicit DecodeContext(std::string_view text) noexcept
      : DecodeContext(text.data(), text.data() + text.size()) {}

  const char* position;  // the next byte to read
  const char* begin;     // never moves; error offsets are measured from it
  const char* end;       // one past the last byte
};

// Throws decode_exception with `message` and the offset position + delta -
// begin; delta is -1 where the offending byte has already been consumed.
[[noreturn]] void fail(const DecodeContext& context, const char* message, int delta = 0);
[[noreturn]] void fail(const DecodeContext& context, const std::string& message, int delta = 0);

// Throws encode_exception with `message`.
[[noreturn]] void fail_encode(const char* message);

// Deleter of every block that an EncodeContext hands over.
struct FreeDeleter {
  void operator()(void* block) const noexcept { std::free(block); }
};

// The finished text of an encode: the EncodeContext's block, handed over
// without a copy, and its length. The bytes are not zero-terminated.
class EncodedText {
 public:
  EncodedText() = default;
  EncodedText(char* block, std::size_t size) noexcept : block_(block), size_(size) {}

  const char* data() const noexcept { return block_ ? block_.get() : ""; }
  std::size_t size() const noexcept { return size_; }
  bool empty() const noexcept { return size_ == 0; }
  std::string_view view() const noexcept { return {data(), size_}; }
  std::string str() const { return std::string(view()); }
  operator std::string_view() const noexcept { return view(); }  // NOLINT: implicit on purpose

  // Gives up ownership: the caller frees the block with std::free.
  char* release() noexcept {
    size_ = 0;
    return block_.release();
  }

  friend bool operator==(const EncodedText& a, std::string_view b) noexcept { return a.view() == b; }
  friend bool operator==(const EncodedText& a, const char* b) noexcept { return a.view() == b; }

 private:
  std::unique_ptr<char, FreeDeleter> block_;
  std::size_t size_ = 0;
};

std::ostream& operator<<(std::ostream& out, const EncodedText& text);

// A growable output buffer on malloc/realloc, so that the finished block can
// be handed over with `free` as its deleter.
class EncodeContext {
 public:
  // Throws std::bad_alloc when a non-zero capacity can't be allocated.
  explicit EncodeContext(std::size_t initial_capacity);
  ~EncodeContext() { std::free(data); }
  EncodeContext(const EncodeContext&) = delete;
  EncodeContext& operator=(const EncodeContext&) = delete;

  // Makes sure that `n` bytes can be written at `position` and returns the
  // write pointer. Throws std::bad_alloc when the block can't grow.
  char* reserve(std::size_t n) {
    if (static_cast<std::size_t>(end - position) >= n) [[likely]] {
      return position;
    }
    return grow(n);
  }

  void append(const char* bytes, std::size_t n) {
    char* out = reserve(n);
    if (n != 0) std::memcpy(out, bytes, n);
    position = out + n;
  }
  void append(std::string_view bytes) { append(bytes.data(), bytes.size()); }
  void append(char byte) {
    char* out = reserve(1);
    *out = byte;
    position = out + 1;
  }

  std::size_t size() const noexcept { return static_cast<std::size_t>(position - data); }
  std::string_view view() const noexcept { return {data, size()}; }

  // Hands the block over and leaves the context empty (all four members
  // zero).
  EncodedText release() noexcept;

  char* data = nullptr;      // start of the heap block, or null
  char* position = nullptr;  // the next byte to write
  char* end = nullptr;       // one past the last byte of the block
  std::size_t capacity = 0;  // size of the block in bytes

 private:
  char* grow(std::size_t n);
};

// Advances over tab, line feed, carriage return and space; stops at `end`
// without error.
inline void skip_whitespace(DecodeContext& context) noexcept {
  constexpr std::uint64_t whitespace =
      (std::uint64_t{1} << 9) | (std::uint64_t{1} << 10) | (std::uint64_t{1} << 13) | (std::uint64_t{1} << 32);
  const char* p = context.position;
  const char* const end = context.end;
  while (p != end) {
    const auto byte = static_cast<unsigned char>(*p);
    if (byte > 32 || ((whitespace >> byte) & 1) == 0) break;
    ++p;
  }
  context.position = p;
}

}  // namespace orvanta::json
