#pragma once

#include "crash/crash_reporter_config.hpp"
#include "crash/handler_client.hpp"
#include "crash/store/report_database.hpp"
#include "crash/store/simple_dictionary.hpp"

#include <memory>
#include <mutex>
#include <sys/types.h>

namespace orvanta::crash {

// The program's crash reporter: the report database, the client of the
// handler process and the table of simple annotations. It is made at the
// first call of instance() and released at exit.
class CrashReporter {
 public:
  // The database lives in this folder below the data directory.
  static constexpr const char* kDatabaseFolder = "Crashpad";
  static constexpr const char* kHandlerName = "crashpad_handler";

  static CrashReporter& instance();

  CrashReporter(const CrashReporter&) = delete;
  CrashReporter& operator=(const CrashReporter&) = delete;

  // Opens the database at data_dir/Crashpad (creating it), records whether
  // uploads are enabled (exactly when upload_url is not empty), starts
  // handler_dir/crashpad_handler with the annotations and arguments derived
  // from `config` without waiting for it to be ready, then registers the
  // simple annotations with "application_is_quitting" set to "false". A
  // second call replaces the handler of the first. Returns true when the
  // handler is on its way; false when either directory is empty, the
  // database cannot be created or opened, or the handler is missing or
  // cannot be started. It never prints.
  bool start(const CrashReporterConfig& config);

  // Whether the latest start succeeded.
  bool started() const;

  // The running handler's process id; -1 when there is none, or none yet
  // (the handler is spawned just after start returns).
  pid_t handler_pid() const;

 private:
  CrashReporter() = default;
  ~CrashReporter();

  mutable std::mutex mutex_;
  std::unique_ptr<CrashReportDatabase> database_;
  std::unique_ptr<HandlerClient> client_;
  std::unique_ptr<SimpleStringDictionary> annotations_;
  bool started_ = false;
};

}  // namespace orvanta::crash
