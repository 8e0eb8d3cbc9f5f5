// Replays, through the bodies of the fuzz targets, every input that fuzzing
// once found (tests/json/fuzz_regressions/<target>/) and the checked-in
// corpus (fuzz/corpus/<target>/), so that the findings stay fixed in every
// build, sanitizer builds included.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "fuzz/json_fuzz_bodies.hpp"

namespace orvanta::json {
namespace {

using Body = void (*)(const std::uint8_t*, std::size_t);

std::size_t replay_folder(const std::filesystem::path& folder, Body body) {
  std::size_t count = 0;
  if (!std::filesystem::is_directory(folder)) return 0;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    if (!entry.is_regular_file() || entry.path().filename().string().starts_with(".")) continue;
    std::ifstream in(entry.path(), std::ios::binary);
    const std::string bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    SCOPED_TRACE(entry.path().string());
    body(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
    ++count;
  }
  return count;
}

void replay(const char* target, Body body) {
  const std::filesystem::path root(ORVANTA_SOURCE_DIR);
  const std::size_t regressions = replay_folder(root / "tests" / "json" / "fuzz_regressions" / target, body);
  const std::size_t corpus = replay_folder(root / "fuzz" / "corpus" / target, body);
  EXPECT_GT(regressions + corpus, 0u) << target;
}

TEST(FuzzRegressions, SkipValue) { replay("fuzz_json_skip_value", fuzz::skip_value_body); }
TEST(FuzzRegressions, RecordCodec) { replay("fuzz_json_record_codec", fuzz::record_codec_body); }
TEST(FuzzRegressions, StringRoundTrip) { replay("fuzz_json_string_round_trip", fuzz::string_round_trip_body); }

}  // namespace
}  // namespace orvanta::json
