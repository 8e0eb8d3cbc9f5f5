#pragma once

// The long texts of the command pages, one per command that has one. Only
// catalogue_texts.cpp includes this file; the texts are printed as they stand,
// so a trailing newline here is a blank line on the page.

#include <string_view>

namespace orvanta::cli::detail {

// clang-format off
inline constexpr std::string_view play_text =
    "When called without a URI, resumes the current playback.\n"
    "When called with a Orvanta URI, plays that specific content.\n"
    "The URI must start with 'orvanta:'.\n"
    "Use --device to play on a specific device; playback is transferred\n"
    "before starting. Prefer 'devices transfer' if you only want to move\n"
    "playback without picking new content.";
inline constexpr std::string_view previous_text = "Aliases: prev";
inline constexpr std::string_view seek_text =
    "Seek to an absolute position in milliseconds, or use --relative\n"
    "to seek forward or backward from the current position.\n"
    "Negative values are only valid with --relative.";
inline constexpr std::string_view shuffle_text = "Enable or disable shuffle mode.";
inline constexpr std::string_view repeat_text =
    "When called without an argument, cycles through modes.\n"
    "Modes: off (no repeat), context (repeat album/playlist), track (repeat one).";
inline constexpr std::string_view speed_text =
    "Set the playback speed. Rate must be between 0.0 and 2.0.";
inline constexpr std::string_view volume_text =
    "Set the playback volume. Level must be between 0.0 and 1.0.";
inline constexpr std::string_view search_text = "Search the Orvanta catalog.";
inline constexpr std::string_view lookup_text =
    "Resolve one or more Orvanta URIs to their metadata.\n"
    "Use --fields to request additional metadata fields.";
inline constexpr std::string_view history_top_text =
    "Show your most played tracks, artists, or albums.";
inline constexpr std::string_view history_recent_text = "Show your recently played tracks.";
inline constexpr std::string_view devices_transfer_text = "Transfer playback to the named device.";
inline constexpr std::string_view devices_volume_text =
    "Set volume for a specific device. Level must be between 0.0 and 1.0.\n"
    "If device name is omitted, sets volume on the active device.";
inline constexpr std::string_view library_list_text = "List items in your library.";
inline constexpr std::string_view library_batch_text =
    "Run a sequence of mixed library operations in a single CLI invocation,\n"
    "amortizing process-startup and connection-handshake cost that makes\n"
    "single-op calls expensive for agent workflows.\n"
    "\n"
    R"(Manifest schema:
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
)";
inline constexpr std::string_view playlist_get_text = "Fetch playlist metadata and tracks.";
inline constexpr std::string_view playlist_create_text =
    "Create a new playlist with the given name.";
inline constexpr std::string_view playlist_update_text =
    "Update a playlist's name, description, or visibility.";
inline constexpr std::string_view playlist_add_text = "Add one or more tracks to a playlist.";
inline constexpr std::string_view playlist_remove_text =
    "Remove tracks at specified positions from a playlist.";
inline constexpr std::string_view folder_list_text =
    "List playlist folders and playlists. Use --recursive --format json to expose the full hierarchy with parent_uri and depth.";
inline constexpr std::string_view folder_create_text = "Create a new playlist folder.";
inline constexpr std::string_view folder_rename_text = "Rename an existing playlist folder.";
inline constexpr std::string_view folder_move_text =
    "Move one or more playlists or folders to a destination folder.\n"
    "Use 'root' as the destination to move items to the top level.";
inline constexpr std::string_view folder_remove_text =
    "Remove a playlist folder. By default, contents are also removed.\n"
    "Use --keep-contents to move contents to the parent folder.";
inline constexpr std::string_view queue_list_text =
    "Show the currently playing track and upcoming tracks in the queue.";
inline constexpr std::string_view queue_add_text = "Add a track to the end of the playback queue.";
inline constexpr std::string_view queue_remove_text =
    "Remove a track at the given 0-based position from the upcoming queue.";
inline constexpr std::string_view queue_move_text =
    "Move a track from one 0-based position to another in the queue.";
inline constexpr std::string_view me_text = "Print the current user's profile as JSON.";
inline constexpr std::string_view open_text =
    "Launch or activate the Orvanta desktop app.\n"
    "Pass a Orvanta URI to open specific content.";
inline constexpr std::string_view navigate_text =
    "Launch or activate the Orvanta desktop app and navigate to a specific URI.\n"
    "Use --play to start playback after navigation.";
inline constexpr std::string_view version_text =
    "Prints the CLI binary version and the compile-time versions of the\n"
    "bundled tetherkit and podroom helpers.";
inline constexpr std::string_view pod_upload_text =
    "Upload an audio or video file to Podroom.\n"
    "Creates a show and episode, then uploads the file in 5MB chunks.\n"
    "\n"
    "Supported formats:\n"
    "  Audio: .mp3, .m4a, .wav, .ogg, .flac\n"
    "  Video: .mp4, .mov, .webm\n"
    "\n"
    "Both --name and --description are required.";
inline constexpr std::string_view pod_shows_text =
    "Manage podcast shows on Podroom.\n"
    "Run 'orv pod shows --help' to see available subcommands.";
inline constexpr std::string_view pod_episodes_text =
    "Manage podcast episodes on Podroom.\n"
    "Run 'orv pod episodes --help' to see available subcommands.\n"
    "When invoked without a subcommand, lists episodes (optionally filtered by --show-id).";
inline constexpr std::string_view pod_timeline_text =
    "Manage episode timeline on Podroom.\n"
    "Run 'orv pod timeline --help' to see available subcommands.";
inline constexpr std::string_view pod_shows_list_text =
    "List all shows created via the Podroom CLI.";
inline constexpr std::string_view pod_shows_create_text = "Create a new podcast show on Podroom.";
inline constexpr std::string_view pod_shows_delete_text = "Delete a podcast show from Podroom.";
inline constexpr std::string_view pod_episodes_list_text =
    "List all episodes created via the Podroom CLI.\n"
    "Use --show-id to filter results to a specific show.";
inline constexpr std::string_view pod_episodes_create_text =
    "Create a new episode and upload the audio/video file.";
inline constexpr std::string_view pod_episodes_status_text =
    "Check whether an episode is ready for playback.";
inline constexpr std::string_view pod_episodes_delete_text =
    "Delete a podcast episode from Podroom.";
inline constexpr std::string_view pod_timeline_get_text =
    "Retrieve all timeline items (chapters + companion content) for the specified episode.";
inline constexpr std::string_view pod_timeline_set_text =
    "Replace all timeline items on an episode with the contents of a JSON file.\n"
    "\n"
    "The JSON file must have the format:\n"
    "  {\"items\": [{\"chapter\": {\"title\": \"...\", \"start_time_ms\": 0}}, ...]}\n"
    "\n"
    "Each item must be one of: chapter, image, link, or orvanta_entity.\n"
    "At least 2 chapters are required; first chapter must start at 0 ms; chapters >= 30s apart.";
inline constexpr std::string_view pod_timeline_delete_text =
    "Delete all timeline items associated with the specified episode.";
inline constexpr std::string_view rondo_status_text =
    "Show information about the current Rondo session, including\n"
    "members, permissions, and session ID.";
inline constexpr std::string_view rondo_create_text =
    "Create a new Rondo session on the current device.";
inline constexpr std::string_view rondo_end_text =
    "End the current Rondo session. Only the session host can do this.";
inline constexpr std::string_view rondo_kick_text =
    "Kick a participant from the current Rondo session (host only).";
inline constexpr std::string_view rondo_permissions_text =
    "View current permissions, or set queue-only mode and volume control.\n"
    "Without flags, shows current permission settings.";
// clang-format on

}  // namespace orvanta::cli::detail
