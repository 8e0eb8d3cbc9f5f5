#include "desktop_link/desktop_app_launcher.hpp"

#include "desktop_link/app_uri.hpp"
#include "platform/paths.hpp"

#include <cctype>
#include <filesystem>

namespace orvanta::link {
namespace {

std::string lower_case(std::string_view text) {
  std::string lower(text);
  for (char& c : lower) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return lower;
}

bool path_contains(const std::filesystem::path& dir, const std::filesystem::path& item) {
  auto relative = item.lexically_relative(dir);
  return !relative.empty() && *relative.begin() != "..";
}

}  // namespace

SystemAppLauncher::SystemAppLauncher(std::string medium, std::string start_dir)
    : medium_(std::move(medium)),
      start_dir_(start_dir.empty() ? platform::executable_dir() : std::move(start_dir)) {}

std::string SystemAppLauncher::find_app_bundle() const {
  std::string dir = start_dir_;
  while (!dir.empty()) {
    if (platform::last_component(dir) == kAppBundleName) return dir;
    std::string up = platform::parent_directory(dir);
    if (up == dir) break;
    dir = std::move(up);
  }
  return {};
}

bool is_app_name(std::string_view name) { return lower_case(name) == lower_case(kAppName); }

bool is_app_process(const std::vector<platform::RunningProcess>& processes) {
  for (const auto& process : processes) {
    if (is_app_name(process.name)) return process.pid != 0;
  }
  return false;
}

bool SystemAppLauncher::is_running() {
  // Stops at the first match rather than listing every process first.
  auto process = platform::find_process([](const platform::RunningProcess& p) { return is_app_name(p.name); });
  return process && process->pid != 0;
}

bool SystemAppLauncher::is_installed() {
  std::string bundle = find_app_bundle();
  std::error_code ec;
  if (bundle.empty() || !std::filesystem::exists(bundle, ec)) return false;
  std::string data_home = platform::data_home();
  if (data_home.empty()) return true;
  auto trash = std::filesystem::weakly_canonical(data_home + "/Trash", ec);
  if (ec) return true;
  auto canonical_bundle = std::filesystem::weakly_canonical(bundle, ec);
  if (ec) return true;
  return !path_contains(trash, canonical_bundle);
}

void SystemAppLauncher::launch(std::vector<std::string> args) {
  std::string uri = apply_uri(args, medium_, true);
  std::string bundle = find_app_bundle();
  if (bundle.empty()) return;
  args.push_back(std::move(uri));
  platform::spawn_detached(bundle + "/Contents/MacOS/" + std::string(kAppName), args);
}

}  // namespace orvanta::link
