#include "crash/handler/upload.hpp"

#include "crash/store/file_io.hpp"

#include <curl/curl.h>

#include <optional>

namespace orvanta::crash {
namespace {

constexpr long kTimeoutSeconds = 60;

std::size_t collect(char* data, std::size_t size, std::size_t count, void* answer) {
  static_cast<std::string*>(answer)->append(data, size * count);
  return size * count;
}

std::string trimmed(const std::string& text) {
  auto first = text.find_first_not_of(" \t\r\n");
  if (first == std::string::npos) return {};
  auto last = text.find_last_not_of(" \t\r\n");
  return text.substr(first, last - first + 1);
}

void add_field(curl_mime* form, const std::string& name, const std::string& value) {
  curl_mimepart* part = curl_mime_addpart(form);
  curl_mime_name(part, name.c_str());
  curl_mime_data(part, value.data(), value.size());
}

// Posts one report; the server's answer when it accepts it.
std::optional<std::string> post(const std::string& url, const std::string& client_id,
                                const std::string& dump_path) {
  auto dump = read_file(dump_path);
  auto metadata = CrashReportDatabase::metadata_of(dump_path);
  if (!dump || !metadata) return std::nullopt;
  CURL* curl = curl_easy_init();
  if (curl == nullptr) return std::nullopt;
  curl_mime* form = curl_mime_init(curl);
  for (const auto& [key, value] : metadata->annotations) add_field(form, key, value);
  add_field(form, "guid", client_id);
  curl_mimepart* file = curl_mime_addpart(form);
  curl_mime_name(file, "upload_file_minidump");
  curl_mime_data(file, dump->data(), dump->size());
  curl_mime_filename(file, dump_path.substr(dump_path.rfind('/') + 1).c_str());
  curl_mime_type(file, "application/octet-stream");

  std::string answer;
  curl_easy_setopt(curl, CURLOPT_URL, url.c_str());
  curl_easy_setopt(curl, CURLOPT_MIMEPOST, form);
  curl_easy_setopt(curl, CURLOPT_WRITEFUNCTION, collect);
  curl_easy_setopt(curl, CURLOPT_WRITEDATA, &answer);
  curl_easy_setopt(curl, CURLOPT_TIMEOUT, kTimeoutSeconds);
  curl_easy_setopt(curl, CURLOPT_NOSIGNAL, 1L);
  long status = 0;
  bool sent = curl_easy_perform(curl) == CURLE_OK &&
              curl_easy_getinfo(curl, CURLINFO_RESPONSE_CODE, &status) == CURLE_OK &&
              status >= 200 && status < 300;
  curl_mime_free(form);
  curl_easy_cleanup(curl);
  if (!sent) return std::nullopt;
  return trimmed(answer);
}

}  // namespace

std::size_t upload_pending_reports(CrashReportDatabase& database, const std::string& url,
                                   bool rate_limit, std::int64_t now) {
  std::size_t sent = 0;
  for (const std::string& dump : database.pending_reports()) {
    if (rate_limit) {
      std::int64_t last = database.settings()->last_upload_attempt();
      // A clock set back behind the last attempt does not block uploads for good.
      if (last <= now && now - last < kUploadInterval) break;
      if (!database.settings()->set_last_upload_attempt(now)) break;
    }
    auto id = post(url, database.settings()->client_id(), dump);
    if (id && database.mark_uploaded(dump, *id)) ++sent;
  }
  return sent;
}

}  // namespace orvanta::crash
