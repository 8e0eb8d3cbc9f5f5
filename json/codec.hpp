// What a codec is, the codecs of the scalar types, and the top-level
// functions decode, try_decode and encode.
//
// A codec is any copyable object with a `value_type`, a
// `value_type decode(DecodeContext&) const` and a
// `void encode(EncodeContext&, const value_type&) const`.
#pragma once

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "json/context.hpp"
#include "json/number_codec.hpp"
#include "json/string_codec.hpp"

namespace orvanta::json {

template <class C>
concept Codec = std::copy_constructible<C> && requires(const C& codec, DecodeContext& decode_context,
                                                       EncodeContext& encode_context,
                                                       const typename C::value_type& value) {
  { codec.decode(decode_context) } -> std::same_as<typename C::value_type>;
  codec.encode(encode_context, value);
};

struct StringCodec {
  using value_type = std::string;
  std::string decode(DecodeContext& context) const { return decode_string(context); }
  void encode(EncodeContext& context, const std::string& value) const { encode_string(context, value); }
};

struct BooleanCodec {
  using value_type = bool;
  bool decode(DecodeContext& context) const { return decode_boolean(context); }
  void encode(EncodeContext& context, bool value) const { encode_boolean(context, value); }
};

template <JsonInteger T>
struct IntegerCodec {
  using value_type = T;
  T decode(DecodeContext& context) const { return decode_integer<T>(context); }
  void encode(EncodeContext& context, T value) const { encode_integer<T>(context, value); }
};

struct DoubleCodec {
  using value_type = double;
  double decode(DecodeContext& context) const { return decode_double(context); }
  void encode(EncodeContext& context, double value) const { encode_double(context, value); }
};

inline StringCodec string_codec() { return {}; }
inline BooleanCodec boolean_codec() { return {}; }
template <JsonInteger T>
IntegerCodec<T> integer_codec() {
  return {};
}
inline DoubleCodec double_codec() { return {}; }

// The codec that a member type implies when add_field is given none. The
// combinators add the containers (combinators.hpp) and RawJsonValue
// (raw_value.hpp).
template <class T>
struct implied_codec {
  static_assert(sizeof(T) == 0,
                "orvanta::json: this member type implies no codec; pass one as the fourth argument of add_field "
                "(a record's codec, list_codec(...), enumeration_codec(...))");
};
template <>
struct implied_codec<std::string> {
  using type = StringCodec;
};
template <>
struct implied_codec<bool> {
  using type = BooleanCodec;
};
template <>
struct implied_codec<double> {
  using type = DoubleCodec;
};
template <JsonInteger T>
struct implied_codec<T> {
  using type = IntegerCodec<T>;
};

template <class T>
using implied_codec_t = typename implied_codec<T>::type;

// Decodes one value that fills `size` bytes, with whitespace around it. An
// empty input, a failure of the codec and trailing text all give false;
// `out` is assigned only on success. Only the codec's own decode_exception
// is turned into false: anything else (std::bad_alloc) passes through.
template <Codec C>
bool try_decode(const C& codec, const char* bytes, std::size_t size, typename C::value_type& out) {
  if (size == 0) return false;
  try {
    DecodeContext context(bytes, bytes + size);
    skip_whitespace(context);
    typename C::value_type value = codec.decode(context);
    skip_whitespace(context);
    if (context.position != context.end) fail(context, "Unexpected trailing input");
    out = std::move(value);
    return true;
  } catch (const decode_exception&) {
    return false;
  }
}

template <Codec C>
bool try_decode(const C& codec, std::string_view text, typename C::value_type& out) {
  return try_decode(codec, text.data(), text.size(), out);
}

// As try_decode, but a failure throws: decode_exception with its message
// and offset ("Unexpected trailing input" for text behind the value), or
// whatever else the codec threw.
template <Codec C>
typename C::value_type decode(const C& codec, const char* bytes, std::size_t size) {
  DecodeContext context(bytes, bytes + size);
  skip_whitespace(context);
  typename C::value_type value = codec.decode(context);
  skip_whitespace(context);
  if (context.position != context.end) fail(context, "Unexpected trailing input");
  return value;
}

template <Codec C>
typename C::value_type decode(const C& codec, std::string_view text) {
  return decode(codec, text.data(), text.size());
}

// Encodes `value` into a new 4096-byte EncodeContext and hands its block
// over. Throws encode_exception or std::bad_alloc.
template <Codec C>
EncodedText encode(const C& codec, const typename C::value_type& value) {
  EncodeContext context(4096);
  codec.encode(context, value);
  return context.release();
}

}  // namespace orvanta::json
