// JSONTestSuite (test_parsing): every file through skip_value with the
// top-level rules of try_decode. The rule: every y_ file is accepted, every
// n_ file refused, and an i_ file may go either way but is decided without a
// crash. The outcomes that differ from the plain rule are listed below, so
// that a change of behaviour on any file shows.
//
// Where we differ on purpose:
// - n_string_unescaped_{ctrl_char,newline,tab}: raw control bytes inside a
//   string are accepted, as the peer's library accepts them.
// - i_ files: no UTF-8 validation and no surrogate checks, numbers of any
//   size skipped by grammar alone, and no nesting limit: all accepted, except
//   that a byte order mark is an unexpected token, and so is UTF-16 text.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <string>

#include "json/json.hpp"

namespace orvanta::json {
namespace {

const std::set<std::string> kAcceptedInvalid = {
    "n_string_unescaped_ctrl_char.json",
    "n_string_unescaped_newline.json",
    "n_string_unescaped_tab.json",
};

const std::set<std::string> kRefusedImplementationDefined = {
    "i_string_UTF-16LE_with_BOM.json",
    "i_string_utf16BE_no_BOM.json",
    "i_string_utf16LE_no_BOM.json",
    "i_structure_UTF-8_BOM_empty_object.json",
};

bool expected_outcome(const std::string& name) {
  if (name.starts_with("n_")) return kAcceptedInvalid.contains(name);
  if (name.starts_with("i_")) return !kRefusedImplementationDefined.contains(name);
  return true;
}

std::string read_file(const std::filesystem::path& path) {
  std::ifstream in(path, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

TEST(JsonTestSuite, EveryFileHasItsExpectedOutcome) {
  const std::filesystem::path folder =
      std::filesystem::path(ORVANTA_SOURCE_DIR) / ".." / "shared" / "testdata" / "JSONTestSuite" / "test_parsing";
  ASSERT_TRUE(std::filesystem::is_directory(folder)) << folder;
  std::set<std::string> seen;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    const std::string name = entry.path().filename().string();
    const std::string text = read_file(entry.path());
    RawJsonValue value;
    const bool accepted = try_decode(raw_value_codec(), text, value);
    seen.insert(name);
    EXPECT_TRUE(name.starts_with("y_") || name.starts_with("n_") || name.starts_with("i_")) << name;
    EXPECT_EQ(accepted, expected_outcome(name)) << name;
    if (accepted) {
      // The kept text is the value without the whitespace around it.
      const auto first = text.find_first_not_of(" \t\r\n");
      const auto last = text.find_last_not_of(" \t\r\n");
      EXPECT_EQ(value.view(), std::string_view(text).substr(first, last - first + 1)) << name;
    }
  }
  // The whole corpus ran, the listed exceptions included.
  EXPECT_EQ(seen.size(), 318u);
  for (const auto& name : kAcceptedInvalid) EXPECT_TRUE(seen.contains(name)) << "missing file " << name;
  for (const auto& name : kRefusedImplementationDefined) EXPECT_TRUE(seen.contains(name)) << "missing file " << name;
}

}  // namespace
}  // namespace orvanta::json
