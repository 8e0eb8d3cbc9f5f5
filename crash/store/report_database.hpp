#pragma once

#include <memory>
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

  // Records the uploads switch. The file is rewritten only when the value
  // changes, so a start with the same value costs no write. Returns false,
  // keeping the old value, when the file cannot be written.
  bool set_uploads_enabled(bool enabled);

 private:
  friend class CrashReportDatabase;

  bool load_or_create();
  bool save() const;

  std::string path_;
  std::string client_id_;
  bool uploads_enabled_ = false;
};

// A directory of crash reports. A report is written in new/, moved to
// pending/ when it is complete, and to completed/ once it has been uploaded,
// so a reader of pending/ never sees half a report.
class CrashReportDatabase {
 public:
  static constexpr std::string_view kReportExtension = ".report";

  // Opens the database at `path`, creating the directory, its new/, pending/
  // and completed/ folders and the settings file as needed. Returns nullptr
  // when any of them cannot be created or the settings cannot be read or
  // written.
  static std::unique_ptr<CrashReportDatabase> initialize(const std::string& path);

  const std::string& path() const { return path_; }
  DatabaseSettings* settings() { return &settings_; }
  const DatabaseSettings* settings() const { return &settings_; }

  // Stores a finished report under the name `uuid`: written and flushed in
  // new/, then moved to pending/. Returns its path in pending/, or an empty
  // string when it cannot be written.
  std::string store_report(const std::string& uuid, std::string_view contents);

  // The paths of the reports in pending/, sorted; empty when there are none
  // or the folder cannot be read.
  std::vector<std::string> pending_reports() const;

  // Moves a report from pending/ to completed/ after its upload. Returns
  // false when it cannot be moved.
  bool mark_uploaded(const std::string& pending_path);

 private:
  explicit CrashReportDatabase(std::string path) : path_(std::move(path)) {}

  std::string path_;
  DatabaseSettings settings_;
};

}  // namespace orvanta::crash
