#pragma once

#include "crash/store/report_database.hpp"

#include <cstddef>
#include <string>

namespace orvanta::crash {

// Sends the reports in pending/ to `url` and moves each one sent to
// completed/; with `rate_limit`, at most one upload an hour would go out.
//
// This build has no HTTP client, and the machines it runs on reach no
// upload endpoint, so nothing is sent: every report stays complete in
// pending/, where a build with a client, or a person, can pick it up. The
// handler calls this only when the database allows uploads and a URL is
// set, which the default build (an empty URL) never does. Returns the
// number of reports sent, so 0.
std::size_t upload_pending_reports(CrashReportDatabase& database, const std::string& url,
                                   bool rate_limit);

}  // namespace orvanta::crash
