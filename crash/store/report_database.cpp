#include "crash/store/report_database.hpp"

#include "crash/store/file_io.hpp"
#include "crash/store/uuid.hpp"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <dirent.h>
#include <sys/stat.h>
#include <unistd.h>

namespace orvanta::crash {
namespace {

// A directory of ours, or an existing one that is a real directory: lstat
// sees a planted symbolic link as what it is.
bool make_directory(const std::string& path) {
  if (mkdir(path.c_str(), 0700) == 0) return true;
  struct stat info {};
  return errno == EEXIST && lstat(path.c_str(), &info) == 0 && S_ISDIR(info.st_mode);
}

std::string with_extension(const std::string& dump_path, std::string_view extension) {
  auto dot = dump_path.rfind('.');
  return dump_path.substr(0, dot) + std::string(extension);
}

std::string file_name(const std::string& path) {
  auto slash = path.rfind('/');
  return slash == std::string::npos ? path : path.substr(slash + 1);
}

std::vector<std::string> dumps_in(const std::string& folder) {
  std::vector<std::string> reports;
  DIR* dir = opendir(folder.c_str());
  if (dir == nullptr) return reports;
  constexpr auto extension = CrashReportDatabase::kReportExtension;
  while (const dirent* entry = readdir(dir)) {
    std::string_view name = entry->d_name;
    if (name.size() > extension.size() && name.ends_with(extension)) {
      reports.push_back(folder + "/" + std::string(name));
    }
  }
  closedir(dir);
  std::sort(reports.begin(), reports.end());
  return reports;
}

// Moves the metadata first, so that a dump in the new place always has its
// metadata beside it.
bool move_report(const std::string& dump_path, const std::string& folder) {
  std::string metadata = with_extension(dump_path, CrashReportDatabase::kMetadataExtension);
  std::string name = file_name(dump_path);
  std::string moved = folder + "/" + name;
  std::string moved_metadata = with_extension(moved, CrashReportDatabase::kMetadataExtension);
  return std::rename(metadata.c_str(), moved_metadata.c_str()) == 0 &&
         std::rename(dump_path.c_str(), moved.c_str()) == 0;
}

void remove_report(const std::string& dump_path) {
  unlink(dump_path.c_str());
  unlink(with_extension(dump_path, CrashReportDatabase::kMetadataExtension).c_str());
}

// The temporary name carries the process id, so two programs that start at
// the same moment never write the same temporary file.
std::string temporary_name(const std::string& path) {
  return path + "." + std::to_string(getpid()) + ".tmp";
}

std::string_view value_of(std::string_view line, std::string_view name) {
  if (line.size() <= name.size() || line.substr(0, name.size()) != name ||
      line[name.size()] != '=') {
    return {};
  }
  return line.substr(name.size() + 1);
}

}  // namespace

bool DatabaseSettings::load_or_create() {
  auto contents = read_file(path_);
  if (contents) {
    std::string_view rest = *contents;
    while (!rest.empty()) {
      auto end = rest.find('\n');
      std::string_view line = rest.substr(0, end);
      rest = end == std::string_view::npos ? std::string_view{} : rest.substr(end + 1);
      if (auto id = value_of(line, "client_id"); !id.empty()) client_id_ = id;
      if (auto flag = value_of(line, "uploads_enabled"); !flag.empty()) {
        uploads_enabled_ = flag == "1";
      }
      if (auto time = value_of(line, "last_upload_attempt"); !time.empty()) {
        last_upload_attempt_ = std::atoll(std::string(time).c_str());
      }
    }
    if (client_id_.size() == 36) return true;
  }
  // Missing or damaged: start afresh with a new id, uploads off until asked.
  client_id_ = random_uuid();
  uploads_enabled_ = false;
  return save();
}

bool DatabaseSettings::save() const {
  std::string contents = "client_id=" + client_id_ + "\nuploads_enabled=" +
                         (uploads_enabled_ ? "1" : "0") + "\nlast_upload_attempt=" +
                         std::to_string(last_upload_attempt_) + "\n";
  return write_file_atomically(temporary_name(path_), path_, contents);
}

bool DatabaseSettings::set_uploads_enabled(bool enabled) {
  if (enabled == uploads_enabled_) return true;
  uploads_enabled_ = enabled;
  if (save()) return true;
  uploads_enabled_ = !enabled;
  return false;
}

bool DatabaseSettings::set_last_upload_attempt(std::int64_t time) {
  std::int64_t old = last_upload_attempt_;
  last_upload_attempt_ = time;
  if (save()) return true;
  last_upload_attempt_ = old;
  return false;
}

std::unique_ptr<CrashReportDatabase> CrashReportDatabase::initialize(const std::string& path) {
  for (const char* folder : {"", "/new", "/pending", "/completed"}) {
    if (!make_directory(path + folder)) return nullptr;
  }
  std::unique_ptr<CrashReportDatabase> database(new CrashReportDatabase(path));
  database->settings_.path_ = path + "/settings";
  if (!database->settings_.load_or_create()) return nullptr;
  return database;
}

std::string CrashReportDatabase::store_report(const std::string& uuid, std::string_view dump,
                                              const ReportMetadata& metadata) {
  std::string written = path_ + "/new/" + uuid + std::string(kReportExtension);
  std::string written_metadata = with_extension(written, kMetadataExtension);
  if (!write_file_atomically(written + ".tmp", written, dump) ||
      !write_file_atomically(written_metadata + ".tmp", written_metadata,
                             format_metadata(metadata)) ||
      !move_report(written, path_ + "/pending")) {
    remove_report(written);
    return {};
  }
  return path_ + "/pending/" + file_name(written);
}

std::vector<std::string> CrashReportDatabase::pending_reports() const {
  return dumps_in(path_ + "/pending");
}

std::vector<std::string> CrashReportDatabase::completed_reports() const {
  return dumps_in(path_ + "/completed");
}

std::optional<ReportMetadata> CrashReportDatabase::metadata_of(const std::string& dump_path) {
  auto text = read_file(with_extension(dump_path, kMetadataExtension));
  if (!text) return std::nullopt;
  return parse_metadata(*text);
}

bool CrashReportDatabase::mark_uploaded(const std::string& dump_path,
                                        const std::string& server_report_id) {
  ReportMetadata metadata = metadata_of(dump_path).value_or(ReportMetadata{});
  metadata.server_report_id = server_report_id;
  std::string metadata_path = with_extension(dump_path, kMetadataExtension);
  if (!write_file_atomically(temporary_name(metadata_path), metadata_path,
                             format_metadata(metadata))) {
    return false;
  }
  return move_report(dump_path, path_ + "/completed");
}

std::size_t CrashReportDatabase::prune(std::int64_t now, std::int64_t max_age_seconds,
                                       std::uint64_t max_bytes) {
  struct Report {
    std::string path;
    std::int64_t time;
    std::uint64_t size;
  };
  std::vector<Report> reports;
  for (const auto& list : {pending_reports(), completed_reports()}) {
    for (const std::string& path : list) {
      struct stat info {};
      if (lstat(path.c_str(), &info) != 0) continue;
      reports.push_back({path, static_cast<std::int64_t>(info.st_mtime),
                         static_cast<std::uint64_t>(info.st_size)});
    }
  }
  // Newest first: they are the ones kept.
  std::sort(reports.begin(), reports.end(),
            [](const Report& a, const Report& b) { return a.time > b.time; });
  std::size_t removed = 0;
  std::uint64_t kept_bytes = 0;
  for (const Report& report : reports) {
    if (now - report.time > max_age_seconds || kept_bytes + report.size > max_bytes) {
      remove_report(report.path);
      ++removed;
    } else {
      kept_bytes += report.size;
    }
  }
  return removed;
}

}  // namespace orvanta::crash
