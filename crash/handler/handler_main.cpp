// The handler process. A client starts it with one end of a socket pair and
// goes on at once; the handler sets itself up and then sleeps in a read on
// that socket. When the client crashes, its signal handler sends a
// CrashMessage and its annotations; the handler writes the report into the
// database and answers. When the client ends, the socket closes and the
// handler ends with it.

#include "crash/handler/handler_options.hpp"
#include "crash/handler/minidump_writer.hpp"
#include "crash/handler/process_snapshot.hpp"
#include "crash/store/crash_message.hpp"
#include "crash/store/report_database.hpp"
#include "crash/store/simple_dictionary.hpp"
#include "crash/store/uuid.hpp"

#include <cerrno>
#include <climits>
#include <csignal>
#include <ctime>
#include <memory>
#include <string>
#include <vector>
#include <sys/prctl.h>
#include <unistd.h>

namespace orvanta::crash {
namespace {

// Ties the handler's life to its client's: the kernel kills the handler
// when the client goes, and a client that went before this line was
// reached is caught by the parent check. Also lets go of any descriptor the
// client did not mean to pass on.
bool bind_to_client(const HandlerOptions& options) {
  prctl(PR_SET_PDEATHSIG, SIGKILL);
  if (getppid() != options.client_pid) return false;
  if (options.client_fd > 3) close_range(3, static_cast<unsigned>(options.client_fd) - 1, 0);
  close_range(static_cast<unsigned>(options.client_fd) + 1, UINT_MAX, 0);
  std::signal(SIGPIPE, SIG_IGN);
  return true;
}

bool read_exactly(int fd, void* buffer, std::size_t size) {
  auto* out = static_cast<char*>(buffer);
  while (size > 0) {
    ssize_t got = read(fd, out, size);
    if (got < 0 && errno == EINTR) continue;
    if (got <= 0) return false;
    out += got;
    size -= static_cast<std::size_t>(got);
  }
  return true;
}

bool send_byte(int fd, char byte) {
  for (;;) {
    ssize_t put = write(fd, &byte, 1);
    if (put < 0 && errno == EINTR) continue;
    return put == 1;
  }
}

void write_report(const HandlerOptions& options, const CrashMessage& message,
                  const SimpleStringDictionary& dictionary) {
  auto database = CrashReportDatabase::initialize(options.database);
  if (database == nullptr) return;
  ProcessSnapshot snapshot = capture_process(options.client_pid, message);
  ReportMetadata metadata;
  metadata.annotations = options.annotations;
  if (message.has_annotations != 0) {
    for (auto& [key, value] : dictionary.entries()) {
      metadata.annotations.insert_or_assign(key, value);
    }
  }
  std::string dump = write_minidump(snapshot, static_cast<std::uint32_t>(std::time(nullptr)));
  (void)database->store_report(random_uuid(), dump, metadata);
}

// After a crash the client is gone, and the handler becomes the uploader
// beside it, no longer tied to the client's life. Returns only when that
// cannot be done.
void become_uploader(const HandlerOptions& options) {
  auto database = CrashReportDatabase::initialize(options.database);
  if (database == nullptr || !database->settings()->uploads_enabled() || options.url.empty()) {
    return;
  }
  char self[4096];
  ssize_t length = readlink("/proc/self/exe", self, sizeof self - 1);
  if (length <= 0) return;
  std::string uploader(self, static_cast<std::size_t>(length));
  uploader = uploader.substr(0, uploader.rfind('/') + 1) + "orvanta_crash_upload";
  std::string database_option = "--database=" + options.database;
  std::string url_option = "--url=" + options.url;
  std::vector<char*> argv{uploader.data(), database_option.data(), url_option.data()};
  std::string no_rate_limit = "--no-rate-limit";
  if (!options.rate_limit) argv.push_back(no_rate_limit.data());
  argv.push_back(nullptr);
  execv(uploader.c_str(), argv.data());
}

void serve(const HandlerOptions& options) {
  auto dictionary = std::make_unique<SimpleStringDictionary>();
  for (;;) {
    CrashMessage message;
    if (!read_exactly(options.client_fd, &message, sizeof message) ||
        !read_exactly(options.client_fd, dictionary.get(), sizeof *dictionary)) {
      return;  // the client has ended
    }
    bool crashed = message.magic == kCrashMessageMagic;
    if (crashed) {
      write_report(options, message, *dictionary);
      // The client dies as soon as it hears the report is written; the
      // handler must outlive it to send the report.
      prctl(PR_SET_PDEATHSIG, 0);
    }
    if (!send_byte(options.client_fd, kReportWritten)) return;
    if (crashed) become_uploader(options);
  }
}

}  // namespace
}  // namespace orvanta::crash

int main(int argc, char** argv) {
  using namespace orvanta::crash;
  auto options = parse_handler_options(argc, argv);
  if (!options) return 2;  // refused: the client does not start it again
  if (!bind_to_client(*options)) return 0;
  serve(*options);
  return 0;
}
