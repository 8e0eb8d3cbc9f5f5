#include "platform/paths.hpp"

#include <cstdlib>
#include <system_error>
#include <filesystem>

namespace orvanta::platform {

std::string executable_path() {
  std::error_code ec;
  auto path = std::filesystem::read_symlink("/proc/self/exe", ec);
  if (ec) return {};
  return path.string();
}

std::string executable_dir() { return parent_directory(executable_path()); }

std::string data_home() {
  const char* xdg = std::getenv("XDG_DATA_HOME");
  if (xdg != nullptr && *xdg != '\0') return xdg;
  const char* home = std::getenv("HOME");
  if (home != nullptr && *home != '\0') return std::string(home) + "/.local/share";
  return {};
}

std::string parent_directory(const std::string& path) {
  auto slash = path.rfind('/');
  if (slash == std::string::npos) return {};
  if (slash == 0) return "/";
  return path.substr(0, slash);
}

std::string last_component(const std::string& path) {
  auto slash = path.rfind('/');
  return slash == std::string::npos ? path : path.substr(slash + 1);
}

}  // namespace orvanta::platform
