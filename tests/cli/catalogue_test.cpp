#include "cli/catalogue.hpp"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

// The top-level words, the pod groups' children and the summaries shown on
// the pages are checked byte for byte through the pages in help_test.cpp;
// these are the lookups and rows that no tested page shows.

namespace orvanta::cli {
namespace {

std::string full_words(const CommandRow& row) {
  return row.parent.empty() ? std::string(row.name)
                            : std::string(row.parent) + ' ' + std::string(row.name);
}

TEST(HelpCatalogue, LookupsCompareWholeWordsAndLevels) {
  const HelpCatalogue& c = HelpCatalogue::instance();
  ASSERT_NE(c.find_top_level("now-playing"), nullptr);
  EXPECT_EQ(c.find_top_level("now-playing")->id, CommandId::NowPlaying);
  // A child's name is no top-level command, and a group word is no row.
  EXPECT_EQ(c.find_top_level("list"), nullptr);
  EXPECT_EQ(c.find_top_level("history"), nullptr);
  EXPECT_EQ(c.find_top_level("Play"), nullptr);

  ASSERT_NE(c.find_child("pod shows", "create"), nullptr);
  EXPECT_EQ(c.find_child("pod shows", "create")->id, CommandId::PodShowsCreate);
  EXPECT_EQ(c.find_child("pod", "create"), nullptr);
  EXPECT_EQ(c.find_child("", "list"), nullptr);
  EXPECT_EQ(c.find_child("devices", ""), nullptr);
}

TEST(HelpCatalogue, GroupsAndTheirChildren) {
  const HelpCatalogue& c = HelpCatalogue::instance();
  for (std::string_view word : {"history", "devices", "library", "playlist", "folder", "queue",
                                "pod", "pod shows", "pod episodes", "pod timeline", "rondo"}) {
    EXPECT_TRUE(c.is_parent(word)) << word;
  }
  for (std::string_view word : {"", "play", "shows", "pod shows list", "pod  shows", "Pod"}) {
    EXPECT_FALSE(c.is_parent(word)) << word;
    EXPECT_EQ(c.parent_summary(word), "") << word;
    EXPECT_TRUE(c.children(word).empty()) << word;
  }
  EXPECT_EQ(c.parent_summary("pod episodes"), "Manage podcast episodes");
  std::vector<std::string> names;
  for (const CommandRow* row : c.children("pod episodes")) names.push_back(full_words(*row));
  EXPECT_EQ(names, (std::vector<std::string>{"pod episodes list", "pod episodes create",
                                             "pod episodes status", "pod episodes delete"}));
  EXPECT_EQ(c.children("rondo").size(), 7u);
  EXPECT_EQ(c.children("folder").size(), 5u);
}

// The default mark is data and printed as it stands: all three timeline
// rows carry it, and pod's upload does although bare "pod" runs nothing.
TEST(CommandRows, DefaultMarks) {
  std::vector<std::string> marked;
  for (const CommandRow& row : command_rows) {
    if (row.is_default) marked.push_back(full_words(row));
  }
  EXPECT_EQ(marked, (std::vector<std::string>{
                        "devices list", "library list", "folder list", "queue list",
                        "pod upload", "pod shows list", "pod episodes list", "pod timeline get",
                        "pod timeline set", "pod timeline delete", "rondo status"}));
}

}  // namespace
}  // namespace orvanta::cli
