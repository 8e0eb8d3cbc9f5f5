#pragma once

#include <map>
#include <string>
#include <vector>

namespace orvanta::crash {

// What `main` tells the crash reporter, filled before anything else runs.
struct CrashReporterConfig {
  std::string handler_dir;  // the directory that holds crashpad_handler
  std::string data_dir;     // the application's data directory; the database goes below it
  std::string product;
  std::string version;
  std::string ptype;
  std::string app_variant;  // annotated only when not empty
  std::string upload_url;   // empty: uploads are disabled
  bool rate_limit = true;
  std::map<std::string, std::string> annotations;  // added to the handler's annotations
  std::vector<std::string> arguments;              // added to the handler's command line
};

}  // namespace orvanta::crash
