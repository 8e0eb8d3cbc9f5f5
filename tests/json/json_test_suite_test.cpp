// JSONTestSuite (test_parsing): every file through skip_value with the
// top-level rules of try_decode, no crash, and each outcome as listed in
// json_test_suite_outcomes.txt, so that a change of behaviour on any file
// shows by name. The list says where we differ from the corpus on purpose.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <set>
#include <string>

#include "json/json.hpp"

namespace orvanta::json {
namespace {

std::string read_file(const std::filesystem::path& path) {
  std::ifstream in(path, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

// File name -> accepted, from the list beside this test.
std::map<std::string, bool> expected_outcomes() {
  std::ifstream in(std::filesystem::path(ORVANTA_SOURCE_DIR) / "tests" / "json" / "json_test_suite_outcomes.txt");
  std::map<std::string, bool> outcomes;
  std::string verdict;
  std::string name;
  while (in >> verdict) {
    if (verdict.starts_with("#")) {
      std::getline(in, name);
      continue;
    }
    in >> name;
    EXPECT_TRUE(verdict == "accept" || verdict == "refuse") << verdict << " " << name;
    outcomes[name] = verdict == "accept";
  }
  return outcomes;
}

TEST(JsonTestSuite, EveryFileHasItsListedOutcome) {
  const std::filesystem::path folder =
      std::filesystem::path(ORVANTA_SOURCE_DIR) / "tests" / "json" / "data" / "JSONTestSuite" / "test_parsing";
  ASSERT_TRUE(std::filesystem::is_directory(folder)) << folder;
  const std::map<std::string, bool> expected = expected_outcomes();
  ASSERT_EQ(expected.size(), 318u);
  std::set<std::string> seen;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    const std::string name = entry.path().filename().string();
    const std::string text = read_file(entry.path());
    RawJsonValue value;
    const bool accepted = try_decode(raw_value_codec(), text, value);
    seen.insert(name);
    const auto listed = expected.find(name);
    if (listed == expected.end()) {
      ADD_FAILURE() << "not in the list: " << name;
      continue;
    }
    if (name.starts_with("y_")) {
      EXPECT_TRUE(listed->second) << "listed as refused: " << name;
    }
    EXPECT_EQ(accepted, listed->second) << name;
    if (accepted) {
      // The kept text is the value without the whitespace around it.
      const auto first = text.find_first_not_of(" \t\r\n");
      const auto last = text.find_last_not_of(" \t\r\n");
      EXPECT_EQ(value.view(), std::string_view(text).substr(first, last - first + 1)) << name;
    }
  }
  // Every listed file ran.
  for (const auto& [name, accepted] : expected) EXPECT_TRUE(seen.contains(name)) << "missing file " << name;
}

}  // namespace
}  // namespace orvanta::json
