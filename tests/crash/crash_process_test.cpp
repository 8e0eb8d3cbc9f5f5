// The reporter in a real program: crash_test_helper starts it as main does
// and then crashes, ends or waits as told.

#include "crash/defaults.hpp"
#include "crash/store/file_io.hpp"
#include "crash/store/report_database.hpp"
#include "tests/crash/test_support.hpp"

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

ReportMetadata metadata_of_only_report(const TempDir& dir) {
  std::string dump = only_pending_dump(database_of(dir));
  return CrashReportDatabase::metadata_of(dump).value_or(ReportMetadata{});
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

  ReportMetadata metadata = metadata_of_only_report(dir);
  const std::map<std::string, std::string> annotations = {
      {"format", "minidump"},  {"platform", std::string(build_platform())},
      {"product", "orvanta"},  {"version", "1.2.93.667"},
      {"ptype", "orvanta_cli"}, {"application_is_quitting", "false"}};
  EXPECT_EQ(metadata.annotations, annotations);
  EXPECT_TRUE(std::filesystem::is_empty(database_of(dir) + "/new"));
}

INSTANTIATE_TEST_SUITE_P(Crash, FatalSignal,
                         ::testing::Values(SignalCase{"segv", SIGSEGV, "SIGSEGV"},
                                           SignalCase{"bus", SIGBUS, "SIGBUS"},
                                           SignalCase{"ill", SIGILL, "SIGILL"},
                                           SignalCase{"fpe", SIGFPE, "SIGFPE"},
                                           SignalCase{"abort", SIGABRT, "SIGABRT"},
                                           SignalCase{"thread", SIGSEGV, "SIGSEGV"}),
                         [](const auto& test) { return std::string(test.param.mode); });

TEST(CrashAnnotations, BuildIdFromTheEnvironmentReachesTheReport) {
  TempDir dir;
  HelperProcess helper("abort", dir.path(), {"TEAMCITY_BUILD_ID=4711"});
  helper.read_facts();
  helper.wait();
  EXPECT_EQ(metadata_of_only_report(dir).annotations["tc_build_id"], "4711");
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
  // A descriptor the handler's start-up opens for a moment (the sanitizer
  // runtimes read /proc while it starts) is not one it holds: look again
  // until the set settles.
  std::map<int, std::string> fds;
  std::string fd_dir = "/proc/" + std::to_string(handler) + "/fd";
  std::string listing;
  for (int look = 0; look < 100; ++look) {
    fds.clear();
    listing.clear();
    std::error_code ignored;
    for (const auto& entry : std::filesystem::directory_iterator(fd_dir)) {
      auto target = std::filesystem::read_symlink(entry.path(), ignored).string();
      fds[std::stoi(entry.path().filename().string())] = target;
      listing += entry.path().filename().string() + " -> " + target + "\n";
    }
    if (fds.size() == 4u) break;
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  }
  ASSERT_EQ(fds.size(), 4u) << listing;
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

// orvanta_cli itself, placed beside no handler or beside one that dies, or
// with nowhere to keep reports: the command's output is the same, and
// nothing else is printed.
TEST(CommandLine, WorksTheSameWithoutAWorkingHandler) {
  const std::string cli = handler_dir() + "/orvanta_cli";
  // The help names the program by the path it was started with.
  auto output_of = [](HelperProcess& run, const std::string& program) {
    std::string text = run.read_output().value_or("?");
    for (auto at = text.find(program); at != std::string::npos; at = text.find(program)) {
      text.replace(at, program.size(), "orvanta_cli");
    }
    return text;
  };
  TempDir reference_dir;
  HelperProcess reference({cli, "--help"}, reference_dir.path());
  const std::string expected = output_of(reference, cli);
  ASSERT_EQ(reference.wait(), 0);
  ASSERT_NE(expected, "");

  enum class Setup { unwritable_data, missing_handler, dying_handler };
  for (Setup setup : {Setup::unwritable_data, Setup::missing_handler, Setup::dying_handler}) {
    SCOPED_TRACE(static_cast<int>(setup));
    TempDir dir;
    std::string program = cli;
    std::vector<std::string> env;
    if (setup == Setup::unwritable_data) {
      std::fclose(std::fopen((dir.path() + "/file").c_str(), "w"));
      env.push_back("XDG_DATA_HOME=" + dir.path() + "/file");
    } else {
      // The handler is looked for beside the running program.
      program = dir.path() + "/bin/orvanta_cli";
      if (setup == Setup::dying_handler) put_handler(dir.path() + "/bin", kDiesAtStart);
      std::filesystem::create_directories(dir.path() + "/bin");
      std::error_code ec;
      std::filesystem::create_hard_link(cli, program, ec);
      if (ec) std::filesystem::copy_file(cli, program);
    }
    HelperProcess run({program, "--help"}, dir.path(), env);
    EXPECT_EQ(output_of(run, program), expected);
    EXPECT_EQ(run.wait(), 0);
    EXPECT_EQ(run.stderr_text(), "");
  }
}

}  // namespace
}  // namespace orvanta::crash::test
