#include "cli/help.hpp"

#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "tests/support/process.hpp"

namespace orvanta::cli {
namespace {

const HelpCatalogue& catalogue() { return HelpCatalogue::instance(); }

// The pages name the program "orv" so that a fixed "orvanta_cli" in the
// wrong place shows; the examples keep their fixed name.

const std::string top_page = R"(Control Orvanta from the command line.

USAGE
  orv <command> [flags]

PLAYBACK
  play           Play a Orvanta URI or resume playback
  pause          Pause playback
  resume         Resume playback
  next           Skip to next track
  previous       Skip to previous track
  seek           Seek to position in current track
  shuffle        Set shuffle mode
  repeat         Set repeat mode
  speed          Set playback speed
  volume         Set playback volume
  now-playing    Show currently playing track info
  devices        Manage connected devices
  queue          Manage the playback queue
  rondo          Manage Rondo sessions

CONTENT
  search         Search for tracks, artists, albums
  lookup         Resolve URIs to metadata
  taste          Your music taste profile
  history        View your listening history
  pod            Podroom (upload, shows, episodes, timeline)

LIBRARY
  library        Manage your saved library
  playlist       Manage playlists
  folder         Manage playlist folders

SYSTEM
  me             Show current user info
  status         Check connection and login state
  open           Launch the Orvanta app
  navigate       Navigate to a Orvanta URI
  version        Print versions of the CLI and bundled native helpers

GLOBAL FLAGS
  --format text|json  Output format (default: text)
  -h, --help     Show help for command

LEARN MORE
  orv <command> --help
)";

const std::string pod_page = R"(Podroom (upload, shows, episodes, timeline)

USAGE
  orv pod <subcommand> [flags]

SUBCOMMANDS
  upload (default)  Upload an audio or video file
  shows          Manage podcast shows
  episodes       Manage podcast episodes
  timeline       Manage episode timeline

GLOBAL FLAGS
  --format text|json  Output format (default: text)
  -h, --help     Show help for command

LEARN MORE
  orv pod <subcommand> --help
)";

const std::string play_page = R"(Play a Orvanta URI or resume playback

When called without a URI, resumes the current playback.
When called with a Orvanta URI, plays that specific content.
The URI must start with 'orvanta:'.
Use --device to play on a specific device; playback is transferred
before starting. Prefer 'devices transfer' if you only want to move
playback without picking new content.

USAGE
  orv play [<uri>] [flags]

FLAGS
  --device <name|id>      Play on a specific device (name or id from 'devices list').
                      Transfers playback before starting.

GLOBAL FLAGS
  --format text|json  Output format (default: text)
  -h, --help     Show help for command

EXAMPLES
  $ orvanta_cli play
  $ orvanta_cli play orvanta:track:4iV5W9uYEdYUVa79Axb7Rh
  $ orvanta_cli play orvanta:track:4iV5W9uYEdYUVa79Axb7Rh --device "Kitchen Speaker"
  $ orvanta_cli play --device "Kitchen Speaker"
)";

const std::string pause_page = R"(Pause playback

USAGE
  orv pause

GLOBAL FLAGS
  --format text|json  Output format (default: text)
  -h, --help     Show help for command

EXAMPLES
  $ orvanta_cli pause
)";

// Lines break before every tenth word, after the separator, so the first
// two lines end in ", ".
const std::string unknown_page =
    "unknown command \"nosuch\" for \"orv\"\n"
    "\n"
    "USAGE\n"
    "  orv <command> [flags]\n"
    "\n"
    "Available commands:\n"
    "  play, pause, resume, next, previous, seek, shuffle, repeat, speed, volume, \n"
    "  now-playing, search, lookup, taste, history, devices, library, playlist, folder, queue, \n"
    "  me, status, open, navigate, version, pod, pod shows, pod episodes, pod timeline, rondo\n"
    "\n"
    "Run 'orv --help' for usage.\n";

// The word and the program name come from the user and are printed as text,
// never read as a format.
TEST(HelpPages, UnknownCommandPage) {
  EXPECT_EQ(testing::printed([](std::FILE* out) { print_unknown_command("orv", "nosuch", catalogue(), out); }),
            unknown_page);
  std::string page = testing::printed([](std::FILE* out) { print_unknown_command("a%sb", "%n%s", catalogue(), out); });
  EXPECT_EQ(page.substr(0, page.find('\n')), "unknown command \"%n%s\" for \"a%sb\"");
}

// Each renderer is checked byte for byte through the selection; a page of
// one line stands for the first line of the page it names.
TEST(HelpSelection, PicksThePageFromTopicAndSubtopic) {
  const struct {
    std::string_view topic;
    std::string_view subtopic;
    std::string page;
  } cases[] = {
      {"", "", top_page},
      // A group alone, or with a word that names none of its children.
      {"pod", "", pod_page},
      {"pod", "nosuch", pod_page},
      {"history", "nosuch", "View your listening history\n"},
      {"pod shows", "", "Manage podcast shows\n"},
      // "pod" and "shows" join into the third-level group before the row
      // named shows is looked at.
      {"pod", "shows", "Manage podcast shows\n"},
      // A child of a group, at the second and the third level.
      {"rondo", "permissions", "View or change Rondo permissions\n"},
      {"pod shows", "create", "Create a new show\n"},
      // A top-level command ignores the subtopic.
      {"play", "", play_page},
      {"play", "orvanta:track:abc", play_page},
      {"pause", "", pause_page},
      // Help for a word that is no top-level command is the top-level page.
      {"nosuch", "", top_page},
      {"list", "", top_page},
      {"Play", "", top_page},
      {"pod shows create", "", top_page},
  };
  for (const auto& c : cases) {
    const std::string page =
        testing::printed([&](std::FILE* out) { print_help("orv", c.topic, c.subtopic, catalogue(), out); });
    const bool whole = c.page.size() > 1 && c.page.find('\n') + 1 < c.page.size();
    EXPECT_EQ(whole ? page : page.substr(0, page.find('\n') + 1), c.page)
        << '"' << c.topic << "\" \"" << c.subtopic << '"';
  }
}

// A flag longer than its column pushes the summary right, two blanks on.
TEST(HelpPages, FlagLongerThanItsColumn) {
  const std::string page =
      testing::printed([](std::FILE* out) { print_help("orv", "rondo", "permissions", catalogue(), out); });
  EXPECT_NE(page.find("\nFLAGS\n  --queue-only <on|off>   Set queue-only mode (participants can only add to queue)\n"
                      "  --volume-control <on|off>  Allow participants to control volume\n\n"),
            std::string::npos);
}

// A long text that ends in a newline of its own leaves two empty lines
// before USAGE.
TEST(HelpPages, LongTextEndingInANewline) {
  const std::string page = testing::printed([](std::FILE* out) { print_help("orv", "library", "batch", catalogue(), out); });
  EXPECT_EQ(page.substr(0, page.find('\n') + 1), "Run a batch of mixed library, playlist, and folder operations\n");
  EXPECT_NE(page.find("    ]\n  }\n\n\nUSAGE\n  orv library batch [--from-file <path>] [--stop-on-error] "
                      "[--format json]\n\nFLAGS\n"),
            std::string::npos);
}

}  // namespace
}  // namespace orvanta::cli
