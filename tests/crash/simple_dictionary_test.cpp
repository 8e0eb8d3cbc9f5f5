#include "crash/store/simple_dictionary.hpp"

#include <gtest/gtest.h>

#include <memory>

namespace orvanta::crash {
namespace {

TEST(SimpleStringDictionary, SetsReplacesAndRemovesInPlace) {
  auto table = std::make_unique<SimpleStringDictionary>();
  EXPECT_TRUE(table->set("application_is_quitting", "false"));
  EXPECT_TRUE(table->set("b", "1"));
  EXPECT_TRUE(table->set("application_is_quitting", "true"));
  EXPECT_STREQ(table->get("application_is_quitting"), "true");
  table->remove("application_is_quitting");
  EXPECT_EQ(table->get("application_is_quitting"), nullptr);
  EXPECT_TRUE(table->set("c", "2"));  // takes the freed first slot
  using Entries = std::vector<std::pair<std::string, std::string>>;
  EXPECT_EQ(table->entries(), (Entries{{"c", "2"}, {"b", "1"}}));
  EXPECT_FALSE(table->set("", "x"));
}

TEST(SimpleStringDictionary, CutsLongTextsAndRefusesANewKeyWhenFull) {
  auto table = std::make_unique<SimpleStringDictionary>();
  const std::string long_key(400, 'k');
  EXPECT_TRUE(table->set(long_key, std::string(400, 'v')));
  EXPECT_EQ(std::string(table->get(long_key)),
            std::string(SimpleStringDictionary::kValueSize - 1, 'v'));
  EXPECT_EQ(table->entries()[0].first.size(), SimpleStringDictionary::kKeySize - 1);
  for (std::size_t i = 1; i < SimpleStringDictionary::kMaxEntries; ++i) {
    ASSERT_TRUE(table->set("key" + std::to_string(i), "v"));
  }
  EXPECT_FALSE(table->set("one-too-many", "v"));
  EXPECT_TRUE(table->set("key1", "still replaceable"));
}

}  // namespace
}  // namespace orvanta::crash
