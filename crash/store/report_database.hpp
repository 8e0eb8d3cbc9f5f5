#pragma once

#include "crash/store/report_metadata.hpp"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvanta::crash {

// The settings of a report database, kept in the file "settings" at its root
// as "name=value" lines: the id of this installation, made once when the
// database is created, and the switch that allows uploads.
class DatabaseSettings {
 public:
  const std::string& client_id() const { return client_id_; }
  bool uploads_enabled() const { return uploads_enabled_; }
  // When an upload was last tried (seconds since the epoch); 0 for never.
  std::int64_t last_upload_attempt() const { return last_upload_attempt_; }

  // Records the uploads switch. The file is rewritten only when the value
  // changes, so a start with the same value costs no write. Returns false,
  // keeping the old value, when the file cannot be written.
  bool set_uploads_enabled(bool enabled);

  // Records the time of an upload attempt. Returns false, keeping the old
  // value, when the file cannot be written.
  bool set_last_upload_attempt(std::int64_t time);

 private:
  friend class CrashReportDatabase;

  bool load_or_create();
  bool save() const;

  std::string path_;
  std::string client_id_;
  bool uploads_enabled_ = false;
  std::int64_t last_upload_attempt_ = 0;
};

// A directory of crash reports. A report is a minidump, UUID.dmp, and its
// metadata, UUID.meta. Both are written in new/, moved to pending/ when they
// are complete (the metadata first), and to completed/ once uploaded, so a
// reader of pending/ never sees half a report. Files are made with mode
// 0600 and folders with 0700, and no path in the database may be a symbolic
// link: one planted there makes the operation fail rather than be followed.
class CrashReportDatabase {
 public:
  static constexpr std::string_view kReportExtension = ".dmp";
  static constexpr std::string_view kMetadataExtension = ".meta";

  // Opens the database at `path`, creating the directory, its new/, pending/
  // and completed/ folders and the settings file as needed. Returns nullptr
  // when any of them cannot be created or the settings cannot be read or
  // written.
  static std::unique_ptr<CrashReportDatabase> initialize(const std::string& path);

  const std::string& path() const { return path_; }
  DatabaseSettings* settings() { return &settings_; }
  const DatabaseSettings* settings() const { return &settings_; }

  // Stores a finished report under the name `uuid`: written and flushed in
  // new/, then moved to pending/. Returns the path of its dump in pending/,
  // or an empty string when it cannot be written.
  std::string store_report(const std::string& uuid, std::string_view dump,
                           const ReportMetadata& metadata);

  // The paths of the dumps in pending/ (or completed/), sorted; empty when
  // there are none or the folder cannot be read.
  std::vector<std::string> pending_reports() const;
  std::vector<std::string> completed_reports() const;

  // The metadata beside the dump at `dump_path`; nullopt when it is missing
  // or damaged.
  static std::optional<ReportMetadata> metadata_of(const std::string& dump_path);

  // Records the server's id in the report's metadata and moves the report
  // from pending/ to completed/. Returns false when it cannot be moved.
  bool mark_uploaded(const std::string& dump_path, const std::string& server_report_id);

  // Deletes the reports, pending or completed, older than `max_age_seconds`
  // at `now`, and then the oldest ones until the dumps left take at most
  // `max_bytes`. Returns the number deleted.
  std::size_t prune(std::int64_t now, std::int64_t max_age_seconds, std::uint64_t max_bytes);

 private:
  explicit CrashReportDatabase(std::string path) : path_(std::move(path)) {}

  std::string path_;
  DatabaseSettings settings_;
};

}  // namespace orvanta::crash
