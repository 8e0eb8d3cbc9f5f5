#include "crash/defaults.hpp"

#include "platform/paths.hpp"

#ifndef ORVANTA_CRASH_UPLOAD_URL
#define ORVANTA_CRASH_UPLOAD_URL ""
#endif

namespace orvanta::crash {

std::string default_handler_dir() { return platform::executable_dir(); }

std::string default_data_dir() {
  std::string home = platform::data_home();
  if (home.empty()) return {};
  return home + "/com.orvanta.client";
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
