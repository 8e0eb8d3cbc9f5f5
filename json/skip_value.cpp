#include "json/skip_value.hpp"

#include <cstring>
#include <string>

#include "json/string_codec.hpp"

namespace orvanta::json {

namespace {

// What may come next: bits of `allowed`.
constexpr unsigned kClose = 1;          // the closing bracket
constexpr unsigned kNoClose = 2;        // the closing bracket is forbidden
constexpr unsigned kComma = 4;
constexpr unsigned kKey = 8;
constexpr unsigned kValue = 16;
constexpr unsigned kStartAllowed = kValue | kNoClose;          // 18
constexpr unsigned kAfterValue = kClose | kComma;              // 5
constexpr unsigned kObjectOpened = kClose | kKey;              // 9
constexpr unsigned kArrayOpened = kClose | kValue;             // 17
constexpr unsigned kKeyDue = kKey | kNoClose;                  // 10

inline bool is_digit(char c) noexcept { return static_cast<unsigned char>(c - '0') <= 9; }

// The saved `open` bytes: 64 inline, then a heap block that takes over the
// saved ones and grows by doubling.
class BracketStack {
 public:
  BracketStack() = default;
  BracketStack(const BracketStack&) = delete;
  BracketStack& operator=(const BracketStack&) = delete;
  ~BracketStack() { delete[] heap_; }

  void push(char open) {
    if (size_ == capacity_) grow();
    items_[size_++] = open;
  }
  char pop() noexcept { return items_[--size_]; }

 private:
  void grow() {
    const std::size_t capacity = capacity_ * 2;
    char* block = new char[capacity];
    std::memcpy(block, items_, size_);
    delete[] heap_;
    heap_ = block;
    items_ = block;
    capacity_ = capacity;
  }

  char inline_[64];
  char* items_ = inline_;
  char* heap_ = nullptr;
  std::size_t size_ = 0;
  std::size_t capacity_ = sizeof inline_;
};

// `t`, `n` and `f` at the cursor.
void skip_literal(DecodeContext& context) {
  const char* p = context.position;
  if (*p == 'f') {
    context.position = ++p;
    if (context.end - p < 4) fail(context, "Unexpected end of input");
    if (std::memcmp(p, "alse", 4) != 0) fail(context, "Unexpected input");
    context.position = p + 4;
    return;
  }
  if (context.end - p < 4) fail(context, "Unexpected end of input");
  if (std::memcmp(p, "true", 4) != 0 && std::memcmp(p, "null", 4) != 0) fail(context, "Unexpected input");
  context.position = p + 4;
}

// The strict number grammar: a leading zero ends the integer part.
void skip_number(DecodeContext& context) {
  const char* const end = context.end;
  if (*context.position == '-') {
    ++context.position;
    if (context.position == end) fail(context, "Expected digit");
  }
  if (*context.position == '0') {
    ++context.position;
  } else if (is_digit(*context.position)) {
    while (context.position != end && is_digit(*context.position)) ++context.position;
  } else {
    fail(context, "Expected digit");
  }
  if (context.position != end && *context.position == '.') {
    ++context.position;
    if (context.position == end || !is_digit(*context.position)) fail(context, "Expected digit after decimal point");
    while (context.position != end && is_digit(*context.position)) ++context.position;
  }
  if (context.position != end && (*context.position | 32) == 'e') {
    ++context.position;
    if (context.position != end && (*context.position == '+' || *context.position == '-')) ++context.position;
    if (context.position == end || !is_digit(*context.position)) fail(context, "Expected digit after exponent sign");
    while (context.position != end && is_digit(*context.position)) ++context.position;
  }
}

[[noreturn]] void fail_token(const DecodeContext& context, char c) {
  std::string message = "Encountered token '";
  message.push_back(c);
  message.push_back('\'');
  fail(context, message);
}

}  // namespace

void skip_value(DecodeContext& context) {
  if (context.position == context.end) fail(context, "Unexpected EOF");
  BracketStack stack;
  int open = 0;         // innermost open bracket; 0 at the top level
  int close = 0x100;    // open + 2 inside a container; no byte at the top
  unsigned allowed = kStartAllowed;

  while (allowed != 0) {
    if (open != 0) skip_whitespace(context);
    if (context.position == context.end) break;
    const char c = *context.position;

    if (c == ',' && (allowed & kComma) != 0) {
      ++context.position;
      allowed = open == '{' ? kKeyDue : kStartAllowed;
      continue;
    }
    if (c == '"' && (allowed & kKey) != 0) {
      detail::skip_string(context);
      skip_whitespace(context);
      if (context.position == context.end) fail(context, "Unexpected end of input");
      if (*context.position++ != ':') fail(context, "Unexpected input", -1);
      allowed = kStartAllowed;
      continue;
    }
    if (static_cast<unsigned char>(c) == close && (allowed & kNoClose) == 0) {
      ++context.position;
      open = stack.pop();
      close = open == 0 ? 0x100 : open + 2;
      allowed = open != 0 ? kAfterValue : 0;
      continue;
    }
    if ((allowed & kValue) == 0) {
      if ((allowed & kKey) != 0) fail(context, "Expected '\"'");
      fail(context, open == '{' ? "Expected ',' or '}'" : "Expected ',' or ']");
    }

    if ((c | 32) == '{') {
      ++context.position;
      stack.push(static_cast<char>(open));
      open = c;
      close = open + 2;
      allowed = c == '{' ? kObjectOpened : kArrayOpened;
      continue;
    }
    switch (c) {
      case 't':
      case 'n':
      case 'f':
        skip_literal(context);
        break;
      case '"':
        detail::skip_string(context);
        break;
      case '-':
      case '0':
      case '1':
      case '2':
      case '3':
      case '4':
      case '5':
      case '6':
      case '7':
      case '8':
      case '9':
        skip_number(context);
        break;
      default:
        fail_token(context, c);
    }
    allowed = open != 0 ? kAfterValue : 0;
  }

  if (open == '{') fail(context, "Expected '}'");
  if (open == '[') fail(context, "Expected ']'");
  if (allowed != 0) fail(context, "Unexpected EOF");
}

}  // namespace orvanta::json
