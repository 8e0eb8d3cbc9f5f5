// CrashReporter::start in this test process, against the real handler.

#include "crash/crash_reporter.hpp"
#include "crash/store/report_database.hpp"
#include "tests/crash/test_support.hpp"

#include <gtest/gtest.h>

#include <csignal>

namespace orvanta::crash::test {
namespace {

CrashReporterConfig config_below(const TempDir& dir) {
  CrashReporterConfig config;
  config.handler_dir = handler_dir();
  config.data_dir = dir.path() + "/data";
  config.product = "orvanta";
  config.version = "1.2.93.667";
  config.ptype = "orvanta_cli";
  return config;
}

std::unique_ptr<CrashReportDatabase> database_below(const TempDir& dir) {
  return CrashReportDatabase::initialize(dir.path() + "/data/Crashpad");
}

TEST(CrashReporterStart, EmptyUploadUrlDisablesUploadsWhileTheHandlerStarts) {
  TempDir dir;
  auto& reporter = CrashReporter::instance();
  auto config = config_below(dir);
  ASSERT_TRUE(reporter.start(config));
  pid_t first = reporter.handler_pid();
  ASSERT_GT(first, 0);
  EXPECT_EQ(kill(first, 0), 0);
  auto database = database_below(dir);
  EXPECT_FALSE(database->settings()->uploads_enabled());

  config.upload_url = "https://crash.invalid/upload";
  ASSERT_TRUE(reporter.start(config));
  auto reopened = database_below(dir);
  EXPECT_TRUE(reopened->settings()->uploads_enabled());
  EXPECT_EQ(reopened->settings()->client_id(), database->settings()->client_id());
  EXPECT_NE(reporter.handler_pid(), first);
  EXPECT_TRUE(wait_until_gone(first)) << "the replaced handler must end";
}

// The handler refuses options it does not know, so whether it starts shows
// what reached its command line.
TEST(CrashReporterStart, HandlerArgumentsReachTheHandler) {
  TempDir dir;
  auto config = config_below(dir);
  config.rate_limit = false;
  EXPECT_TRUE(CrashReporter::instance().start(config));
  config.arguments = {"--no-such-option"};
  EXPECT_FALSE(CrashReporter::instance().start(config));
  EXPECT_EQ(CrashReporter::instance().handler_pid(), -1);
}

TEST(CrashReporterStart, FailsWhenTheHandlerIsMissing) {
  TempDir dir;
  auto config = config_below(dir);
  config.handler_dir = dir.path();
  EXPECT_FALSE(CrashReporter::instance().start(config));
  config.handler_dir.clear();
  EXPECT_FALSE(CrashReporter::instance().start(config));
}

}  // namespace
}  // namespace orvanta::crash::test
