#include "cli/help.hpp"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <functional>
#include <string>

namespace orvanta::cli {
namespace {

// Everything a renderer writes to the stream it is given.
std::string capture(const std::function<void(std::FILE*)>& render) {
  char* buffer = nullptr;
  std::size_t size = 0;
  std::FILE* stream = open_memstream(&buffer, &size);
  render(stream);
  std::fclose(stream);
  std::string text(buffer, size);
  std::free(buffer);
  return text;
}

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

// "list (default)" has 14 bytes: two blanks follow it, not one.
const std::string pod_shows_page = R"(Manage podcast shows

USAGE
  orv pod shows <subcommand> [flags]

SUBCOMMANDS
  list (default)  List shows created via CLI
  create         Create a new show
  delete         Delete a show

GLOBAL FLAGS
  --format text|json  Output format (default: text)
  -h, --help     Show help for command

LEARN MORE
  orv pod shows <subcommand> --help
)";

// Every timeline row is marked default, and the page says so.
const std::string pod_timeline_page = R"(Manage episode timeline

USAGE
  orv pod timeline <subcommand> [flags]

SUBCOMMANDS
  get (default)  Get timeline for an episode
  set (default)  Set timeline on an episode
  delete (default)  Delete all timeline items for an episode

GLOBAL FLAGS
  --format text|json  Output format (default: text)
  -h, --help     Show help for command

LEARN MORE
  orv pod timeline <subcommand> --help
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

// "--volume-control <on|off>" has 25 bytes, past the flag column of 24.
const std::string rondo_permissions_page = R"(View or change Rondo permissions

View current permissions, or set queue-only mode and volume control.
Without flags, shows current permission settings.

USAGE
  orv rondo permissions [flags]

FLAGS
  --queue-only <on|off>   Set queue-only mode (participants can only add to queue)
  --volume-control <on|off>  Allow participants to control volume

GLOBAL FLAGS
  --format text|json  Output format (default: text)
  -h, --help     Show help for command

EXAMPLES
  $ orvanta_cli rondo permissions
  $ orvanta_cli rondo permissions --queue-only on
  $ orvanta_cli rondo permissions --volume-control off
)";

const std::string pod_shows_create_page = R"(Create a new show

Create a new podcast show on Podroom.

USAGE
  orv pod shows create --name <title>

FLAGS
  --name <title>          Show title (required)
  --description <text>    Show description
  --image-file <path>     Cover image (.jpg/.png, max 1 MB)
  --language <code>       Language code (default: en)

GLOBAL FLAGS
  --format text|json  Output format (default: text)
  -h, --help     Show help for command

EXAMPLES
  $ orvanta_cli pod shows create --name "My Podcast"
  $ orvanta_cli pod shows create --name "Tech Talk" --description "Weekly tech news" --language en
)";

// The long text ends in a newline of its own, so two empty lines stand
// between the schema and USAGE.
const std::string library_batch_page = R"(Run a batch of mixed library, playlist, and folder operations

Run a sequence of mixed library operations in a single CLI invocation,
amortizing process-startup and connection-handshake cost that makes
single-op calls expensive for agent workflows.

Manifest schema:
  {
    "stop_on_error": false,      // optional; --stop-on-error wins
    "ops": [
      {"op": "library_add",     "uris": ["orvanta:..."]},
      {"op": "library_remove",  "uris": ["orvanta:..."]},
      {"op": "library_contains","uris": ["orvanta:..."]},
      {"op": "playlist_create", "name": "...",
                                    "description": "...", "public": false,
                                    "image_file": "/path/to/cover.jpg"},
      {"op": "playlist_update", "playlist_uri": "orvanta:...",
                                    "name": "...", "description": "...",
                                    "public": true,
                                    "image_file": "/path/to/cover.jpg"},
      {"op": "playlist_add",    "playlist_uri": "orvanta:...",
                                    "track_uris": ["orvanta:..."], "position": 0},
      {"op": "playlist_remove", "playlist_uri": "orvanta:...",
                                    "positions": [0,1,5]},
      {"op": "folder_create",   "name": "...",
                                    "parent_folder_uri": "orvanta:..."},
      {"op": "folder_rename",   "folder_uri": "orvanta:...", "name": "..."},
      {"op": "folder_move",     "uris": ["orvanta:..."],
                                    "destination_folder_uri": "root"},
      {"op": "folder_remove",   "folder_uri": "orvanta:...",
                                    "keep_contents": false}
    ]
  }


USAGE
  orv library batch [--from-file <path>] [--stop-on-error] [--format json]

FLAGS
  --from-file <path>      Read JSON manifest from file (default: stdin)
  --stop-on-error         Abort the batch on the first failure

GLOBAL FLAGS
  --format text|json  Output format (default: text)
  -h, --help     Show help for command

EXAMPLES
  $ orvanta_cli library batch --from-file ops.json
  $ echo '{"ops":[{"op":"library_add","uris":["orvanta:track:abc"]}]}' | orvanta_cli library batch
  $ orvanta_cli library batch --from-file ops.json --stop-on-error --format json
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
  EXPECT_EQ(capture([](std::FILE* out) { print_unknown_command("orv", "nosuch", catalogue(), out); }),
            unknown_page);
  std::string page = capture([](std::FILE* out) { print_unknown_command("a%sb", "%n%s", catalogue(), out); });
  EXPECT_EQ(page.substr(0, page.find('\n')), "unknown command \"%n%s\" for \"a%sb\"");
}

// Every page above is reached through the selection, so each renderer is
// checked byte for byte here.
TEST(HelpSelection, PicksThePageFromTopicAndSubtopic) {
  const struct {
    std::string_view topic;
    std::string_view subtopic;
    const std::string& page;
  } cases[] = {
      {"", "", top_page},
      // A group alone, or with a word that names none of its children.
      {"pod", "", pod_page},
      {"pod", "nosuch", pod_page},
      {"pod shows", "", pod_shows_page},
      {"pod timeline", "", pod_timeline_page},
      // "pod" and "shows" join into the third-level group before the row
      // named shows is looked at.
      {"pod", "shows", pod_shows_page},
      // A child of a group, at the second and the third level.
      {"rondo", "permissions", rondo_permissions_page},
      {"library", "batch", library_batch_page},
      {"pod shows", "create", pod_shows_create_page},
      // A top-level command ignores the subtopic.
      {"play", "", play_page},
      {"play", "orvanta:track:abc", play_page},
      {"pause", "", pause_page},
      // Help for a word that is no command is the top-level page.
      {"nosuch", "", top_page},
      {"pod shows create", "", top_page},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(capture([&](std::FILE* out) { print_help("orv", c.topic, c.subtopic, catalogue(), out); }), c.page)
        << '"' << c.topic << "\" \"" << c.subtopic << '"';
  }
}

}  // namespace
}  // namespace orvanta::cli
