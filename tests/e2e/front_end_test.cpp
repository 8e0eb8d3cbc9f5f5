// The real binary, run as a process, with no desktop client on the machine:
// what reaches stdout and stderr, and the exit status.
#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <vector>

#include "cli/help.hpp"
#include "tests/support/command_cases.hpp"

namespace orvanta::testing {
namespace {

// The pages themselves are pinned by the help tests; here it matters on
// which stream they land, next to what, and with which status.
const std::string kTopPage =
    printed([](std::FILE* f) { cli::print_usage("orvanta_cli", cli::HelpCatalogue::instance(), f); });

std::string unknown_page(const std::string& word) {
  return printed(
      [&](std::FILE* f) { cli::print_unknown_command("orvanta_cli", word, cli::HelpCatalogue::instance(), f); });
}

const char* const kVersionText =
    "cli: 1.2.93.667\n"
    "tetherkit: v0.10.451\n"
    "tetherkit-hash: 1ab97e21337b\n"
    "podroom: 0.1.3\n";

const char* const kVersionJson =
    R"({"cli":"1.2.93.667","tetherkit":"v0.10.451","tetherkit_hash":"1ab97e21337b","podroom":"0.1.3"})"
    "\n";

TEST(FrontEnd, PagesAndStatuses) {
  const std::string not_running = "Orvanta desktop client is not running\n";
  expect_command_cases({
      // No arguments is a usage failure: the page, but status 1.
      {{}, kTopPage, "", 1},
      // Asked for, the same page is a success.
      {{"-h"}, kTopPage, "", 0},
      {{"--help"}, kTopPage, "", 0},
      // Help on a word that names nothing is the top page, and still a success.
      {{"nosuch", "--help"}, kTopPage, "", 0},
      {{"nosuch"}, "", unknown_page("nosuch"), 1},
      // There is no help command.
      {{"help"}, "", unknown_page("help"), 1},
      // A global flag before the command word is taken as the command word.
      {{"--format", "json", "status"}, "", unknown_page("--format"), 1},
      // A usage error: the message, then the page; the messages themselves
      // are pinned by the recognizer's tests.
      {{"search", "q", "--limit", "0"}, kTopPage, "Error: --limit requires a positive integer, got '0'\n\n", 1},
      {{"navigate", "orvanta:a", "--bogus"}, kTopPage, "Error: unknown navigate option '--bogus'\n\n", 1},
      // A search whose query looks like a flag is a bare usage failure.
      {{"search", "--limit"}, kTopPage, "", 1},
      {{"play", "--help", "--version"}, kVersionText, "", 0},
      {{"nosuch", "--version"}, kVersionText, "", 0},
      {{"version", "--format", "json"}, kVersionJson, "", 0},
      {{"version", "--format", "JSON"}, kVersionText, "", 0},
      // Without a desktop client, commands say it is not running; `play`
      // with a bad flag resumes, and resuming needs the client.
      {{"pause"}, "", not_running, 1},
      {{"play", "--nonsense"}, "", not_running, 1},
      // Commands that do not need the client still work.
      {{"open"}, "", "", 0},
      {{"navigate", "orvanta:album:xyz", "--format", "json"}, "", "", 0},
  }, [](const std::vector<std::string>& args) { return run_cli(args); });
}

// Help wins over everything but --version.
TEST(FrontEnd, HelpWinsOverBadFlagsAndWords) {
  ProcessResult help = run_cli({"search", "--limit", "x", "--help"});
  EXPECT_EQ(help.status, 0);
  EXPECT_EQ(help.err, "");
  EXPECT_EQ(help.out.substr(0, help.out.find('\n')), "Search for tracks, artists, albums");

  ProcessResult group = run_cli({"history", "nosuch", "--help"});
  EXPECT_EQ(group.status, 0);
  EXPECT_EQ(group.out.substr(0, group.out.find('\n')), "View your listening history");
}

}  // namespace
}  // namespace orvanta::testing
