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
  std::vector<std::string> line = handler_command_line(launch, 42);
  EXPECT_EQ(line, (std::vector<std::string>{
                      "/opt/orvanta/crashpad_handler", "--database=/db", "--metrics-dir=/metrics",
                      "--url=https://u", "--annotation=k=v=w", "--annotation=product=orvanta",
                      "--no-rate-limit", "--client-fd=3", "--client-pid=42"}));
  auto options = parse(line);
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
  EXPECT_FALSE(parse({"h", "--client-fd=3", "--client-pid=7"}));
  EXPECT_FALSE(parse({"h", "--database=/db", "--client-pid=7"}));
  EXPECT_FALSE(parse({"h", "--database=/db", "--client-fd=3"}));
}

}  // namespace
}  // namespace orvanta::crash
