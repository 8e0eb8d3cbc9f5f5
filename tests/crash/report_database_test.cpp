#include "crash/store/report_database.hpp"

#include "crash/store/file_io.hpp"
#include "tests/crash/test_support.hpp"

#include <gtest/gtest.h>

#include <chrono>
#include <ctime>
#include <filesystem>

namespace orvanta::crash {
namespace {

using test::TempDir;
namespace fs = std::filesystem;

// The last attempt outlives the run: it is the next run's rate limit.
TEST(CrashReportDatabase, KeepsTheLastUploadAttemptAcrossOpens) {
  TempDir dir;
  auto database = CrashReportDatabase::initialize(dir.path());
  ASSERT_NE(database, nullptr);
  EXPECT_TRUE(database->settings()->set_last_upload_attempt(1700000000));
  EXPECT_EQ(CrashReportDatabase::initialize(dir.path())->settings()->last_upload_attempt(), 1700000000);
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

// Ages are the dumps' modification times; the newest reports are kept.
TEST(CrashReportDatabase, PrunesByAgeAndThenByTotalSize) {
  TempDir dir;
  auto database = CrashReportDatabase::initialize(dir.path());
  const std::int64_t now = 1700000000;
  auto store = [&](const char* name, std::int64_t age, std::size_t size) {
    std::string path = database->store_report(name, std::string(size, 'd'), {});
    auto time =
        fs::file_time_type::clock::now() - std::chrono::seconds(std::time(nullptr) - now + age);
    fs::last_write_time(path, time);
    return path;
  };
  store("old", 400 * 86400, 10);
  std::string done = store("done", 30, 10);
  ASSERT_TRUE(database->mark_uploaded(done, "id"));
  store("big", 20, 100);
  store("new", 10, 50);
  EXPECT_EQ(database->prune(now, 365 * 86400, 100), 2u);  // old by age, then big by size
  EXPECT_EQ(database->pending_reports(), std::vector<std::string>{dir.path() + "/pending/new.dmp"});
  EXPECT_EQ(database->completed_reports().size(), 1u);
  EXPECT_FALSE(fs::exists(dir.path() + "/pending/old.meta"));
}

// A link planted in the database is never followed: not as a folder, not
// as a file that is read, not as a temporary file that is written.
TEST(CrashReportDatabase, RefusesPlantedSymbolicLinks) {
  TempDir dir;
  fs::create_directories(dir.path() + "/elsewhere");
  fs::create_directories(dir.path() + "/db");
  fs::create_directory_symlink(dir.path() + "/elsewhere", dir.path() + "/db/pending");
  EXPECT_EQ(CrashReportDatabase::initialize(dir.path() + "/db"), nullptr);

  auto database = CrashReportDatabase::initialize(dir.path() + "/db2");
  ASSERT_NE(database, nullptr);
  fs::create_symlink(dir.path() + "/elsewhere/target", dir.path() + "/db2/new/r1.dmp.tmp");
  EXPECT_EQ(database->store_report("r1", "MDMP", {}), dir.path() + "/db2/pending/r1.dmp");
  EXPECT_FALSE(fs::exists(dir.path() + "/elsewhere/target"));
  fs::create_symlink(dir.path() + "/db2/settings", dir.path() + "/db2/pending/r2.meta");
  EXPECT_EQ(CrashReportDatabase::metadata_of(dir.path() + "/db2/pending/r2.dmp"), std::nullopt);
}

}  // namespace
}  // namespace orvanta::crash
