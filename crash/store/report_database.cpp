#include "crash/store/report_database.hpp"

#include "crash/store/file_io.hpp"
#include "crash/store/uuid.hpp"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <dirent.h>
#include <sys/stat.h>
#include <unistd.h>

namespace orvanta::crash {
namespace {

bool make_directory(const std::string& path) {
  if (mkdir(path.c_str(), 0700) == 0) return true;
  struct stat info {};
  return errno == EEXIST && stat(path.c_str(), &info) == 0 && S_ISDIR(info.st_mode);
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
                         (uploads_enabled_ ? "1" : "0") + "\n";
  return write_file_atomically(temporary_name(path_), path_, contents);
}

bool DatabaseSettings::set_uploads_enabled(bool enabled) {
  if (enabled == uploads_enabled_) return true;
  uploads_enabled_ = enabled;
  if (save()) return true;
  uploads_enabled_ = !enabled;
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

std::string CrashReportDatabase::store_report(const std::string& uuid,
                                              std::string_view contents) {
  std::string name = uuid + std::string(kReportExtension);
  std::string written = path_ + "/new/" + name;
  std::string pending = path_ + "/pending/" + name;
  if (!write_file_atomically(written + ".tmp", written, contents)) return {};
  if (std::rename(written.c_str(), pending.c_str()) != 0) {
    unlink(written.c_str());
    return {};
  }
  return pending;
}

std::vector<std::string> CrashReportDatabase::pending_reports() const {
  std::vector<std::string> reports;
  std::string folder = path_ + "/pending";
  DIR* dir = opendir(folder.c_str());
  if (dir == nullptr) return reports;
  while (const dirent* entry = readdir(dir)) {
    std::string_view name = entry->d_name;
    if (name.size() > kReportExtension.size() && name.ends_with(kReportExtension)) {
      reports.push_back(folder + "/" + std::string(name));
    }
  }
  closedir(dir);
  std::sort(reports.begin(), reports.end());
  return reports;
}

bool CrashReportDatabase::mark_uploaded(const std::string& pending_path) {
  auto slash = pending_path.rfind('/');
  std::string name = slash == std::string::npos ? pending_path : pending_path.substr(slash + 1);
  std::string completed = path_ + "/completed/" + name;
  return std::rename(pending_path.c_str(), completed.c_str()) == 0;
}

}  // namespace orvanta::crash
