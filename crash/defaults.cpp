#include "crash/defaults.hpp"

#include "platform/paths.hpp"

#include <cstdlib>
#include <sys/stat.h>

#ifndef ORVANTA_CRASH_UPLOAD_URL
#define ORVANTA_CRASH_UPLOAD_URL ""
#endif

namespace orvanta::crash {

std::string default_handler_dir() { return platform::executable_dir(); }

namespace {

bool is_directory(const char* path) {
  struct stat info {};
  return stat(path, &info) == 0 && S_ISDIR(info.st_mode);
}

}  // namespace

// XDG_DATA_HOME counts only as an absolute path; a relative one would put
// the database wherever the command happens to run. The fallback below
// $HOME is created as needed, $HOME itself never: a home that is missing
// means an account without one, and no database.
std::string default_data_dir() {
  const char* xdg = std::getenv("XDG_DATA_HOME");
  if (xdg != nullptr && xdg[0] == '/') return std::string(xdg) + "/com.orvanta.client";
  const char* home = std::getenv("HOME");
  if (home == nullptr || home[0] != '/' || !is_directory(home)) return {};
  return std::string(home) + "/.local/share/com.orvanta.client";
}

std::string build_upload_url() { return ORVANTA_CRASH_UPLOAD_URL; }

std::string_view build_platform() {
#if defined(__x86_64__)
  return "linuxx64";
#elif defined(__aarch64__)
  return "linuxarm64";
#elif defined(__i386__)
  return "linuxx86";
#elif defined(__arm__)
  return "linuxarm";
#else
  return "linux";
#endif
}

}  // namespace orvanta::crash
