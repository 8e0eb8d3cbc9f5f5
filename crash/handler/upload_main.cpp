// The uploader: the crash handler becomes this program once it has written
// a report and its client is gone, so the handler itself stays small and
// quick to start. It sends what is pending and prunes the database.
//
//   orvanta_crash_upload --database=PATH --url=URL [--no-rate-limit]

#include "crash/handler/upload.hpp"
#include "crash/store/report_database.hpp"

#include <curl/curl.h>

#include <ctime>
#include <string_view>

int main(int argc, char** argv) {
  using namespace orvanta::crash;
  std::string database_path;
  std::string url;
  bool rate_limit = true;
  for (int i = 1; i < argc; ++i) {
    std::string_view argument = argv[i];
    if (argument.starts_with("--database="))
      database_path = argument.substr(11);
    else if (argument.starts_with("--url="))
      url = argument.substr(6);
    else if (argument == "--no-rate-limit")
      rate_limit = false;
    else
      return 2;
  }
  if (database_path.empty() || url.empty()) return 2;
  auto database = CrashReportDatabase::initialize(database_path);
  if (database == nullptr) return 1;
  std::int64_t now = std::time(nullptr);
  if (database->settings()->uploads_enabled() &&
      curl_global_init(CURL_GLOBAL_DEFAULT) == CURLE_OK) {
    upload_pending_reports(*database, url, rate_limit, now);
    curl_global_cleanup();
  }
  database->prune(now, kMaxReportAge, kMaxDatabaseBytes);
  return 0;
}
