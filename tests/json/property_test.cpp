// Seeded property tests: strings, integers and doubles round-trip exactly
// through encode and decode.
#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>
#include <string>

#include "json/json.hpp"

namespace orvanta::json {
namespace {

constexpr std::uint64_t kSeed = 0x0A7A17A5EEDULL;

// Bytes with the interesting ones over-represented: quotes, backslashes,
// control bytes, 0x7F and high bytes.
std::string random_bytes(std::mt19937_64& random) {
  static const char kSpecial[] = {'"', '\\', '\0', '\n', '\x0B', '\x1F', '\x7F', '\x80', '\xFF', '/', 'u'};
  const std::size_t length = std::uniform_int_distribution<std::size_t>(0, 3000)(random) >> (random() % 8);
  std::string bytes(length, '\0');
  const unsigned mode = static_cast<unsigned>(random() % 3);
  for (char& c : bytes) {
    const auto roll = static_cast<unsigned>(random() % 16);
    if (mode == 0 || roll == 0) {
      c = static_cast<char>(random());
    } else if (mode == 1 && roll < 4) {
      c = kSpecial[random() % sizeof kSpecial];
    } else {
      c = static_cast<char>('a' + roll);
    }
  }
  return bytes;
}

TEST(Property, DecodingTheEncodingOfAnyByteStringGivesItBack) {
  std::mt19937_64 random(kSeed);
  for (int i = 0; i < 4000; ++i) {
    const std::string value = random_bytes(random);
    const EncodedText text = encode(string_codec(), value);
    ASSERT_EQ(decode(string_codec(), text.view()), value) << "case " << i;
    // The encoding is valid JSON for the skipper too.
    DecodeContext context(text.view());
    skip_value(context);
    ASSERT_EQ(context.position, context.end) << "case " << i;
  }
}

template <class T>
T random_integer(std::mt19937_64& random) {
  // Uniform bits, then a random number of them kept, so that every length
  // of the decimal form occurs; and the boundaries now and then.
  const auto bits = static_cast<std::uint64_t>(random());
  const int keep = static_cast<int>(random() % 65);
  std::uint64_t value = keep == 64 ? bits : bits & ((std::uint64_t{1} << keep) - 1);
  switch (random() % 16) {
    case 0: return std::numeric_limits<T>::min();
    case 1: return std::numeric_limits<T>::max();
    case 2: value = ~value; break;
    default: break;
  }
  return static_cast<T>(value);
}

template <class T>
void check_integer_round_trip() {
  std::mt19937_64 random(kSeed);
  for (int i = 0; i < 100000; ++i) {
    const T value = random_integer<T>(random);
    const EncodedText text = encode(integer_codec<T>(), value);
    ASSERT_EQ(text.view(), std::to_string(value));
    ASSERT_EQ(decode(integer_codec<T>(), text.view()), value) << text;
  }
}

TEST(Property, IntegerEncodeThenDecodeIsTheIdentity) {
  check_integer_round_trip<std::int64_t>();
  check_integer_round_trip<std::uint64_t>();
  check_integer_round_trip<std::int32_t>();
  check_integer_round_trip<std::uint32_t>();
}

TEST(Property, FiniteDoubleEncodeThenDecodeIsBitIdentical) {
  std::mt19937_64 random(kSeed);
  std::uniform_real_distribution<double> ordinary(-1e6, 1e6);
  int checked = 0;
  for (int i = 0; i < 200000; ++i) {
    double value;
    switch (i % 3) {
      case 0: value = std::bit_cast<double>(static_cast<std::uint64_t>(random())); break;
      case 1: value = ordinary(random); break;
      default: value = std::ldexp(ordinary(random), static_cast<int>(random() % 2100) - 1050); break;
    }
    if (!std::isfinite(value)) continue;
    const EncodedText text = encode(double_codec(), value);
    const double back = decode(double_codec(), text.view());
    // Negative zero is written "0" (UNIQUE_ZERO), the one value whose sign
    // doesn't survive.
    if (value == 0.0) {
      ASSERT_EQ(back, 0.0);
      continue;
    }
    ASSERT_EQ(std::bit_cast<std::uint64_t>(back), std::bit_cast<std::uint64_t>(value)) << text;
    ++checked;
  }
  EXPECT_GT(checked, 190000);
  for (const double special : {std::numeric_limits<double>::min(), std::numeric_limits<double>::denorm_min(),
                               std::numeric_limits<double>::max(), std::numeric_limits<double>::lowest(),
                               std::numeric_limits<double>::epsilon()}) {
    const double back = decode(double_codec(), encode(double_codec(), special).view());
    EXPECT_EQ(std::bit_cast<std::uint64_t>(back), std::bit_cast<std::uint64_t>(special));
  }
}

}  // namespace
}  // namespace orvanta::json
