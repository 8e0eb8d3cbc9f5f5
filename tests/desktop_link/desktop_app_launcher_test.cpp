#include "desktop_link/desktop_app_launcher.hpp"

#include <gtest/gtest.h>

#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <utility>
#include <vector>
#include <sstream>
#include <thread>
#include <csignal>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace orvanta::link {
namespace {

namespace fs = std::filesystem;

class TempDir {
 public:
  TempDir() {
    std::string pattern = (fs::temp_directory_path() / "orvanta-launcher-XXXXXX").string();
    path_ = ::mkdtemp(pattern.data());
  }
  ~TempDir() {
    std::error_code ec;
    fs::remove_all(path_, ec);
  }
  const fs::path& path() const { return path_; }

 private:
  fs::path path_;
};

// Makes <root>/Orvanta.app/Contents/MacOS/Orvanta, a script that writes its
// arguments, one per line, into <root>/launched.
fs::path make_bundle(const fs::path& root) {
  fs::path macos = root / "Orvanta.app" / "Contents" / "MacOS";
  fs::create_directories(macos);
  fs::path app = macos / "Orvanta";
  std::ofstream(app) << "#!/bin/sh\nfor a in \"$@\"; do echo \"$a\"; done > '" << (root / "launched.tmp").string()
                     << "'\nmv '" << (root / "launched.tmp").string() << "' '" << (root / "launched").string()
                     << "'\n";
  fs::permissions(app, fs::perms::owner_all);
  return macos;
}

// The launched program is a grandchild that leaves init to reap it; where
// init never reaps, its zombie would stand as "a running Orvanta" for the
// tests that follow. As a subreaper we get it back and wait for it.
void become_subreaper() { ::prctl(PR_SET_CHILD_SUBREAPER, 1); }

void reap_children() {
  while (::waitpid(-1, nullptr, 0) > 0 || errno == EINTR) {
  }
}

std::string wait_for_file(const fs::path& file) {
  for (int i = 0; i < 500 && !fs::exists(file); ++i) std::this_thread::sleep_for(std::chrono::milliseconds(10));
  std::ifstream in(file);
  std::stringstream text;
  text << in.rdbuf();
  return text.str();
}

TEST(DesktopAppLauncher, FindsTheBundleAboveTheProgram) {
  TempDir dir;
  fs::path macos = make_bundle(dir.path());
  EXPECT_EQ(SystemAppLauncher("desktop_cli", macos.string()).find_app_bundle(), (dir.path() / "Orvanta.app").string());
  EXPECT_EQ(SystemAppLauncher("desktop_cli", dir.path().string()).find_app_bundle(), "");
  // The name must match exactly.
  fs::create_directories(dir.path() / "orvanta.app" / "bin");
  EXPECT_EQ(SystemAppLauncher("desktop_cli", (dir.path() / "orvanta.app" / "bin").string()).find_app_bundle(), "");
}

// The URI goes last, tagged with the medium; without one the default URI
// opens. Outside a bundle nothing is started.
TEST(DesktopAppLauncher, LaunchStartsTheApplicationWithTheUriLast) {
  become_subreaper();
  const std::pair<std::vector<std::string>, std::string> cases[] = {
      {{"--uri=orvanta:track:abc?utm_medium=x&a=1", "--format", "json"},
       "--format\njson\norvanta:track:abc?a=1&utm_medium=desktop_cli\n"},
      {{}, "orvanta:open?utm_medium=desktop_cli\n"},
  };
  for (const auto& [args, launched] : cases) {
    TempDir dir;
    SystemAppLauncher("desktop_cli", make_bundle(dir.path()).string()).launch(args);
    EXPECT_EQ(wait_for_file(dir.path() / "launched"), launched);
    reap_children();
  }
  TempDir empty;
  SystemAppLauncher("desktop_cli", empty.path().string()).launch({"--uri=orvanta:track:abc"});
  EXPECT_TRUE(fs::is_empty(empty.path()));
}

TEST(DesktopAppLauncher, RunningMeansAProcessNamedOrvantaInAnyCase) {
  using P = platform::RunningProcess;
  EXPECT_TRUE(is_app_process({P{12, "bash"}, P{40, "ORVANTA"}}));
  EXPECT_TRUE(is_app_process({P{40, "Orvanta"}}));
  EXPECT_FALSE(is_app_process({P{40, "Orvanta Helper"}, P{41, "orvanta-helper"}, P{42, "orvant"}}));
  EXPECT_FALSE(is_app_process({}));
  // The first match decides, even when its pid is 0.
  EXPECT_FALSE(is_app_process({P{0, "orvanta"}, P{7, "orvanta"}}));
}

TEST(DesktopAppLauncher, ProcessListSeesAProgramByItsFileName) {
  TempDir dir;
  fs::path sleeper = dir.path() / "ORVANTA";
  fs::copy_file("/bin/sleep", sleeper);
  pid_t pid = ::fork();
  if (pid == 0) {
    ::execl(sleeper.c_str(), "ORVANTA", "5", static_cast<char*>(nullptr));
    ::_exit(127);
  }
  bool seen = false;
  for (int i = 0; i < 500 && !seen; ++i) {
    for (const auto& p : platform::running_processes()) seen = seen || (p.pid == pid && p.name == "ORVANTA");
    if (!seen) std::this_thread::sleep_for(std::chrono::milliseconds(10));
  }
  EXPECT_TRUE(seen);
  EXPECT_TRUE(SystemAppLauncher("desktop_cli").is_running());
  ::kill(pid, SIGKILL);
  // Dead but not yet waited for, it is no longer running.
  for (int i = 0; i < 500 && seen; ++i) {
    seen = false;
    for (const auto& p : platform::running_processes()) seen = seen || p.pid == pid;
    if (seen) std::this_thread::sleep_for(std::chrono::milliseconds(10));
  }
  EXPECT_FALSE(seen);
  EXPECT_FALSE(SystemAppLauncher("desktop_cli").is_running());
  ::waitpid(pid, nullptr, 0);
}

TEST(DesktopAppLauncher, BundleInTheTrashIsNotInstalled) {
  TempDir dir;
  const char* old = std::getenv("XDG_DATA_HOME");
  std::string saved = old ? old : "";
  ::setenv("XDG_DATA_HOME", dir.path().c_str(), 1);

  fs::path installed = make_bundle(dir.path() / "Applications");
  EXPECT_TRUE(SystemAppLauncher("desktop_cli", installed.string()).is_installed());
  fs::path trashed = make_bundle(dir.path() / "Trash" / "files");
  EXPECT_FALSE(SystemAppLauncher("desktop_cli", trashed.string()).is_installed());
  EXPECT_FALSE(SystemAppLauncher("desktop_cli", dir.path().string()).is_installed());

  if (old) ::setenv("XDG_DATA_HOME", saved.c_str(), 1); else ::unsetenv("XDG_DATA_HOME");
}

}  // namespace
}  // namespace orvanta::link
