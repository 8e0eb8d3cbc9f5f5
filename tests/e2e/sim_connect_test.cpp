// The real CLI against the simulator on the fixed ports: whether it finds the
// desktop client, how it connects, and what it asked for. Outputs are
// compared byte for byte.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "tests/support/process.hpp"
#include "tests/support/sim_process.hpp"

namespace orvanta::testing {
namespace {

const char* const kNotRunning = "Orvanta desktop client is not running\n";

// The requests every connection makes before a command's own.
const std::vector<std::string> kHandshake{"authorize_connection", "login_state_subscription"};

void expect_result(const ProcessResult& r, const std::string& out, const std::string& err, int status) {
  EXPECT_EQ(r.out, out);
  EXPECT_EQ(r.err, err);
  EXPECT_EQ(r.status, status);
}

// The harness's simulator says where it listens, stops cleanly and leaves
// its state behind; that it looks like the desktop client shows below.
TEST(SimProcessHarness, ListensOnTheFirstPortAndDumpsTheStateOnExit) {
  const std::string dump = (std::filesystem::temp_directory_path() / "orvanta_e2e_dump.json").string();
  std::filesystem::remove(dump);
  {
    SimProcess sim({"--dump-state", dump});
    EXPECT_EQ(sim.ports(), std::vector<std::uint16_t>{7768});
    EXPECT_EQ(sim.stop(), 0);
    EXPECT_EQ(sim.error_output(), "orvanta_desktop_sim: listening on 127.0.0.1:7768\n");
  }
  std::ifstream in(dump);
  std::stringstream text;
  text << in.rdbuf();
  EXPECT_EQ(text.str().substr(0, 47), R"({"app_version":"1.2.58.411","account":{"logged_)");
  std::filesystem::remove(dump);
}

// Without the process name the CLI doesn't see a desktop client, and never
// connects, although the simulator listens.
TEST(ConnectPaths, NotRunningWhenNoProcessIsNamedOrvanta) {
  SimProcess sim({"--no-process-name"});
  expect_result(run_cli({"status"}), "", kNotRunning, 1);
  EXPECT_TRUE(sim.requests().empty());
}

TEST(ConnectPaths, VersionNeitherChecksNorConnects) {
  SimProcess sim;
  expect_result(run_cli({"version"}), "cli: 1.2.93.667\ntetherkit: v0.10.451\ntetherkit-hash: 1ab97e21337b\npodroom: 0.1.3\n",
                "", 0);
  EXPECT_TRUE(sim.requests().empty());
}

TEST(ConnectPaths, StatusConnectsAndReportsTheLoginState) {
  SimProcess sim;
  expect_result(run_cli({"status"}), "Orvanta desktop client is running\nLogged in: Yes\n", "", 0);
  EXPECT_EQ(sim.methods(), kHandshake);
  const std::vector<std::string> requests = sim.requests();
  ASSERT_EQ(requests.size(), 2U);
  EXPECT_EQ(requests[1], R"({"method":"login_state_subscription","params":{}})");
}

// A client on a later port of the schedule is found after the first port's
// retry window.
TEST(ConnectPaths, FindsTheDesktopClientOnALaterPort) {
  SimProcess sim({"--port", "7770"});
  expect_result(run_cli({"status"}), "Orvanta desktop client is running\nLogged in: Yes\n", "", 0);
}

}  // namespace
}  // namespace orvanta::testing
