#pragma once

#include <string>
#include <string_view>

// Every text the flag parser and the recogniser store as a usage failure.
// main prints them behind "Error: "; none of them ends in a newline. A
// function takes the word the user typed and quotes it as the text requires.
namespace orvanta::cli::errors {

// Any flag.
std::string unknown_option(std::string_view word);  // unknown option '<word>'
std::string requires_value(std::string_view flag);  // <flag> requires a value

// Flag values.
std::string in_not_uri(std::string_view got);
std::string to_not_uri_or_root(std::string_view got);
std::string unknown_role(std::string_view got);
std::string limit_not_positive(std::string_view got);
std::string state_not_online_offline(std::string_view got);
std::string width_not_positive(std::string_view got);
std::string offset_negative(std::string_view got);
std::string folder_not_uri(std::string_view got);
std::string height_not_positive(std::string_view got);
std::string position_negative(std::string_view got);
std::string positions_negative(std::string_view got);
std::string entity_uri_not_uri(std::string_view got);
std::string silence_ms_negative(std::string_view got);
std::string queue_only_not_on_off(std::string_view got);
std::string volume_control_not_on_off(std::string_view got);

// `folder list` takes only three flags and no positional.
inline constexpr std::string_view folder_list_unknown_flag =
    "folder list only supports --format, --recursive, and --folder.";
inline constexpr std::string_view folder_list_positional =
    "folder list does not accept positional arguments; use `--folder <uri>` to list a specific folder.";

// Positionals of the playback and content commands.
std::string repeat_invalid(std::string_view got);
inline constexpr std::string_view shuffle_requires_argument =
    "shuffle requires an argument: on or off";
std::string shuffle_invalid(std::string_view got);
std::string speed_out_of_range(std::string_view got);
std::string volume_out_of_range(std::string_view got);
std::string seek_not_integer(std::string_view got);
std::string lookup_uri_invalid(std::string_view got);
std::string play_uri_invalid(std::string_view got);
inline constexpr std::string_view navigate_requires_uri = "navigate requires a URI argument";
std::string navigate_uri_invalid(std::string_view got);
std::string navigate_unknown_option(std::string_view word);

// Positionals of the group commands.
std::string devices_volume_out_of_range(std::string_view got);
std::string library_uri_invalid(std::string_view got);
std::string playlist_uri_invalid(std::string_view got);
std::string playlist_uris_invalid(std::string_view got);
std::string folder_uri_invalid(std::string_view got);
std::string queue_add_uri_invalid(std::string_view got);
std::string queue_remove_not_position(std::string_view got);
inline constexpr std::string_view queue_move_requires_positions =
    "queue move requires two non-negative integer positions";
inline constexpr std::string_view rondo_kick_requires_username =
    "rondo kick requires a username argument";

}  // namespace orvanta::cli::errors
