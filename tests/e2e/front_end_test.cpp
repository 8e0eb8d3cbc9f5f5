// The real binary, run as a process, with no desktop client on the machine:
// what reaches stdout and stderr, and the exit status.
#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "cli/help.hpp"
#include "tests/support/process.hpp"

namespace orvanta::testing {
namespace {

// The pages themselves are pinned by the help tests; here it matters on
// which stream they land, next to what, and with which status.
template <class Print>
std::string rendered(Print print) {
  std::FILE* file = std::tmpfile();
  print(file);
  std::fflush(file);
  std::rewind(file);
  std::string text;
  for (int c = std::fgetc(file); c != EOF; c = std::fgetc(file)) text.push_back(static_cast<char>(c));
  std::fclose(file);
  return text;
}

const std::string kTopPage =
    rendered([](std::FILE* f) { cli::print_usage("orvanta_cli", cli::HelpCatalogue::instance(), f); });

std::string unknown_page(const std::string& word) {
  return rendered(
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

void expect_run(const std::vector<std::string>& args, const std::string& out, const std::string& err, int status) {
  ProcessResult r = run_cli(args);
  std::string shown;
  for (const auto& a : args) shown += " [" + a + "]";
  EXPECT_EQ(r.out, out) << shown;
  EXPECT_EQ(r.err, err) << shown;
  EXPECT_EQ(r.status, status) << shown;
}

TEST(FrontEnd, UsagePageOnStdout) {
  // No arguments is a usage failure: the page, but status 1.
  expect_run({}, kTopPage, "", 1);
  // Asked for, the same page is a success.
  expect_run({"-h"}, kTopPage, "", 0);
  expect_run({"--help"}, kTopPage, "", 0);
  // An empty word is a word: it names no command, so the usage page.
  expect_run({""}, kTopPage, "", 1);
  // Help on a word that names nothing is the top page, and still a success.
  expect_run({"nosuch", "--help"}, kTopPage, "", 0);
}

TEST(FrontEnd, UnknownCommandPageOnStderr) {
  expect_run({"nosuch"}, "", unknown_page("nosuch"), 1);
  // There is no help command.
  expect_run({"help"}, "", unknown_page("help"), 1);
  // A global flag before the command word is taken as the command word.
  expect_run({"--format", "json"}, "", unknown_page("--format"), 1);
  expect_run({"--format", "json", "status"}, "", unknown_page("--format"), 1);
}

// The messages themselves are pinned by the recognizer's tests.
TEST(FrontEnd, UsageErrorsShowTheMessageThenThePage) {
  expect_run({"search", "q", "--limit", "0"}, kTopPage, "Error: --limit requires a positive integer, got '0'\n\n", 1);
  expect_run({"navigate", "orvanta:a", "--bogus"}, kTopPage, "Error: unknown navigate option '--bogus'\n\n", 1);
  // A search whose query looks like a flag is a bare usage failure.
  expect_run({"search", "--limit"}, kTopPage, "", 1);
}

TEST(FrontEnd, HelpWinsOverEverythingButVersion) {
  ProcessResult help = run_cli({"search", "--limit", "x", "--help"});
  EXPECT_EQ(help.status, 0);
  EXPECT_EQ(help.err, "");
  EXPECT_EQ(help.out.substr(0, help.out.find('\n')), "Search for tracks, artists, albums");

  ProcessResult group = run_cli({"history", "nosuch", "--help"});
  EXPECT_EQ(group.status, 0);
  EXPECT_EQ(group.out.substr(0, group.out.find('\n')), "View your listening history");

  expect_run({"play", "--help", "--version"}, kVersionText, "", 0);
}

TEST(FrontEnd, VersionInBothFormats) {
  expect_run({"nosuch", "--version"}, kVersionText, "", 0);
  expect_run({"version", "--format", "json"}, kVersionJson, "", 0);
  expect_run({"version", "--format", "JSON"}, kVersionText, "", 0);
}

TEST(FrontEnd, WithoutDesktopClientCommandsSayItIsNotRunning) {
  const std::string line = "Orvanta desktop client is not running\n";
  expect_run({"pause"}, "", line, 1);
  // `play` with a bad flag resumes, and resuming needs the client.
  expect_run({"play", "--nonsense"}, "", line, 1);
  // Commands that do not need the client still work.
  expect_run({"open"}, "", "", 0);
  expect_run({"navigate", "orvanta:album:xyz", "--format", "json"}, "", "", 0);
}

}  // namespace
}  // namespace orvanta::testing
