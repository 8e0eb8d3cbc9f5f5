// The reporter in a real program: crash_test_helper starts it as main does
// and then crashes, ends or waits as told.

#include "crash/defaults.hpp"
#include "tests/crash/test_support.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <sstream>
#include <sys/wait.h>

namespace orvanta::crash::test {
namespace {

std::string database_of(const TempDir& dir) {
  return dir.path() + "/com.orvanta.client/Crashpad";
}

bool has_line(const std::vector<std::string>& lines, const std::string& line) {
  return std::find(lines.begin(), lines.end(), line) != lines.end();
}

bool has_line_starting(const std::vector<std::string>& lines, const std::string& start) {
  return std::any_of(lines.begin(), lines.end(),
                     [&](const std::string& line) { return line.starts_with(start); });
}

// "frame N ADDRESS TRUST MODULE+0xOFFSET" or "... TRUST ?"
struct FrameLine {
  std::string trust;
  std::string module;
  std::uint64_t offset = 0;
};

std::vector<FrameLine> frames_of(const std::vector<std::string>& lines) {
  std::vector<FrameLine> frames;
  for (const std::string& line : lines) {
    if (!line.starts_with("frame ")) continue;
    std::istringstream fields(line);
    std::string word, index, address, place;
    FrameLine frame;
    fields >> word >> index >> address >> frame.trust >> place;
    auto plus = place.rfind("+0x");
    if (plus != std::string::npos) {
      frame.module = place.substr(0, plus);
      frame.offset = std::stoull(place.substr(plus + 3), nullptr, 16);
    }
    frames.push_back(frame);
  }
  return frames;
}

std::string hex16(const std::string& digits) {
  return "0x" + std::string(16 - std::min<std::size_t>(16, digits.size()), '0') + digits;
}

struct SignalCase {
  const char* mode;
  int signal;
  const char* name;
};

class FatalSignal : public ::testing::TestWithParam<SignalCase> {};

TEST_P(FatalSignal, LeavesOneCompleteReportAndEndsTheProgramWithThatSignal) {
  const SignalCase& c = GetParam();
  TempDir dir;
  HelperProcess helper(c.mode, dir.path());
  auto facts = helper.read_facts();
  int status = helper.wait();
  ASSERT_EQ(facts["started"], "1") << helper.stderr_text();
  ASSERT_TRUE(WIFSIGNALED(status)) << "status " << status;
  EXPECT_EQ(WTERMSIG(status), c.signal);
  EXPECT_TRUE(wait_until_gone(std::stoi(facts["handler"])));

  auto lines = only_pending_report(database_of(dir));
  ASSERT_FALSE(lines.empty());
  EXPECT_EQ(lines.front(), "orvanta crash report 1");
  EXPECT_EQ(lines.back(), "end");
  EXPECT_TRUE(has_line(lines, "pid " + facts["pid"]));
  EXPECT_TRUE(has_line(lines, "signal " + std::to_string(c.signal) + " " + c.name));
  if (facts.count("fault_address")) {
    EXPECT_TRUE(has_line(lines, "fault_address " + hex16(facts["fault_address"])));
  }
  for (std::string expected :
       {"annotation format=minidump", "annotation product=orvanta",
        "annotation version=1.2.93.667", "annotation ptype=orvanta_cli",
        "simple_annotation application_is_quitting=false"}) {
    EXPECT_TRUE(has_line(lines, expected)) << expected;
  }
  EXPECT_TRUE(has_line(lines, "annotation platform=" + std::string(build_platform())));
  EXPECT_FALSE(has_line_starting(lines, "annotation app_variant="));
  EXPECT_FALSE(has_line_starting(lines, "annotation tc_build_id="));
  EXPECT_FALSE(has_line_starting(lines, "note ")) << "the handler could not read everything";
  auto frames = frames_of(lines);
  ASSERT_FALSE(frames.empty());
  EXPECT_EQ(frames[0].trust, "context");
  EXPECT_TRUE(std::filesystem::is_empty(database_of(dir) + "/new"));
}

INSTANTIATE_TEST_SUITE_P(Crash, FatalSignal,
                         ::testing::Values(SignalCase{"segv", SIGSEGV, "SIGSEGV"},
                                           SignalCase{"bus", SIGBUS, "SIGBUS"},
                                           SignalCase{"ill", SIGILL, "SIGILL"},
                                           SignalCase{"fpe", SIGFPE, "SIGFPE"},
                                           SignalCase{"abort", SIGABRT, "SIGABRT"}),
                         [](const auto& test) { return std::string(test.param.mode); });

// The helper faults in a frameless leaf called from crash_by_segv; both must
// be found, in the helper's own module, at the offsets it printed.
TEST(CrashStack, NamesTheFaultingFunctionAndItsCaller) {
  TempDir dir;
  HelperProcess helper("segv", dir.path());
  auto facts = helper.read_facts();
  helper.wait();
  auto frames = frames_of(only_pending_report(database_of(dir)));
  ASSERT_GE(frames.size(), 3u);
  const std::string module = std::filesystem::canonical(helper_path()).string();
  const std::uint64_t fault = std::stoull(facts["fault_function"], nullptr, 16);
  const std::uint64_t caller = std::stoull(facts["caller_function"], nullptr, 16);
  EXPECT_EQ(frames[0].module, module);
  EXPECT_GE(frames[0].offset, fault);
  EXPECT_LT(frames[0].offset, fault + 64);
  EXPECT_EQ(frames[1].module, module);
  EXPECT_GT(frames[1].offset, caller);
  EXPECT_LT(frames[1].offset, caller + 512);
}

TEST(CrashAnnotations, BuildIdFromTheEnvironmentReachesTheReport) {
  TempDir dir;
  HelperProcess helper("abort", dir.path(), {"TEAMCITY_BUILD_ID=4711"});
  helper.read_facts();
  helper.wait();
  EXPECT_TRUE(has_line(only_pending_report(database_of(dir)), "annotation tc_build_id=4711"));
}

TEST(HandlerLifetime, EndsWithANormalRunAndLeavesNoReport) {
  TempDir dir;
  HelperProcess helper("run", dir.path());
  auto facts = helper.read_facts();
  int status = helper.wait();
  EXPECT_EQ(facts["started"], "1");
  ASSERT_TRUE(WIFEXITED(status));
  EXPECT_EQ(WEXITSTATUS(status), 0);
  EXPECT_TRUE(wait_until_gone(std::stoi(facts["handler"])));
  EXPECT_TRUE(std::filesystem::is_empty(database_of(dir) + "/pending"));
  EXPECT_EQ(helper.stderr_text(), "");
}

// A caller that reads the program's output to its end must not wait for
// the handler: the helper closes its stdout and stays alive, and the end of
// the output must come while the handler still runs.
TEST(HandlerLifetime, HoldsNoneOfTheProgramsDescriptors) {
  TempDir dir;
  HelperProcess helper("hold", dir.path());
  auto facts = helper.read_facts();
  ASSERT_EQ(facts.count("timeout"), 0u) << "someone else still holds the helper's stdout";
  pid_t handler = std::stoi(facts["handler"]);
  std::map<int, std::string> fds;
  std::string fd_dir = "/proc/" + std::to_string(handler) + "/fd";
  for (const auto& entry : std::filesystem::directory_iterator(fd_dir)) {
    fds[std::stoi(entry.path().filename().string())] =
        std::filesystem::read_symlink(entry.path()).string();
  }
  ASSERT_EQ(fds.size(), 4u);
  EXPECT_EQ(fds[0], "/dev/null");
  EXPECT_EQ(fds[1], "/dev/null");
  EXPECT_EQ(fds[2], "/dev/null");
  EXPECT_TRUE(fds[3].starts_with("socket:")) << fds[3];
  helper.close_stdin();
  EXPECT_EQ(helper.wait(), 0);
  EXPECT_TRUE(wait_until_gone(handler));
}

TEST(HandlerLifetime, IsReplacedWhenItDiesAndTheReplacementReports) {
  TempDir dir;
  HelperProcess helper("restart", dir.path());
  auto facts = helper.read_facts();
  int status = helper.wait();
  ASSERT_NE(facts["replacement"], "-1");
  EXPECT_NE(facts["replacement"], facts["handler"]);
  ASSERT_TRUE(WIFSIGNALED(status));
  EXPECT_EQ(WTERMSIG(status), SIGSEGV);
  EXPECT_EQ(only_pending_report(database_of(dir)).back(), "end");
  EXPECT_TRUE(wait_until_gone(std::stoi(facts["handler"])));
  EXPECT_TRUE(wait_until_gone(std::stoi(facts["replacement"])));
}

// Not a word from the reporter on either stream: stdout holds only the
// helper's three facts.
TEST(HandlerLifetime, UnwritableDataDirectoryLeavesTheRunQuiet) {
  TempDir dir;
  std::string file = dir.path() + "/not-a-directory";
  std::fclose(std::fopen(file.c_str(), "w"));
  HelperProcess helper("run", dir.path(), {"XDG_DATA_HOME=" + file});
  auto facts = helper.read_facts();
  int status = helper.wait();
  EXPECT_EQ(facts.size(), 3u);
  EXPECT_EQ(facts["started"], "0");
  EXPECT_EQ(facts["handler"], "-1");
  EXPECT_EQ(status, 0);
  EXPECT_EQ(helper.stderr_text(), "");
}

// Only an absolute XDG_DATA_HOME counts, and $HOME is used but never made:
// the helper runs in `dir`, so a relative path would land there.
TEST(DatabaseLocation, FollowsTheXdgRulesAndNeverMakesAHome) {
  struct Case {
    const char* xdg;
    const char* home;        // below the test's directory
    const char* database;    // below the test's directory; nullptr: none at all
  };
  const Case cases[] = {
      {"relative/dir", "home", "home/.local/share/com.orvanta.client/Crashpad"},
      {"", "missing-home", nullptr},
      {"relative/dir", "missing-home", nullptr},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(std::string(c.xdg) + " " + c.home);
    TempDir dir;
    std::filesystem::create_directory(dir.path() + "/home");
    HelperProcess helper("run", dir.path(),
                         {std::string("XDG_DATA_HOME=") + c.xdg,
                          "HOME=" + dir.path() + "/" + c.home});
    auto facts = helper.read_facts();
    EXPECT_EQ(helper.wait(), 0);
    EXPECT_EQ(facts["started"], c.database != nullptr ? "1" : "0");
    if (c.database != nullptr) {
      EXPECT_TRUE(std::filesystem::is_directory(dir.path() + "/" + c.database + "/pending"));
    }
    EXPECT_FALSE(std::filesystem::exists(dir.path() + "/relative"));
    EXPECT_FALSE(std::filesystem::exists(dir.path() + "/missing-home"));
  }
}

}  // namespace
}  // namespace orvanta::crash::test
