#include "cli/catalogue.hpp"

#include "cli/catalogue_examples.hpp"
#include "cli/catalogue_flags.hpp"
#include "cli/catalogue_long_texts.hpp"

namespace orvanta::cli {

// One row per command in page order: name, parent, id, group, summary,
// usage, then long text, flags, examples and the default mark.
// clang-format off
constexpr std::array<CommandRow, command_row_count> command_rows{{
    {"play", "", CommandId::Play, group_playback,
     "Play a Orvanta URI or resume playback",
     "play [<uri>] [flags]",
     detail::play_text, detail::play_flags, detail::play_examples, false},
    {"pause", "", CommandId::Pause, group_playback,
     "Pause playback",
     "pause",
     {}, {}, detail::pause_examples, false},
    {"resume", "", CommandId::Resume, group_playback,
     "Resume playback",
     "resume",
     {}, {}, detail::resume_examples, false},
    {"next", "", CommandId::Next, group_playback,
     "Skip to next track",
     "next",
     {}, {}, detail::next_examples, false},
    {"previous", "", CommandId::Previous, group_playback,
     "Skip to previous track",
     "previous",
     detail::previous_text, {}, detail::previous_examples, false},
    {"seek", "", CommandId::Seek, group_playback,
     "Seek to position in current track",
     "seek <ms> [flags]",
     detail::seek_text, detail::seek_flags, detail::seek_examples, false},
    {"shuffle", "", CommandId::Shuffle, group_playback,
     "Set shuffle mode",
     "shuffle <on|off>",
     detail::shuffle_text, {}, detail::shuffle_examples, false},
    {"repeat", "", CommandId::Repeat, group_playback,
     "Set repeat mode",
     "repeat [off|context|track]",
     detail::repeat_text, {}, detail::repeat_examples, false},
    {"speed", "", CommandId::Speed, group_playback,
     "Set playback speed",
     "speed <rate>",
     detail::speed_text, {}, detail::speed_examples, false},
    {"volume", "", CommandId::Volume, group_playback,
     "Set playback volume",
     "volume <level>",
     detail::volume_text, {}, detail::volume_examples, false},
    {"now-playing", "", CommandId::NowPlaying, group_playback,
     "Show currently playing track info",
     "now-playing [flags]",
     {}, {}, detail::now_playing_examples, false},
    {"search", "", CommandId::Search, group_content,
     "Search for tracks, artists, albums",
     "search <query> [flags]",
     detail::search_text, detail::search_flags, detail::search_examples, false},
    {"lookup", "", CommandId::Lookup, group_content,
     "Resolve URIs to metadata",
     "lookup <uri...> [flags]",
     detail::lookup_text, detail::lookup_flags, detail::lookup_examples, false},
    {"taste", "", CommandId::Taste, group_content,
     "Your music taste profile",
     "taste [flags]",
     {}, {}, detail::taste_examples, false},
    {"top", "history", CommandId::HistoryTop, group_content,
     "Most played entities",
     "history top [flags]",
     detail::history_top_text, detail::history_top_flags, detail::history_top_examples, false},
    {"recent", "history", CommandId::HistoryRecent, group_content,
     "Recently played entities",
     "history recent [flags]",
     detail::history_recent_text, detail::history_recent_flags, detail::history_recent_examples, false},
    {"list", "devices", CommandId::DevicesList, group_playback,
     "List connected devices",
     "devices list [flags]",
     {}, {}, detail::devices_list_examples, true},
    {"transfer", "devices", CommandId::DevicesTransfer, group_playback,
     "Transfer playback to a device",
     "devices transfer <device> [flags]",
     detail::devices_transfer_text, {}, detail::devices_transfer_examples, false},
    {"volume", "devices", CommandId::DevicesVolume, group_playback,
     "Set device volume",
     "devices volume <level> [device] [flags]",
     detail::devices_volume_text, {}, detail::devices_volume_examples, false},
    {"info", "devices", CommandId::DevicesInfo, group_playback,
     "Show detailed device info",
     "devices info <device> [flags]",
     {}, {}, detail::devices_info_examples, false},
    {"list", "library", CommandId::LibraryList, group_library,
     "List saved items",
     "library list [flags]",
     detail::library_list_text, detail::library_list_flags, detail::library_list_examples, true},
    {"contains", "library", CommandId::LibraryContains, group_library,
     "Check if items are in your library",
     "library contains <uri...> [flags]",
     {}, detail::library_contains_flags, detail::library_contains_examples, false},
    {"add", "library", CommandId::LibraryAdd, group_library,
     "Add items to your library",
     "library add <uri...>",
     {}, {}, detail::library_add_examples, false},
    {"remove", "library", CommandId::LibraryRemove, group_library,
     "Remove items from your library",
     "library remove <uri...>",
     {}, {}, detail::library_remove_examples, false},
    {"batch", "library", CommandId::LibraryBatch, group_library,
     "Run a batch of mixed library, playlist, and folder operations",
     "library batch [--from-file <path>] [--stop-on-error] [--format json]",
     detail::library_batch_text, detail::library_batch_flags, detail::library_batch_examples, false},
    {"get", "playlist", CommandId::PlaylistGet, group_library,
     "Get playlist details",
     "playlist get <uri> [flags]",
     detail::playlist_get_text, detail::playlist_get_flags, detail::playlist_get_examples, false},
    {"create", "playlist", CommandId::PlaylistCreate, group_library,
     "Create a new playlist",
     "playlist create <name> [flags]",
     detail::playlist_create_text, detail::playlist_create_flags, detail::playlist_create_examples, false},
    {"update", "playlist", CommandId::PlaylistUpdate, group_library,
     "Update playlist details",
     "playlist update <uri> [flags]",
     detail::playlist_update_text, detail::playlist_update_flags, detail::playlist_update_examples, false},
    {"add", "playlist", CommandId::PlaylistAdd, group_library,
     "Add tracks to a playlist",
     "playlist add <playlist_uri> <track_uri...> [flags]",
     detail::playlist_add_text, detail::playlist_add_flags, detail::playlist_add_examples, false},
    {"remove", "playlist", CommandId::PlaylistRemove, group_library,
     "Remove tracks from a playlist",
     "playlist remove <playlist_uri> [flags]",
     detail::playlist_remove_text, detail::playlist_remove_flags, detail::playlist_remove_examples, false},
    {"list", "folder", CommandId::FolderList, group_library,
     "List playlist folder hierarchy",
     "folder list [flags]",
     detail::folder_list_text, detail::folder_list_flags, detail::folder_list_examples, true},
    {"create", "folder", CommandId::FolderCreate, group_library,
     "Create a new folder",
     "folder create <name> [flags]",
     detail::folder_create_text, detail::folder_create_flags, detail::folder_create_examples, false},
    {"rename", "folder", CommandId::FolderRename, group_library,
     "Rename a folder",
     "folder rename <folder_uri> <new_name>",
     detail::folder_rename_text, {}, detail::folder_rename_examples, false},
    {"move", "folder", CommandId::FolderMove, group_library,
     "Move items to a folder",
     "folder move <uri...> --to <folder_uri|root>",
     detail::folder_move_text, detail::folder_move_flags, detail::folder_move_examples, false},
    {"remove", "folder", CommandId::FolderRemove, group_library,
     "Remove a folder",
     "folder remove <folder_uri> [flags]",
     detail::folder_remove_text, detail::folder_remove_flags, detail::folder_remove_examples, false},
    {"list", "queue", CommandId::QueueList, group_playback,
     "View the playback queue",
     "queue [list] [flags]",
     detail::queue_list_text, {}, detail::queue_list_examples, true},
    {"add", "queue", CommandId::QueueAdd, group_playback,
     "Add a track to the queue",
     "queue add <uri>",
     detail::queue_add_text, {}, detail::queue_add_examples, false},
    {"remove", "queue", CommandId::QueueRemove, group_playback,
     "Remove a track from the queue",
     "queue remove <position>",
     detail::queue_remove_text, {}, detail::queue_remove_examples, false},
    {"move", "queue", CommandId::QueueMove, group_playback,
     "Reorder a track in the queue",
     "queue move <from> <to>",
     detail::queue_move_text, {}, detail::queue_move_examples, false},
    {"me", "", CommandId::Me, group_system,
     "Show current user info",
     "me",
     detail::me_text, {}, detail::me_examples, false},
    {"status", "", CommandId::Status, group_system,
     "Check connection and login state",
     "status [flags]",
     {}, {}, detail::status_examples, false},
    {"open", "", CommandId::Open, group_system,
     "Launch the Orvanta app",
     "open [args...]",
     detail::open_text, {}, detail::open_examples, false},
    {"navigate", "", CommandId::Navigate, group_system,
     "Navigate to a Orvanta URI",
     "navigate <uri> [flags]",
     detail::navigate_text, detail::navigate_flags, detail::navigate_examples, false},
    {"version", "", CommandId::Version, group_system,
     "Print versions of the CLI and bundled native helpers",
     "version [--format json]",
     detail::version_text, {}, detail::version_examples, false},
    {"upload", "pod", CommandId::PodUpload, group_content,
     "Upload an audio or video file",
     "pod upload <file> --name <title> --description <text>",
     detail::pod_upload_text, detail::pod_upload_flags, detail::pod_upload_examples, true},
    {"shows", "pod", CommandId::PodShows, group_content,
     "Manage podcast shows",
     "pod shows [<subcommand>]",
     detail::pod_shows_text, {}, detail::pod_shows_examples, false},
    {"episodes", "pod", CommandId::PodEpisodes, group_content,
     "Manage podcast episodes",
     "pod episodes [<subcommand>] [--show-id <uri|id>]",
     detail::pod_episodes_text, detail::pod_episodes_flags, detail::pod_episodes_examples, false},
    {"timeline", "pod", CommandId::PodTimelineGet, group_content,
     "Manage episode timeline",
     "pod timeline [<subcommand>]",
     detail::pod_timeline_text, {}, detail::pod_timeline_examples, false},
    {"list", "pod shows", CommandId::PodShows, group_content,
     "List shows created via CLI",
     "pod shows",
     detail::pod_shows_list_text, {}, detail::pod_shows_list_examples, true},
    {"create", "pod shows", CommandId::PodShowsCreate, group_content,
     "Create a new show",
     "pod shows create --name <title>",
     detail::pod_shows_create_text, detail::pod_shows_create_flags, detail::pod_shows_create_examples, false},
    {"delete", "pod shows", CommandId::PodShowsDelete, group_content,
     "Delete a show",
     "pod shows delete <id>",
     detail::pod_shows_delete_text, {}, detail::pod_shows_delete_examples, false},
    {"list", "pod episodes", CommandId::PodEpisodes, group_content,
     "List episodes created via CLI",
     "pod episodes [--show-id <uri|id>]",
     detail::pod_episodes_list_text, detail::pod_episodes_list_flags, detail::pod_episodes_list_examples, true},
    {"create", "pod episodes", CommandId::PodEpisodesCreate, group_content,
     "Create an episode",
     "pod episodes create --name <title> --file <path> --description <text>",
     detail::pod_episodes_create_text, detail::pod_episodes_create_flags, detail::pod_episodes_create_examples, false},
    {"status", "pod episodes", CommandId::PodEpisodesStatus, group_content,
     "Check episode readiness",
     "pod episodes status <id>",
     detail::pod_episodes_status_text, {}, detail::pod_episodes_status_examples, false},
    {"delete", "pod episodes", CommandId::PodEpisodesDelete, group_content,
     "Delete an episode",
     "pod episodes delete <id>",
     detail::pod_episodes_delete_text, {}, detail::pod_episodes_delete_examples, false},
    {"get", "pod timeline", CommandId::PodTimelineGet, group_content,
     "Get timeline for an episode",
     "pod timeline get <episode_id>",
     detail::pod_timeline_get_text, detail::pod_timeline_get_flags, detail::pod_timeline_get_examples, true},
    {"set", "pod timeline", CommandId::PodTimelineSet, group_content,
     "Set timeline on an episode",
     "pod timeline set --episode-id <id> --from-file <path>",
     detail::pod_timeline_set_text, detail::pod_timeline_set_flags, detail::pod_timeline_set_examples, true},
    {"delete", "pod timeline", CommandId::PodTimelineDelete, group_content,
     "Delete all timeline items for an episode",
     "pod timeline delete <episode_id>",
     detail::pod_timeline_delete_text, detail::pod_timeline_delete_flags, detail::pod_timeline_delete_examples, true},
    {"status", "rondo", CommandId::RondoStatus, group_playback,
     "Show current Rondo session",
     "rondo status [flags]",
     detail::rondo_status_text, {}, detail::rondo_status_examples, true},
    {"create", "rondo", CommandId::RondoCreate, group_playback,
     "Start a new Rondo",
     "rondo create",
     detail::rondo_create_text, {}, detail::rondo_create_examples, false},
    {"leave", "rondo", CommandId::RondoLeave, group_playback,
     "Leave the current Rondo",
     "rondo leave",
     {}, {}, detail::rondo_leave_examples, false},
    {"end", "rondo", CommandId::RondoEnd, group_playback,
     "End the Rondo (host only)",
     "rondo end",
     detail::rondo_end_text, {}, detail::rondo_end_examples, false},
    {"members", "rondo", CommandId::RondoMembers, group_playback,
     "List Rondo members",
     "rondo members [flags]",
     {}, {}, detail::rondo_members_examples, false},
    {"kick", "rondo", CommandId::RondoKick, group_playback,
     "Remove a member from the Rondo",
     "rondo kick <username>",
     detail::rondo_kick_text, {}, detail::rondo_kick_examples, false},
    {"permissions", "rondo", CommandId::RondoPermissions, group_playback,
     "View or change Rondo permissions",
     "rondo permissions [flags]",
     detail::rondo_permissions_text, detail::rondo_permissions_flags, detail::rondo_permissions_examples, false},
}};

constexpr std::array<ParentRow, parent_row_count> parent_rows{{
    {"history", "View your listening history"},
    {"devices", "Manage connected devices"},
    {"library", "Manage your saved library"},
    {"playlist", "Manage playlists"},
    {"folder", "Manage playlist folders"},
    {"queue", "Manage the playback queue"},
    {"pod", "Podroom (upload, shows, episodes, timeline)"},
    {"pod shows", "Manage podcast shows"},
    {"pod episodes", "Manage podcast episodes"},
    {"pod timeline", "Manage episode timeline"},
    {"rondo", "Manage Rondo sessions"},
}};
// clang-format on

// A broken table fails the build here rather than a help page at run time.
namespace {

// std::array pads a short initializer list with empty rows; these catch that.
constexpr bool every_row_is_filled() {
  for (const CommandRow& row : command_rows) {
    if (row.name.empty() || row.summary.empty() || row.usage.empty()) return false;
    if (row.group >= group_count || row.id == CommandId::None) return false;
  }
  for (const ParentRow& parent : parent_rows) {
    if (parent.name.empty() || parent.summary.empty()) return false;
  }
  return true;
}

constexpr bool is_parent_word(std::string_view word) {
  for (const ParentRow& parent : parent_rows) {
    if (parent.name == word) return true;
  }
  return false;
}

// The group that a row spells with its parent ("pod" + "shows"), or an
// empty view; such a row stands for the group on its parent's page.
constexpr std::string_view spelled_group(const CommandRow& row) {
  if (row.parent.empty()) return {};
  for (const ParentRow& parent : parent_rows) {
    std::string_view full = parent.name;
    if (full.size() == row.parent.size() + 1 + row.name.size() && full.starts_with(row.parent) &&
        full[row.parent.size()] == ' ' && full.ends_with(row.name)) {
      return full;
    }
  }
  return {};
}

constexpr const CommandRow* first_child(std::string_view parent) {
  for (const CommandRow& row : command_rows) {
    if (row.parent == parent) return &row;
  }
  return nullptr;
}

constexpr bool words_are_unique() {
  for (std::size_t i = 0; i < command_rows.size(); ++i) {
    for (std::size_t j = i + 1; j < command_rows.size(); ++j) {
      if (command_rows[i].parent == command_rows[j].parent &&
          command_rows[i].name == command_rows[j].name) {
        return false;
      }
    }
  }
  for (std::size_t i = 0; i < parent_rows.size(); ++i) {
    for (std::size_t j = i + 1; j < parent_rows.size(); ++j) {
      if (parent_rows[i].name == parent_rows[j].name) return false;
    }
  }
  return true;
}

constexpr bool parents_and_children_match() {
  for (const CommandRow& row : command_rows) {
    if (!row.parent.empty() && !is_parent_word(row.parent)) return false;
  }
  for (const ParentRow& parent : parent_rows) {
    if (first_child(parent.name) == nullptr) return false;
  }
  return true;
}

// Every command has its own id, except that a row standing for a group
// ("pod shows") runs what the group's first child runs.
constexpr bool ids_are_unique() {
  for (std::size_t i = 0; i < command_rows.size(); ++i) {
    const CommandRow& row = command_rows[i];
    std::string_view group = spelled_group(row);
    if (!group.empty()) {
      if (first_child(group)->id != row.id) return false;
      continue;
    }
    for (std::size_t j = i + 1; j < command_rows.size(); ++j) {
      if (spelled_group(command_rows[j]).empty() && command_rows[j].id == row.id) return false;
    }
  }
  return true;
}

static_assert(command_rows.size() == 65);
static_assert(parent_rows.size() == 11);
static_assert(every_row_is_filled(), "a row is missing or incomplete");
static_assert(words_are_unique(), "two rows share their words");
static_assert(parents_and_children_match(), "a parent word has no group row, or a group no child");
static_assert(ids_are_unique(), "two commands share a CommandId");

}  // namespace

}  // namespace orvanta::cli
