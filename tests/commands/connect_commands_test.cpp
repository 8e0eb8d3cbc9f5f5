// The connection a command makes first: the handshake's paths and the
// retries of the link's schedule, shortened. The schedule over the fixed
// ports is tested against the real program in tests/e2e.
#include <gtest/gtest.h>

#include <algorithm>

#include "tests/support/command_cases.hpp"

namespace orvanta::testing {
namespace {

const char* const kLoggedIn = "Orvanta desktop client is running\nLogged in: Yes\n";
const std::vector<std::string> kHandshake{"authorize_connection", "login_state_subscription"};

TEST(Connect, HandshakeOutcomes) {
  struct Row {
    std::vector<std::string> flags;
    std::string out;
    std::string err;
    int status;
  };
  const std::vector<Row> rows{
      // The handshake may end with a notification; the connection stands only after it.
      {{"--complete-notification"}, kLoggedIn, "", 0},
      {{"--fail", "login_state_subscription=4"},
       "",
       "Failed to connect to Orvanta desktop client: internal server error\n",
       1},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.flags.front());
    Sim sim(row.flags);
    sim.set_pauses(std::nullopt);
    expect_command_cases({{{"status"}, row.out, row.err, row.status}});
    EXPECT_EQ(sim.methods(), kHandshake);
  }
}

// A refused hello counts as a failed attempt, so the whole schedule runs and
// ends in the one failure the user sees.
TEST(Connect, RejectedHelloEndsInConnectionFailure) {
  Sim sim({"--reject-hello"});
  expect_command_cases(
      {{{"status"}, "", "Failed to connect to Orvanta desktop client: client connection failed\n", 1}});
  const std::vector<std::string> methods = sim.methods();
  EXPECT_GT(methods.size(), 1U);
  EXPECT_EQ(methods.size(), static_cast<std::size_t>(std::count(methods.begin(), methods.end(), "authorize_connection")));
}

// A first hello that fails with a code (an error reply, a reply that does
// not decode, a completion whose params are not an object) leaves its socket
// open. The retry that follows finds it open and closes it without sending
// anything; the one after connects afresh. So every connection carries one
// hello, and the command runs as usual on the second.
TEST(Connect, AFirstHelloThatFailsIsRetriedOnANewConnection) {
  for (const char* spoil : {"reject", "garbled", "bad-completion"}) {
    SCOPED_TRACE(spoil);
    Sim sim({"--spoil-first-hello", spoil, "--log-connections"});
    sim.set_pauses(std::nullopt);
    expect_command_cases({{{"status"}, kLoggedIn, "", 0}});
    std::vector<std::string> seen;  // "method@connection"
    for (const std::string& line : sim.requests()) {
      const std::string method = line.substr(11, line.find('"', 11) - 11);
      const std::string connection = line.substr(line.rfind(':') + 1);
      seen.push_back(method + "@" + connection.substr(0, connection.size() - 1));
    }
    EXPECT_EQ(seen, (std::vector<std::string>{"authorize_connection@1", "authorize_connection@2",
                                              "login_state_subscription@2"}));
  }
}

}  // namespace
}  // namespace orvanta::testing
