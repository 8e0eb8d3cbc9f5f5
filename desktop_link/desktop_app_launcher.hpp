#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/processes.hpp"

namespace orvanta::link {

inline constexpr std::string_view kAppName = "Orvanta";
inline constexpr std::string_view kAppBundleName = "Orvanta.app";

// Whether `name` is the application's process name: "orvanta" in any letter
// case, the whole name.
bool is_app_name(std::string_view name);

// Whether the first process named "orvanta", in any letter case, has a pid
// other than 0; false when there is none. A longer name does not count.
bool is_app_process(const std::vector<platform::RunningProcess>& processes);

// Finds out whether the desktop application runs, and opens it.
class DesktopAppLauncher {
 public:
  virtual ~DesktopAppLauncher() = default;

  // Opens the application with the URI of `args` (see apply_uri) and the
  // remaining arguments. Reports nothing: a missing application and a failed
  // start look the same to the caller.
  virtual void launch(std::vector<std::string> args) = 0;
  virtual bool is_running() = 0;
  virtual bool is_installed() = 0;
};

// The launcher of this machine. The application is the bundle directory
// "Orvanta.app" that holds this program (searched upwards from `start_dir`),
// started as <bundle>/Contents/MacOS/Orvanta; the running check looks for a
// process named "orvanta" in any letter case.
class SystemAppLauncher final : public DesktopAppLauncher {
 public:
  // `start_dir` is where the bundle search begins; empty means the directory
  // of the running program.
  explicit SystemAppLauncher(std::string medium, std::string start_dir = {});

  void launch(std::vector<std::string> args) override;
  bool is_running() override;
  bool is_installed() override;

  // The bundle directory, or empty when this program stands in none.
  std::string find_app_bundle() const;

 private:
  std::string medium_;
  std::string start_dir_;
};

}  // namespace orvanta::link
