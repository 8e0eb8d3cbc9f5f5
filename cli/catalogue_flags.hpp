#pragma once

// The flag rows of the command pages, in page order. Only catalogue_texts.cpp
// includes this file. A continuation line of a description carries its own
// 22 blanks, which put it under the first line of the description.

#include <array>

#include "cli/catalogue.hpp"

namespace orvanta::cli::detail {

// clang-format off
inline constexpr std::array<FlagRow, 1> play_flags{{
    {"--device", "<name|id>",
     "Play on a specific device (name or id from 'devices list').\n"
     "                      Transfers playback before starting."},
}};
inline constexpr std::array<FlagRow, 1> seek_flags{{
    {"--relative", "", "Seek relative to current position"},
}};
inline constexpr std::array<FlagRow, 2> search_flags{{
    {"--type", "<type>",
     "Filter results (track, album, artist, playlist, show, episode, audiobook)"},
    {"--limit", "<n>", "Max results to return"},
}};
inline constexpr std::array<FlagRow, 1> lookup_flags{{
    {"--fields", "<f1,f2,...>",
     "Extra metadata fields: duration, content_ratings, genres, formats,\n"
     "                      monthly_listeners, total_plays, followers, is_verified,\n"
     "                      rating, rating_count, release_date, orvanta_release_date,\n"
     "                      copyright, entity_type, bpm, key, mode, camelot_key"},
}};
inline constexpr std::array<FlagRow, 3> history_top_flags{{
    {"--type", "<type>", "Filter by type"},
    {"--limit", "<n>", "Max results to return"},
    {"--offset", "<n>", "Pagination offset"},
}};
inline constexpr std::array<FlagRow, 3> history_recent_flags{{
    {"--type", "<type>", "Filter by type"},
    {"--limit", "<n>", "Max results to return"},
    {"--offset", "<n>", "Pagination offset"},
}};
inline constexpr std::array<FlagRow, 3> library_list_flags{{
    {"--type", "<type>", "Filter by type (album, artist, playlist, folder, show, audiobook)"},
    {"--limit", "<n>", "Max results to return"},
    {"--offset", "<n>", "Pagination offset"},
}};
inline constexpr std::array<FlagRow, 1> library_contains_flags{{
    {"--format", "<json>", "Output format"},
}};
inline constexpr std::array<FlagRow, 2> library_batch_flags{{
    {"--from-file", "<path>", "Read JSON manifest from file (default: stdin)"},
    {"--stop-on-error", "", "Abort the batch on the first failure"},
}};
inline constexpr std::array<FlagRow, 3> playlist_get_flags{{
    {"--no-tracks", "", "Omit track listing"},
    {"--limit", "<n>", "Max tracks to return"},
    {"--offset", "<n>", "Track pagination offset"},
}};
inline constexpr std::array<FlagRow, 3> playlist_create_flags{{
    {"--description", "<text>", "Playlist description"},
    {"--image-file", "<path>", "Local image file to set as cover art (.jpg/.png)"},
    {"--public", "", "Make playlist public"},
}};
inline constexpr std::array<FlagRow, 5> playlist_update_flags{{
    {"--name", "<text>", "New playlist name"},
    {"--description", "<text>", "New description"},
    {"--image-file", "<path>", "Local image file to set as cover art (.jpg/.png)"},
    {"--public", "", "Make playlist public"},
    {"--private", "", "Make playlist private"},
}};
inline constexpr std::array<FlagRow, 1> playlist_add_flags{{
    {"--position", "<n>", "Insert position (0-based)"},
}};
inline constexpr std::array<FlagRow, 1> playlist_remove_flags{{
    {"--positions", "<0,1,5>", "Comma-separated positions to remove"},
}};
inline constexpr std::array<FlagRow, 2> folder_list_flags{{
    {"--folder", "<uri>", "List direct contents of a specific folder"},
    {"--recursive", "", "Return all descendants as a depth-first hierarchy"},
}};
inline constexpr std::array<FlagRow, 1> folder_create_flags{{
    {"--in", "<folder_uri>", "Create inside a specific folder"},
}};
inline constexpr std::array<FlagRow, 1> folder_move_flags{{
    {"--to", "<folder_uri|root>", "Destination folder or 'root'"},
}};
inline constexpr std::array<FlagRow, 1> folder_remove_flags{{
    {"--keep-contents", "", "Keep folder contents (move to parent)"},
}};
inline constexpr std::array<FlagRow, 1> navigate_flags{{
    {"--play", "", "Start playback after navigating to the URI."},
}};
inline constexpr std::array<FlagRow, 6> pod_upload_flags{{
    {"--name", "<title>", "Episode title (required)"},
    {"--description", "<text>", "Episode description (maps to --summary)"},
    {"--show-id", "<uri|id>", "Target show URI or ID (default: last used show)"},
    {"--new-show", "<title>", "Create a new show with this title"},
    {"--image-file", "<path>", "Cover image file (.jpg/.png, max 1 MB)"},
    {"--language", "<code>", "Language code (default: en)"},
}};
inline constexpr std::array<FlagRow, 1> pod_episodes_flags{{
    {"--show-id", "<uri|id>", "Filter by show URI or ID (default: all episodes)"},
}};
inline constexpr std::array<FlagRow, 4> pod_shows_create_flags{{
    {"--name", "<title>", "Show title (required)"},
    {"--description", "<text>", "Show description"},
    {"--image-file", "<path>", "Cover image (.jpg/.png, max 1 MB)"},
    {"--language", "<code>", "Language code (default: en)"},
}};
inline constexpr std::array<FlagRow, 1> pod_episodes_list_flags{{
    {"--show-id", "<uri|id>", "Filter by show URI or ID (default: all episodes)"},
}};
inline constexpr std::array<FlagRow, 6> pod_episodes_create_flags{{
    {"--name", "<title>", "Episode title (required)"},
    {"--file", "<path>", "Audio/video file to upload (required)"},
    {"--description", "<text>", "Episode description (required)"},
    {"--show-id", "<uri|id>", "Target show URI or ID (default: last used show)"},
    {"--image-file", "<path>", "Cover image (.jpg/.png, max 1 MB)"},
    {"--language", "<code>", "Language code (default: en)"},
}};
inline constexpr std::array<FlagRow, 1> pod_timeline_get_flags{{
    {"--show-id", "<uri|id>", "Show URI or ID (default: from cache)"},
}};
inline constexpr std::array<FlagRow, 3> pod_timeline_set_flags{{
    {"--episode-id", "<uri|id>", "Episode URI or ID (required)"},
    {"--from-file", "<path>", "JSON file with timeline items array (required)"},
    {"--show-id", "<uri|id>", "Show URI or ID (default: from cache)"},
}};
inline constexpr std::array<FlagRow, 1> pod_timeline_delete_flags{{
    {"--show-id", "<uri|id>", "Show URI or ID (default: from cache)"},
}};
inline constexpr std::array<FlagRow, 2> rondo_permissions_flags{{
    {"--queue-only", "<on|off>", "Set queue-only mode (participants can only add to queue)"},
    {"--volume-control", "<on|off>", "Allow participants to control volume"},
}};
// clang-format on

}  // namespace orvanta::cli::detail
