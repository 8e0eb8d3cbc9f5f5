// The reporter in a real program: crash_test_helper starts it as main does
// and then crashes, ends or waits as told.

#include "crash/defaults.hpp"
#include "crash/store/file_io.hpp"
#include "crash/store/report_database.hpp"
#include "tests/crash/test_support.hpp"
#include "tests/support/process.hpp"

#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <cstring>
#include <filesystem>
#include <set>
#include <sys/stat.h>
#include <sys/wait.h>
#include <thread>

namespace orvanta::crash::test {
namespace {

std::string database_of(const TempDir& dir) {
  return dir.path() + "/com.orvanta.client/Crashpad";
}

// The stream types listed in a dump's directory; empty when the file is
// not a minidump.
std::set<std::uint32_t> stream_types(const std::string& dump_path) {
  std::string dump = read_file(dump_path).value_or("");
  std::uint32_t header[4] = {};
  if (dump.size() < sizeof header) return {};
  std::memcpy(header, dump.data(), sizeof header);
  if (header[0] != 0x504d444d || dump.size() < header[3] + header[2] * 12ull) return {};
  std::set<std::uint32_t> types;
  for (std::uint32_t i = 0; i < header[2]; ++i) {
    std::uint32_t type = 0;
    std::memcpy(&type, dump.data() + header[3] + i * 12, 4);
    types.insert(type);
  }
  return types;
}

struct SignalCase {
  const char* mode;
  int signal;
  const char* build_id;  // TEAMCITY_BUILD_ID, nullptr: unset
};

class FatalSignal : public ::testing::TestWithParam<SignalCase> {};

TEST_P(FatalSignal, LeavesOneCompleteReportAndEndsTheProgramWithThatSignal) {
  const SignalCase& c = GetParam();
  TempDir dir;
  std::vector<std::string> env;
  if (c.build_id != nullptr) env.push_back(std::string("TEAMCITY_BUILD_ID=") + c.build_id);
  HelperProcess helper(c.mode, dir.path(), env);
  auto facts = helper.read_facts();
  int status = helper.wait();
  ASSERT_EQ(facts["started"], "1") << helper.stderr_text();
  ASSERT_TRUE(WIFSIGNALED(status)) << "status " << status;
  EXPECT_EQ(WTERMSIG(status), c.signal);
  EXPECT_TRUE(wait_until_gone(std::stoi(facts["handler"])));

  std::string dump = only_pending_dump(database_of(dir));
  ASSERT_FALSE(dump.empty());
  struct stat info {};
  ASSERT_EQ(stat(dump.c_str(), &info), 0);
  EXPECT_EQ(info.st_mode & 0777, 0600u);
  // thread list, module list, memory list, exception, system info, the
  // Linux files; never the environment (0x47670007).
  const std::set<std::uint32_t> expected = {3, 4, 5, 6, 7, 0x47670003, 0x47670004, 0x47670005,
                                            0x47670006, 0x47670008, 0x47670009};
  EXPECT_EQ(stream_types(dump), expected);

  ReportMetadata metadata = CrashReportDatabase::metadata_of(dump).value_or(ReportMetadata{});
  std::map<std::string, std::string> annotations = {
      {"format", "minidump"},  {"platform", std::string(build_platform())},
      {"product", "orvanta"},  {"version", "1.2.93.667"},
      {"ptype", "orvanta_cli"}, {"application_is_quitting", "false"}};
  if (c.build_id != nullptr) annotations["tc_build_id"] = c.build_id;
  EXPECT_EQ(metadata.annotations, annotations);
  EXPECT_TRUE(std::filesystem::is_empty(database_of(dir) + "/new"));
}

INSTANTIATE_TEST_SUITE_P(Crash, FatalSignal,
                         ::testing::Values(SignalCase{"segv", SIGSEGV, nullptr},
                                           SignalCase{"bus", SIGBUS, nullptr},
                                           SignalCase{"ill", SIGILL, nullptr},
                                           SignalCase{"fpe", SIGFPE, nullptr},
                                           SignalCase{"abort", SIGABRT, "4711"},
                                           SignalCase{"thread", SIGSEGV, nullptr}),
                         [](const auto& test) { return std::string(test.param.mode); });

// A caller that reads the program's output to its end must not wait for
// the handler: the helper closes its stdout and stays alive, and the end of
// the output must come while the handler still runs.
TEST(HandlerLifetime, HoldsNoneOfTheProgramsDescriptors) {
  TempDir dir;
  HelperProcess helper("hold", dir.path());
  auto facts = helper.read_facts();
  ASSERT_EQ(facts.count("timeout"), 0u) << "someone else still holds the helper's stdout";
  pid_t handler = std::stoi(facts["handler"]);
  // A descriptor the handler's start-up opens for a moment (the sanitizer
  // runtimes read /proc while it starts) is not one it holds: look again
  // until the set settles.
  std::map<int, std::string> fds;
  for (int look = 0; look < 100 && (look == 0 || fds.size() != 4u); ++look) {
    if (look > 0) std::this_thread::sleep_for(std::chrono::milliseconds(10));
    fds.clear();
    std::error_code ignored;
    for (const auto& entry : std::filesystem::directory_iterator("/proc/" + std::to_string(handler) + "/fd")) {
      fds[std::stoi(entry.path().filename().string())] = std::filesystem::read_symlink(entry.path(), ignored);
    }
  }
  ASSERT_EQ(fds.size(), 4u) << ::testing::PrintToString(fds);
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
  EXPECT_FALSE(only_pending_dump(database_of(dir)).empty());
  EXPECT_TRUE(wait_until_gone(std::stoi(facts["handler"])));
  EXPECT_TRUE(wait_until_gone(std::stoi(facts["replacement"])));
}

// Only an absolute XDG_DATA_HOME counts, and $HOME is used but never made:
// the helper runs in `dir`, so a relative path would land there. A normal
// run leaves no report and its handler ends with it; without a database
// the run goes on. Not a word from the reporter on either stream: stdout
// holds only the helper's three facts.
TEST(DatabaseLocation, FollowsTheXdgRulesAndNeverMakesAHome) {
  struct Case {
    const char* xdg;         // below the test's directory when it starts with '/'
    const char* home;        // below the test's directory
    const char* database;    // below the test's directory; nullptr: none at all
  };
  const Case cases[] = {
      {"relative/dir", "home", "home/.local/share/com.orvanta.client/Crashpad"},
      {"", "missing-home", nullptr},
      {"relative/dir", "missing-home", nullptr},
      {"/not-a-directory", "home", nullptr},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(std::string(c.xdg) + " " + c.home);
    TempDir dir;
    std::filesystem::create_directory(dir.path() + "/home");
    std::fclose(std::fopen((dir.path() + "/not-a-directory").c_str(), "w"));
    std::string xdg = c.xdg[0] == '/' ? dir.path() + c.xdg : c.xdg;
    HelperProcess helper("run", dir.path(),
                         {"XDG_DATA_HOME=" + xdg, "HOME=" + dir.path() + "/" + c.home});
    auto facts = helper.read_facts();
    EXPECT_EQ(helper.wait(), 0);
    EXPECT_EQ(facts.size(), 3u);
    EXPECT_EQ(facts["started"], c.database != nullptr ? "1" : "0");
    if (c.database != nullptr) {
      const std::string pending = dir.path() + "/" + c.database + "/pending";
      EXPECT_TRUE(std::filesystem::is_directory(pending) && std::filesystem::is_empty(pending));
      EXPECT_TRUE(wait_until_gone(std::stoi(facts["handler"])));
    } else {
      EXPECT_EQ(facts["handler"], "-1");
    }
    EXPECT_FALSE(std::filesystem::exists(dir.path() + "/relative"));
    EXPECT_FALSE(std::filesystem::exists(dir.path() + "/missing-home"));
    EXPECT_EQ(helper.stderr_text(), "");
  }
}

// A stand-in handler, a shell script, alone in `folder`.
void put_handler(const std::string& folder, const std::string& script) {
  std::filesystem::create_directories(folder);
  std::string path = folder + "/crashpad_handler";
  ASSERT_TRUE(write_file_atomically(path + ".tmp", path, script));
  std::filesystem::permissions(path, std::filesystem::perms::owner_all);
}

const std::string kDiesAtStart = "#!/bin/sh\nkill -SEGV $$\n";
// fd 3 is its end of the connection: it dies on the first byte of a crash.
const std::string kDiesWhileCapturing = "#!/bin/sh\nhead -c 1 <&3 >/dev/null\nkill -SEGV $$\n";

// A handler that dies, at its start or in the middle of a report, neither
// holds up the program nor takes it down: a normal run ends normally, and a
// crash ends the program with its own signal.
TEST(BrokenHandler, NeverHangsOrKillsTheProgram) {
  struct Case {
    const std::string* script;
    const char* mode;
    int signal;  // 0: a normal exit
  };
  const Case cases[] = {{&kDiesAtStart, "run", 0},
                        {&kDiesAtStart, "segv", SIGSEGV},
                        {&kDiesWhileCapturing, "run", 0},
                        {&kDiesWhileCapturing, "segv", SIGSEGV}};
  for (const Case& c : cases) {
    SCOPED_TRACE(*c.script + c.mode);
    TempDir dir;
    put_handler(dir.path() + "/handler", *c.script);
    HelperProcess helper(c.mode, dir.path(), {}, dir.path() + "/handler");
    auto facts = helper.read_facts();
    int status = helper.wait();
    EXPECT_EQ(facts.count("timeout"), 0u);
    if (c.signal == 0) {
      EXPECT_EQ(status, 0);
    } else {
      ASSERT_TRUE(WIFSIGNALED(status));
      EXPECT_EQ(WTERMSIG(status), c.signal);
    }
    EXPECT_EQ(helper.stderr_text(), "");
  }
}

// orvanta_cli itself, with no handler beside it (where it looks for one):
// the command's output is the same, and nothing else is printed.
TEST(CommandLine, WorksTheSameWithoutAHandler) {
  TempDir dir;
  const std::string program = dir.path() + "/orvanta_cli";
  std::error_code ec;
  std::filesystem::create_hard_link(testing::cli_binary(), program, ec);
  if (ec) std::filesystem::copy_file(testing::cli_binary(), program);
  const testing::ProcessOptions options{"orvanta_cli", {"XDG_DATA_HOME=" + dir.path()}};
  testing::ProcessResult usual = testing::run_process(testing::cli_binary(), {"--help"}, options);
  testing::ProcessResult alone = testing::run_process(program, {"--help"}, options);
  ASSERT_NE(usual.out, "");
  EXPECT_EQ(alone.out, usual.out);
  EXPECT_EQ(alone.err, "");
  EXPECT_EQ(alone.status, 0);
}

}  // namespace
}  // namespace orvanta::crash::test
