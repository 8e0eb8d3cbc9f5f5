#include "crash/handler/handler_options.hpp"

#include "crash/handler_launch.hpp"

#include <gtest/gtest.h>

namespace orvanta::crash {
namespace {

std::optional<HandlerOptions> parse(std::vector<std::string> line) {
  std::vector<const char*> argv;
  for (const std::string& argument : line) argv.push_back(argument.c_str());
  return parse_handler_options(static_cast<int>(argv.size()), argv.data());
}

// What the client writes is what the handler reads; an annotation value may
// hold '=' of its own.
TEST(HandlerCommandLine, IsReadBackByTheHandlerAsWritten) {
  HandlerLaunch launch{"/opt/orvanta/crashpad_handler", "/db", "/metrics", "https://u",
                       {{"k", "v=w"}, {"product", "orvanta"}}, {"--no-rate-limit"}};
  auto options = parse(handler_command_line(launch, 42));
  ASSERT_TRUE(options);
  EXPECT_EQ(options->database, "/db");
  EXPECT_EQ(options->metrics_dir, "/metrics");
  EXPECT_EQ(options->url, "https://u");
  EXPECT_EQ(options->annotations, launch.annotations);
  EXPECT_FALSE(options->rate_limit);
  EXPECT_EQ(options->client_fd, 3);
  EXPECT_EQ(options->client_pid, 42);
  EXPECT_TRUE(parse({"h", "--database=/db", "--client-fd=3", "--client-pid=1"})->rate_limit);
}

TEST(HandlerCommandLine, RefusesUnknownMalformedOrMissingOptions) {
  const std::vector<std::string> good{"h", "--database=/db", "--client-fd=3", "--client-pid=7"};
  ASSERT_TRUE(parse(good));
  for (std::string bad : {"--bogus", "--annotation=novalue", "--annotation==v", "--client-fd=x",
                          "--client-pid=0", "--database"}) {
    auto line = good;
    line.push_back(bad);
    EXPECT_FALSE(parse(line)) << bad;
  }
  for (std::size_t missing = 1; missing < good.size(); ++missing) {
    auto line = good;
    line.erase(line.begin() + static_cast<std::ptrdiff_t>(missing));
    EXPECT_FALSE(parse(line)) << good[missing];
  }
}

}  // namespace
}  // namespace orvanta::crash
