// JSONTestSuite (test_parsing): every file through skip_value with the
// top-level rules of try_decode, no crash, and the outcome its prefix gives
// unless json_test_suite_outcomes.txt lists it, so that a change of
// behaviour on any file shows by name. The list says where we differ from
// the corpus on purpose.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <string>

#include "json/json.hpp"

namespace orvanta::json {
namespace {

std::string read_file(const std::filesystem::path& path) {
  std::ifstream in(path, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

// File name -> accepted, for the files whose prefix doesn't say it, from
// the list beside this test.
std::map<std::string, bool> listed_outcomes() {
  std::ifstream in(std::filesystem::path(ORVANTA_SOURCE_DIR) / "tests" / "json" / "json_test_suite_outcomes.txt");
  std::map<std::string, bool> outcomes;
  for (std::string line; std::getline(in, line);) {
    if (line.empty() || line.starts_with("#")) continue;
    const auto space = line.find(' ');
    const std::string verdict = line.substr(0, space);
    EXPECT_TRUE(verdict == "accept" || verdict == "refuse") << line;
    outcomes[line.substr(space + 1)] = verdict == "accept";
  }
  return outcomes;
}

TEST(JsonTestSuite, EveryFileHasTheOutcomeOfItsPrefixOrItsListing) {
  const std::filesystem::path folder =
      std::filesystem::path(ORVANTA_SOURCE_DIR) / "tests" / "json" / "data" / "JSONTestSuite" / "test_parsing";
  const std::map<std::string, bool> listed = listed_outcomes();
  std::size_t files = 0;
  std::size_t exceptions_seen = 0;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    const std::string name = entry.path().filename().string();
    const std::string text = read_file(entry.path());
    RawJsonValue value;
    const bool accepted = try_decode(raw_value_codec(), text, value);
    ++files;
    const auto exception = listed.find(name);
    if (exception != listed.end()) ++exceptions_seen;
    EXPECT_EQ(accepted, exception != listed.end() ? exception->second : !name.starts_with("n_")) << name;
    if (accepted) {
      // The kept text is the value without the whitespace around it.
      const auto first = text.find_first_not_of(" \t\r\n");
      const auto last = text.find_last_not_of(" \t\r\n");
      EXPECT_EQ(value.view(), std::string_view(text).substr(first, last - first + 1)) << name;
    }
  }
  EXPECT_EQ(files, 318u);
  EXPECT_EQ(exceptions_seen, listed.size());
}

}  // namespace
}  // namespace orvanta::json
