// Uploads against a local endpoint, tests/crash/upload_server.py.

#include "crash/handler/upload.hpp"

#include "crash/store/file_io.hpp"
#include "tests/crash/test_support.hpp"
#include "tests/support/process.hpp"

#include <gtest/gtest.h>

#include <curl/curl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace orvanta::crash {
namespace {

using test::TempDir;

// The server runs until its stdin closes. Its stdout stays open as long as
// it runs, so that nothing it writes after the port meets a closed pipe.
class UploadServer {
 public:
  explicit UploadServer(const std::string& dir) {
    auto in = testing::make_pipe();
    auto out = testing::make_pipe();
    pid_ = testing::spawn("python3", {"python3", ORVANTA_SOURCE_DIR "/tests/crash/upload_server.py", dir},
                          testing::environment_with({}), {in[0], out[1], STDERR_FILENO});
    close(in[0]);
    close(out[1]);
    stdin_ = in[1];
    stdout_ = out[0];
    std::string line;
    for (char c = 0; read(stdout_, &c, 1) == 1 && c != '\n';) line += c;
    port_ = std::atoi(line.c_str());
  }
  ~UploadServer() {
    close(stdin_);
    close(stdout_);
    if (pid_ > 0) waitpid(pid_, nullptr, 0);
  }
  std::string url(const char* path) const { return "http://127.0.0.1:" + std::to_string(port_) + path; }

 private:
  pid_t pid_ = -1;
  int stdin_ = -1;
  int stdout_ = -1;
  int port_ = 0;
};

class Upload : public ::testing::Test {
 protected:
  static void SetUpTestSuite() { curl_global_init(CURL_GLOBAL_DEFAULT); }
  static void TearDownTestSuite() { curl_global_cleanup(); }

  TempDir dir;
  UploadServer server{dir.path()};
  std::unique_ptr<CrashReportDatabase> database =
      CrashReportDatabase::initialize(dir.path() + "/db");

  std::string store(const char* uuid) {
    return database->store_report(uuid, "MDMP and more",
                                  {{{"product", "orvanta"}, {"ptype", "orvanta_cli"}}, ""});
  }
  std::string request(int n) {
    return read_file(dir.path() + "/request-" + std::to_string(n)).value_or("");
  }
};

constexpr std::int64_t kNow = 1700000000;

TEST_F(Upload, PostsTheFormAndCompletesTheReportWithTheServersId) {
  EXPECT_EQ(store("r1"), dir.path() + "/db/pending/r1.dmp");
  EXPECT_EQ(upload_pending_reports(*database, server.url("/ok"), true, kNow), 1u);
  EXPECT_EQ(request(1), "field product=orvanta\nfield ptype=orvanta_cli\nfield guid=" +
                            database->settings()->client_id() +
                            "\nfile upload_file_minidump r1.dmp 13 MDMP\n");
  EXPECT_TRUE(database->pending_reports().empty());
  auto completed = database->completed_reports();
  ASSERT_EQ(completed.size(), 1u);
  EXPECT_EQ(CrashReportDatabase::metadata_of(completed[0]),
            (ReportMetadata{{{"product", "orvanta"}, {"ptype", "orvanta_cli"}}, "report-1"}));
  EXPECT_EQ(database->settings()->last_upload_attempt(), kNow);
}

// One attempt an hour: the second crash's report waits, and goes once the
// hour has passed.
TEST_F(Upload, RateLimitKeepsASecondReportPendingForAnHour) {
  store("r1");
  EXPECT_EQ(upload_pending_reports(*database, server.url("/ok"), true, kNow), 1u);
  store("r2");
  EXPECT_EQ(upload_pending_reports(*database, server.url("/ok"), true, kNow + 60), 0u);
  EXPECT_EQ(database->pending_reports().size(), 1u);
  EXPECT_EQ(upload_pending_reports(*database, server.url("/ok"), true, kNow + kUploadInterval), 1u);
  store("r3");
  store("r4");
  EXPECT_EQ(upload_pending_reports(*database, server.url("/ok"), false, kNow + 61), 2u);
}

TEST_F(Upload, AFailedUploadLeavesTheReportPending) {
  std::string dump = store("r1");
  EXPECT_EQ(upload_pending_reports(*database, server.url("/fail"), true, kNow), 0u);
  EXPECT_FALSE(request(1).empty());
  EXPECT_EQ(database->pending_reports(), std::vector<std::string>{dump});
  EXPECT_EQ(upload_pending_reports(*database, "http://127.0.0.1:1/nobody", false, kNow), 0u);
  EXPECT_EQ(database->pending_reports(), std::vector<std::string>{dump});
}

// The whole way: a crash, the handler's dump, the handler turned uploader,
// the report completed with the server's id.
TEST(UploadAfterACrash, ReachesTheServerWithTheAnnotationsAndTheDump) {
  TempDir dir;
  UploadServer server(dir.path());
  {
    test::HelperProcess helper("segv", dir.path(),
                               {"ORVANTA_TEST_UPLOAD_URL=" + server.url("/ok")});
    helper.read_facts();
    helper.wait();
  }
  auto database = CrashReportDatabase::initialize(dir.path() + "/com.orvanta.client/Crashpad");
  for (int i = 0; i < 3000 && database->completed_reports().empty(); ++i) usleep(10000);
  auto completed = database->completed_reports();
  ASSERT_EQ(completed.size(), 1u);
  EXPECT_EQ(CrashReportDatabase::metadata_of(completed[0])->server_report_id, "report-1");
  std::string form = read_file(dir.path() + "/request-1").value_or("");
  for (const std::string& field :
       std::vector<std::string>{"field format=minidump\n", "field product=orvanta\n",
                                "field application_is_quitting=false\n",
                                "field guid=" + database->settings()->client_id() + "\n"}) {
    EXPECT_NE(form.find(field), std::string::npos) << field;
  }
  EXPECT_NE(form.find("file upload_file_minidump "), std::string::npos);
  EXPECT_NE(form.find(" MDMP\n"), std::string::npos);
}

}  // namespace
}  // namespace orvanta::crash
