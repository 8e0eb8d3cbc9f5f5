#include "crash/crash_reporter.hpp"

#include "crash/crash_signals.hpp"
#include "crash/start_parameters.hpp"

#include <cstdlib>
#include <filesystem>
#include <system_error>

namespace orvanta::crash {

CrashReporter& CrashReporter::instance() {
  static CrashReporter reporter;
  return reporter;
}

CrashReporter::~CrashReporter() {
  set_simple_annotations(nullptr);
  client_.reset();
}

bool CrashReporter::start(const CrashReporterConfig& config) {
  std::lock_guard lock(mutex_);
  if (config.handler_dir.empty() || config.data_dir.empty()) return false;
  const std::string handler = config.handler_dir + "/" + kHandlerName;
  const std::string database_path = config.data_dir + "/" + kDatabaseFolder;

  std::error_code ec;
  std::filesystem::create_directories(database_path, ec);
  if (ec) return false;
  database_ = CrashReportDatabase::initialize(database_path);
  if (database_ == nullptr || database_->settings() == nullptr) return false;
  // A settings file that cannot be rewritten keeps its old value; the
  // handler still starts and reports are still written.
  (void)database_->settings()->set_uploads_enabled(!config.upload_url.empty());

  auto annotations = handler_annotations(config, std::getenv("TEAMCITY_BUILD_ID"));
  auto arguments = handler_arguments(config);
  auto client = std::make_unique<HandlerClient>();
  bool ok = client->start_handler(handler, database_path, database_path, config.upload_url,
                                  annotations, arguments, /*restartable=*/true,
                                  /*asynchronous_start=*/false);
  client_ = std::move(client);
  if (ok) {
    auto table = std::make_unique<SimpleStringDictionary>();
    set_simple_annotations(table.get());
    table->set("application_is_quitting", "false");
    annotations_ = std::move(table);
  }
  started_ = ok;
  return ok;
}

bool CrashReporter::started() const {
  std::lock_guard lock(mutex_);
  return started_;
}

pid_t CrashReporter::handler_pid() const {
  std::lock_guard lock(mutex_);
  return client_ == nullptr ? -1 : client_->handler_pid();
}

}  // namespace orvanta::crash
