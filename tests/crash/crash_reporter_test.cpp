// CrashReporter::start in this test process, against the real handler.

#include "crash/crash_reporter.hpp"
#include "crash/store/file_io.hpp"
#include "crash/store/report_database.hpp"
#include "tests/crash/test_support.hpp"

#include <gtest/gtest.h>

#include <csignal>
#include <unistd.h>

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

// The handler is spawned just after start returns.
pid_t handler_once_spawned() {
  for (int i = 0; i < 30000; ++i) {
    pid_t pid = CrashReporter::instance().handler_pid();
    if (pid > 0) return pid;
    usleep(1000);
  }
  return -1;
}

TEST(CrashReporterStart, EmptyUploadUrlDisablesUploadsWhileTheHandlerStarts) {
  TempDir dir;
  auto& reporter = CrashReporter::instance();
  auto config = config_below(dir);
  ASSERT_TRUE(reporter.start(config));
  pid_t first = handler_once_spawned();
  ASSERT_GT(first, 0);
  EXPECT_EQ(kill(first, 0), 0);
  auto database = CrashReportDatabase::initialize(dir.path() + "/data/Crashpad");
  EXPECT_FALSE(database->settings()->uploads_enabled());

  config.upload_url = "https://crash.invalid/upload";
  ASSERT_TRUE(reporter.start(config));
  auto reopened = CrashReportDatabase::initialize(dir.path() + "/data/Crashpad");
  EXPECT_TRUE(reopened->settings()->uploads_enabled());
  EXPECT_EQ(reopened->settings()->client_id(), database->settings()->client_id());
  EXPECT_NE(handler_once_spawned(), first);
  EXPECT_TRUE(wait_until_gone(first)) << "the replaced handler must end";
}

TEST(CrashReporterStart, HandlerArgumentsReachTheHandler) {
  TempDir dir;
  auto config = config_below(dir);
  config.rate_limit = false;
  config.arguments = {"--annotation=extra=1"};
  ASSERT_TRUE(CrashReporter::instance().start(config));
  pid_t handler = handler_once_spawned();
  ASSERT_GT(handler, 0);
  // The new process may still be on its way through exec.
  const std::string expected("\0--no-rate-limit\0--annotation=extra=1\0", 38);
  std::string cmdline;
  for (int i = 0; i < 2000 && cmdline.find(expected) == std::string::npos; ++i) {
    cmdline = read_file("/proc/" + std::to_string(handler) + "/cmdline").value_or("");
    usleep(1000);
  }
  EXPECT_NE(cmdline.find(expected), std::string::npos) << cmdline;
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
