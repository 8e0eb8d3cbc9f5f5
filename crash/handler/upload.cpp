#include "crash/handler/upload.hpp"

namespace orvanta::crash {

std::size_t upload_pending_reports(CrashReportDatabase& /*database*/, const std::string& /*url*/,
                                   bool /*rate_limit*/) {
  return 0;
}

}  // namespace orvanta::crash
