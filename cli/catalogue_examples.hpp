#pragma once

// The examples of the command pages. They always name the program
// orvanta_cli, whatever name it was started under. Only catalogue_texts.cpp
// includes this file.

#include <array>
#include <string_view>

namespace orvanta::cli::detail {

// clang-format off
inline constexpr std::array<std::string_view, 4> play_examples{
    "orvanta_cli play",
    "orvanta_cli play orvanta:track:4iV5W9uYEdYUVa79Axb7Rh",
    "orvanta_cli play orvanta:track:4iV5W9uYEdYUVa79Axb7Rh --device \"Kitchen Speaker\"",
    "orvanta_cli play --device \"Kitchen Speaker\"",
};
inline constexpr std::array<std::string_view, 1> pause_examples{
    "orvanta_cli pause",
};
inline constexpr std::array<std::string_view, 1> resume_examples{
    "orvanta_cli resume",
};
inline constexpr std::array<std::string_view, 1> next_examples{
    "orvanta_cli next",
};
inline constexpr std::array<std::string_view, 2> previous_examples{
    "orvanta_cli previous",
    "orvanta_cli prev",
};
inline constexpr std::array<std::string_view, 3> seek_examples{
    "orvanta_cli seek 90000              # jump to 1m30s",
    "orvanta_cli seek 15000 --relative   # forward 15s",
    "orvanta_cli seek -30000 --relative  # backward 30s",
};
inline constexpr std::array<std::string_view, 2> shuffle_examples{
    "orvanta_cli shuffle on",
    "orvanta_cli shuffle off",
};
inline constexpr std::array<std::string_view, 3> repeat_examples{
    "orvanta_cli repeat off",
    "orvanta_cli repeat context",
    "orvanta_cli repeat track",
};
inline constexpr std::array<std::string_view, 2> speed_examples{
    "orvanta_cli speed 1.5",
    "orvanta_cli speed 0.5",
};
inline constexpr std::array<std::string_view, 2> volume_examples{
    "orvanta_cli volume 0.5",
    "orvanta_cli volume 0.0",
};
inline constexpr std::array<std::string_view, 2> now_playing_examples{
    "orvanta_cli now-playing",
    "orvanta_cli now-playing --format json",
};
inline constexpr std::array<std::string_view, 2> search_examples{
    "orvanta_cli search \"bohemian rhapsody\"",
    "orvanta_cli search \"radiohead\" --type artist --limit 5",
};
inline constexpr std::array<std::string_view, 2> lookup_examples{
    "orvanta_cli lookup orvanta:track:abc",
    "orvanta_cli lookup orvanta:artist:xyz --fields genres,monthly_listeners",
};
inline constexpr std::array<std::string_view, 2> taste_examples{
    "orvanta_cli taste",
    "orvanta_cli taste --format json",
};
inline constexpr std::array<std::string_view, 2> history_top_examples{
    "orvanta_cli history top",
    "orvanta_cli history top --type artist --limit 10",
};
inline constexpr std::array<std::string_view, 2> history_recent_examples{
    "orvanta_cli history recent",
    "orvanta_cli history recent --limit 20",
};
inline constexpr std::array<std::string_view, 2> devices_list_examples{
    "orvanta_cli devices",
    "orvanta_cli devices list --format json",
};
inline constexpr std::array<std::string_view, 1> devices_transfer_examples{
    "orvanta_cli devices transfer \"Kitchen Speaker\"",
};
inline constexpr std::array<std::string_view, 2> devices_volume_examples{
    "orvanta_cli devices volume 0.5",
    "orvanta_cli devices volume 0.8 \"Kitchen Speaker\"",
};
inline constexpr std::array<std::string_view, 1> devices_info_examples{
    "orvanta_cli devices info \"Kitchen Speaker\"",
};
inline constexpr std::array<std::string_view, 2> library_list_examples{
    "orvanta_cli library list",
    "orvanta_cli library list --type album --limit 20",
};
inline constexpr std::array<std::string_view, 2> library_contains_examples{
    "orvanta_cli library contains orvanta:track:abc orvanta:album:xyz",
    "orvanta_cli library contains orvanta:track:abc --format json",
};
inline constexpr std::array<std::string_view, 1> library_add_examples{
    "orvanta_cli library add orvanta:track:abc",
};
inline constexpr std::array<std::string_view, 1> library_remove_examples{
    "orvanta_cli library remove orvanta:track:abc",
};
inline constexpr std::array<std::string_view, 3> library_batch_examples{
    "orvanta_cli library batch --from-file ops.json",
    "echo '{\"ops\":[{\"op\":\"library_add\",\"uris\":[\"orvanta:track:abc\"]}]}' | orvanta_cli library batch",
    "orvanta_cli library batch --from-file ops.json --stop-on-error --format json",
};
inline constexpr std::array<std::string_view, 2> playlist_get_examples{
    "orvanta_cli playlist get orvanta:playlist:xyz",
    "orvanta_cli playlist get orvanta:playlist:xyz --no-tracks",
};
inline constexpr std::array<std::string_view, 2> playlist_create_examples{
    "orvanta_cli playlist create \"My Playlist\"",
    "orvanta_cli playlist create \"Party Mix\" --description \"Weekend vibes\" --public",
};
inline constexpr std::array<std::string_view, 2> playlist_update_examples{
    "orvanta_cli playlist update orvanta:playlist:xyz --name \"New Name\"",
    "orvanta_cli playlist update orvanta:playlist:xyz --description \"Updated\" --private",
};
inline constexpr std::array<std::string_view, 2> playlist_add_examples{
    "orvanta_cli playlist add orvanta:playlist:p orvanta:track:t1 orvanta:track:t2",
    "orvanta_cli playlist add orvanta:playlist:p orvanta:track:t --position 0",
};
inline constexpr std::array<std::string_view, 1> playlist_remove_examples{
    "orvanta_cli playlist remove orvanta:playlist:p --positions 0,1,5",
};
inline constexpr std::array<std::string_view, 4> folder_list_examples{
    "orvanta_cli folder list",
    "orvanta_cli folder list --format json",
    "orvanta_cli folder list --recursive --format json",
    "orvanta_cli folder list --folder orvanta:user:name:folder:123 --format json",
};
inline constexpr std::array<std::string_view, 2> folder_create_examples{
    "orvanta_cli folder create \"My Folder\"",
    "orvanta_cli folder create \"Sub Folder\" --in orvanta:folder:abc",
};
inline constexpr std::array<std::string_view, 1> folder_rename_examples{
    "orvanta_cli folder rename orvanta:folder:abc \"New Name\"",
};
inline constexpr std::array<std::string_view, 2> folder_move_examples{
    "orvanta_cli folder move orvanta:folder:abc --to orvanta:folder:xyz",
    "orvanta_cli folder move orvanta:playlist:p1 orvanta:playlist:p2 --to root",
};
inline constexpr std::array<std::string_view, 2> folder_remove_examples{
    "orvanta_cli folder remove orvanta:folder:abc",
    "orvanta_cli folder remove orvanta:folder:abc --keep-contents",
};
inline constexpr std::array<std::string_view, 2> queue_list_examples{
    "orvanta_cli queue",
    "orvanta_cli queue --format json",
};
inline constexpr std::array<std::string_view, 1> queue_add_examples{
    "orvanta_cli queue add orvanta:track:4iV5W9uYEdYUVa79Axb7Rh",
};
inline constexpr std::array<std::string_view, 2> queue_remove_examples{
    "orvanta_cli queue remove 0",
    "orvanta_cli queue remove 2",
};
inline constexpr std::array<std::string_view, 2> queue_move_examples{
    "orvanta_cli queue move 3 0",
    "orvanta_cli queue move 0 2",
};
inline constexpr std::array<std::string_view, 1> me_examples{
    "orvanta_cli me",
};
inline constexpr std::array<std::string_view, 2> status_examples{
    "orvanta_cli status",
    "orvanta_cli status --format json",
};
inline constexpr std::array<std::string_view, 2> open_examples{
    "orvanta_cli open",
    "orvanta_cli open orvanta:track:abc",
};
inline constexpr std::array<std::string_view, 3> navigate_examples{
    "orvanta_cli navigate orvanta:track:abc123",
    "orvanta_cli navigate orvanta:episode:abc123 --play",
    "orvanta_cli navigate orvanta:album:xyz",
};
inline constexpr std::array<std::string_view, 2> version_examples{
    "orvanta_cli version",
    "orvanta_cli version --format json",
};
inline constexpr std::array<std::string_view, 3> pod_upload_examples{
    "orvanta_cli pod upload song.mp3 --name \"My Song\"",
    "orvanta_cli pod upload song.mp3 --name \"Ep 2\" --show-id orvanta:show:abc123",
    "orvanta_cli pod upload video.mp4 --name \"My Video\" --new-show \"My New Show\" --description \"A short clip\"",
};
inline constexpr std::array<std::string_view, 1> pod_shows_examples{
    "orvanta_cli pod shows",
};
inline constexpr std::array<std::string_view, 2> pod_episodes_examples{
    "orvanta_cli pod episodes",
    "orvanta_cli pod episodes --show-id orvanta:show:abc123",
};
inline constexpr std::array<std::string_view, 1> pod_timeline_examples{
    "orvanta_cli pod timeline get orvanta:episode:abc123",
};
inline constexpr std::array<std::string_view, 1> pod_shows_list_examples{
    "orvanta_cli pod shows",
};
inline constexpr std::array<std::string_view, 2> pod_shows_create_examples{
    "orvanta_cli pod shows create --name \"My Podcast\"",
    "orvanta_cli pod shows create --name \"Tech Talk\" --description \"Weekly tech news\" --language en",
};
inline constexpr std::array<std::string_view, 2> pod_shows_delete_examples{
    "orvanta_cli pod shows delete orvanta:show:abc123",
    "orvanta_cli pod shows delete abc123",
};
inline constexpr std::array<std::string_view, 2> pod_episodes_list_examples{
    "orvanta_cli pod episodes",
    "orvanta_cli pod episodes --show-id orvanta:show:abc123",
};
inline constexpr std::array<std::string_view, 2> pod_episodes_create_examples{
    "orvanta_cli pod episodes create --name \"Ep 1\" --file ep1.mp3 --description \"First episode\"",
    "orvanta_cli pod episodes create --name \"Ep 2\" --file ep2.mp3 --description \"Second\" --show-id orvanta:show:abc123",
};
inline constexpr std::array<std::string_view, 1> pod_episodes_status_examples{
    "orvanta_cli pod episodes status orvanta:episode:abc123",
};
inline constexpr std::array<std::string_view, 1> pod_episodes_delete_examples{
    "orvanta_cli pod episodes delete orvanta:episode:abc123",
};
inline constexpr std::array<std::string_view, 1> pod_timeline_get_examples{
    "orvanta_cli pod timeline get orvanta:episode:abc123",
};
inline constexpr std::array<std::string_view, 1> pod_timeline_set_examples{
    "orvanta_cli pod timeline set --episode-id orvanta:episode:abc123 --from-file timeline.json",
};
inline constexpr std::array<std::string_view, 1> pod_timeline_delete_examples{
    "orvanta_cli pod timeline delete orvanta:episode:abc123",
};
inline constexpr std::array<std::string_view, 2> rondo_status_examples{
    "orvanta_cli rondo",
    "orvanta_cli rondo status --format json",
};
inline constexpr std::array<std::string_view, 1> rondo_create_examples{
    "orvanta_cli rondo create",
};
inline constexpr std::array<std::string_view, 1> rondo_leave_examples{
    "orvanta_cli rondo leave",
};
inline constexpr std::array<std::string_view, 1> rondo_end_examples{
    "orvanta_cli rondo end",
};
inline constexpr std::array<std::string_view, 2> rondo_members_examples{
    "orvanta_cli rondo members",
    "orvanta_cli rondo members --format json",
};
inline constexpr std::array<std::string_view, 1> rondo_kick_examples{
    "orvanta_cli rondo kick username123",
};
inline constexpr std::array<std::string_view, 3> rondo_permissions_examples{
    "orvanta_cli rondo permissions",
    "orvanta_cli rondo permissions --queue-only on",
    "orvanta_cli rondo permissions --volume-control off",
};
// clang-format on

}  // namespace orvanta::cli::detail
