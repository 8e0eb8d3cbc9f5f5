// The composite codecs other than the object codec: lists, string maps,
// optionals, string-or-null and enumerations.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "json/codec.hpp"

namespace orvanta::json {

namespace detail {

// The bracket test and the comma/close loop shared by lists and maps. The
// cursor stands on the opening bracket. `element` is called once per element
// with the cursor on it; returns when the closing bracket has been read.
template <class Element>
void decode_sequence(DecodeContext& context, char open, char close, Element&& element) {
  if (context.position == context.end) fail(context, "Unexpected end of input");
  if (*context.position++ != open) fail(context, "Unexpected input", -1);
  skip_whitespace(context);
  if (context.position != context.end && *context.position == close) {
    ++context.position;
    return;
  }
  for (;;) {
    element();
    skip_whitespace(context);
    if (context.position == context.end) fail(context, "Unexpected end of input");
    if (*context.position == close) {
      ++context.position;
      return;
    }
    if (*context.position++ != ',') fail(context, "Unexpected input", -1);
    skip_whitespace(context);
  }
}

// Overwrites a last ',' with the closing bracket, or appends it. The buffer
// always holds the opening bracket by then.
inline void close_sequence(EncodeContext& context, char close) {
  if (context.position[-1] == ',') {
    context.position[-1] = close;
  } else {
    context.append(close);
  }
}

// After a decoded key: whitespace, ':' and whitespace.
inline void expect_colon(DecodeContext& context) {
  skip_whitespace(context);
  if (context.position == context.end) fail(context, "Unexpected end of input");
  if (*context.position++ != ':') fail(context, "Unexpected input", -1);
  skip_whitespace(context);
}

}  // namespace detail

// A JSON array into a std::vector. The decoded list replaces the member only
// once its closing bracket has been read.
template <Codec Element>
class ListCodec {
 public:
  using value_type = std::vector<typename Element::value_type>;

  explicit ListCodec(Element element = Element()) : element_(std::move(element)) {}

  value_type decode(DecodeContext& context) const {
    value_type list;
    detail::decode_sequence(context, '[', ']', [&] {
      if constexpr (requires { element_.decode_into(context, list.emplace_back()); }) {
        // Records are decoded in their place in the list, not moved there.
        element_.decode_into(context, list.emplace_back());
      } else {
        list.push_back(element_.decode(context));
      }
    });
    return list;
  }

  void encode(EncodeContext& context, const value_type& list) const {
    context.append('[');
    for (const auto& item : list) {
      element_.encode(context, item);
      context.append(',');
    }
    detail::close_sequence(context, ']');
  }

 private:
  Element element_;
};

template <Codec Element>
ListCodec<Element> list_codec(Element element) {
  return ListCodec<Element>(std::move(element));
}

// A JSON object with free keys into an ordered map; of two equal keys the
// first value stays. Encoded in ascending key order.
template <Codec Value>
class StringMapCodec {
 public:
  using value_type = std::map<std::string, typename Value::value_type>;

  explicit StringMapCodec(Value value = Value()) : value_(std::move(value)) {}

  value_type decode(DecodeContext& context) const {
    value_type map;
    detail::decode_sequence(context, '{', '}', [&] {
      std::string key = decode_string(context);
      detail::expect_colon(context);
      map.emplace(std::move(key), value_.decode(context));
    });
    return map;
  }

  void encode(EncodeContext& context, const value_type& map) const {
    context.append('{');
    for (const auto& [key, value] : map) {
      encode_string(context, key);
      context.append(':');
      value_.encode(context, value);
      context.append(',');
    }
    detail::close_sequence(context, '}');
  }

 private:
  Value value_;
};

template <Codec Value>
StringMapCodec<Value> string_map_codec(Value value) {
  return StringMapCodec<Value>(std::move(value));
}

// A value that may be absent. Decoding never yields an absent value (a JSON
// null goes to the inner codec and fails there); encoding an absent value
// throws encode_exception "Cannot encode null optional".
template <Codec Inner>
class OptionalCodec {
 public:
  using value_type = std::optional<typename Inner::value_type>;

  explicit OptionalCodec(Inner inner = Inner()) : inner_(std::move(inner)) {}

  value_type decode(DecodeContext& context) const { return value_type(inner_.decode(context)); }

  void encode(EncodeContext& context, const value_type& value) const {
    if (!value) fail_encode("Cannot encode null optional");
    inner_.encode(context, *value);
  }

 private:
  Inner inner_;
};

template <Codec Inner>
OptionalCodec<Inner> optional_codec(Inner inner) {
  return OptionalCodec<Inner>(std::move(inner));
}

// The only codec that takes `null`: a value of `inner`, or `null` for an
// absent one. When neither reads, the inner codec's decode_exception is the
// one that propagates.
template <Codec Inner>
class OrNullCodec {
 public:
  using value_type = std::optional<typename Inner::value_type>;

  explicit OrNullCodec(Inner inner = Inner()) : inner_(std::move(inner)) {}

  value_type decode(DecodeContext& context) const {
    const char* start = context.position;
    try {
      return value_type(inner_.decode(context));
    } catch (const decode_exception&) {
      context.position = start;
      if (context.end - start < 4 || std::string_view(start, 4) != "null") throw;
      context.position = start + 4;
      return value_type();
    }
  }

  void encode(EncodeContext& context, const value_type& value) const {
    if (value) {
      inner_.encode(context, *value);
    } else {
      context.append("null", 4);
    }
  }

 private:
  Inner inner_;
};

template <Codec Inner>
OrNullCodec<Inner> or_null(Inner inner) {
  return OrNullCodec<Inner>(std::move(inner));
}

// A closed set of words, strict in both directions: decoding an unknown word
// throws decode_exception "Encountered unknown enumeration value", encoding
// an unknown enumerator throws encode_exception "Encoding unknown
// enumeration value". The table is shared by copies of the codec.
template <class E>
class EnumerationCodec {
  static_assert(std::is_enum_v<E>, "enumeration_codec needs an enumeration type");

 public:
  using value_type = E;
  using Entry = std::pair<std::int32_t, std::string>;

  explicit EnumerationCodec(std::initializer_list<std::pair<E, std::string_view>> table) {
    auto entries = std::make_shared<std::vector<Entry>>();
    entries->reserve(table.size());
    for (const auto& [value, word] : table) entries->emplace_back(static_cast<std::int32_t>(value), std::string(word));
    table_ = std::move(entries);
  }

  E decode(DecodeContext& context) const {
    std::string scratch;
    const std::string_view word = detail::decode_string_view(context, scratch);
    for (const auto& [value, text] : *table_) {
      if (text.size() == word.size() && text == word) return static_cast<E>(value);
    }
    fail(context, "Encountered unknown enumeration value");
  }

  void encode(EncodeContext& context, E value) const {
    for (const auto& [number, text] : *table_) {
      if (number == static_cast<std::int32_t>(value)) {
        encode_string(context, text);
        return;
      }
    }
    fail_encode("Encoding unknown enumeration value");
  }

 private:
  std::shared_ptr<const std::vector<Entry>> table_;
};

template <class E>
EnumerationCodec<E> enumeration_codec(std::initializer_list<std::pair<E, std::string_view>> table) {
  return EnumerationCodec<E>(table);
}

// Implied codecs of the containers: the element type's implied codec.
template <class T>
struct implied_codec<std::vector<T>> {
  using type = ListCodec<implied_codec_t<T>>;
};
template <class T>
struct implied_codec<std::optional<T>> {
  using type = OptionalCodec<implied_codec_t<T>>;
};
template <class T>
struct implied_codec<std::map<std::string, T>> {
  using type = StringMapCodec<implied_codec_t<T>>;
};

}  // namespace orvanta::json
