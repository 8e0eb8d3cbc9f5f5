#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "crash/store/report_database.hpp"

namespace orvanta::crash {

// With rate limiting, at most one upload attempt in this many seconds.
inline constexpr std::int64_t kUploadInterval = 3600;

// Reports are kept at most a year, and to 128 MB in all.
inline constexpr std::int64_t kMaxReportAge = 365 * 24 * 3600;
inline constexpr std::uint64_t kMaxDatabaseBytes = 128u * 1024 * 1024;

// Sends the reports in pending/ to `url`, oldest name first, as an HTTP POST
// of multipart/form-data: one field per annotation, the database's client
// id as `guid`, and the dump as the file part `upload_file_minidump`. A
// report the server accepts (status 2xx) moves to completed/ with the
// server's answer, trimmed, as its report id; a failed one stays pending.
// With `rate_limit`, an attempt is made only when the last one is at least
// kUploadInterval before `now`, and only one; the rest wait for later. The
// attempt's time is recorded before it is made. Returns the number of
// reports sent.
std::size_t upload_pending_reports(CrashReportDatabase& database, const std::string& url,
                                   bool rate_limit, std::int64_t now);

}  // namespace orvanta::crash
