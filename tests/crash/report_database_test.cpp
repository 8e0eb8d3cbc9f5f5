#include "crash/store/report_database.hpp"

#include "crash/store/file_io.hpp"
#include "tests/crash/test_support.hpp"

#include <gtest/gtest.h>

#include <filesystem>

namespace orvanta::crash {
namespace {

using test::TempDir;
namespace fs = std::filesystem;

TEST(CrashReportDatabase, CreatesItsFoldersAndKeepsItsSettingsAcrossOpens) {
  TempDir dir;
  const std::string path = dir.path() + "/db";
  auto database = CrashReportDatabase::initialize(path);
  ASSERT_NE(database, nullptr);
  for (const char* folder : {"/new", "/pending", "/completed"}) {
    EXPECT_TRUE(fs::is_directory(path + folder)) << folder;
  }
  const std::string id = database->settings()->client_id();
  EXPECT_EQ(id.size(), 36u);
  EXPECT_FALSE(database->settings()->uploads_enabled());
  EXPECT_TRUE(database->settings()->set_uploads_enabled(true));
  EXPECT_EQ(read_file(path + "/settings"), "client_id=" + id + "\nuploads_enabled=1\n");

  auto reopened = CrashReportDatabase::initialize(path);
  EXPECT_EQ(reopened->settings()->client_id(), id);
  EXPECT_TRUE(reopened->settings()->uploads_enabled());
}

TEST(CrashReportDatabase, ReplacesDamagedSettingsWithFreshOnes) {
  TempDir dir;
  fs::create_directories(dir.path() + "/db");
  ASSERT_TRUE(write_file_atomically(dir.path() + "/t", dir.path() + "/db/settings",
                                    "uploads_enabled=1\nclient_id=short\n"));
  auto database = CrashReportDatabase::initialize(dir.path() + "/db");
  ASSERT_NE(database, nullptr);
  EXPECT_EQ(database->settings()->client_id().size(), 36u);
  EXPECT_FALSE(database->settings()->uploads_enabled());
}

TEST(CrashReportDatabase, StoresAReportInPendingAndMovesItToCompleted) {
  TempDir dir;
  auto database = CrashReportDatabase::initialize(dir.path());
  std::string pending = database->store_report("r1", "text\n");
  EXPECT_EQ(pending, dir.path() + "/pending/r1.report");
  EXPECT_EQ(read_file(pending), "text\n");
  EXPECT_TRUE(fs::is_empty(dir.path() + "/new"));
  EXPECT_EQ(database->pending_reports(), std::vector<std::string>{pending});
  EXPECT_TRUE(database->mark_uploaded(pending));
  EXPECT_TRUE(database->pending_reports().empty());
  EXPECT_TRUE(fs::exists(dir.path() + "/completed/r1.report"));
}

TEST(CrashReportDatabase, CannotBeMadeBelowAFile) {
  TempDir dir;
  ASSERT_TRUE(write_file_atomically(dir.path() + "/t", dir.path() + "/file", ""));
  EXPECT_EQ(CrashReportDatabase::initialize(dir.path() + "/file/db"), nullptr);
}

}  // namespace
}  // namespace orvanta::crash
