#pragma once

// The JSON form of the simulator's state: what `--state FILE` reads, what
// `--dump-state FILE` writes and what the built-in default is written in.
// Keys are the members' names. Most keys may be left out of a state file and
// keep their defaults; the ones that identify a record (`uri`, `name`) are
// required.

#include <string>
#include <string_view>

#include "json/json.hpp"
#include "sim/state.hpp"

namespace orvanta::sim {

json::ObjectCodec<Artist> artist_codec();
json::ObjectCodec<Album> album_codec();
json::ObjectCodec<Track> track_codec();
json::ObjectCodec<Show> show_codec();
json::ObjectCodec<Episode> episode_codec();
json::ObjectCodec<Audiobook> audiobook_codec();
json::ObjectCodec<Playlist> playlist_codec();
json::ObjectCodec<Folder> folder_codec();
json::ObjectCodec<SavedItem> saved_item_codec();
json::ObjectCodec<Play> play_codec();
json::ObjectCodec<Player> player_codec();
json::ObjectCodec<QueueEntry> queue_entry_codec();
json::ObjectCodec<Rondo> rondo_codec();
json::ObjectCodec<PodroomShow> podroom_show_codec();
json::ObjectCodec<PodroomEpisode> podroom_episode_codec();
json::ObjectCodec<Podroom> podroom_codec();
json::ObjectCodec<ChatThread> chat_thread_codec();
json::ObjectCodec<Permissions> permissions_codec();
json::ObjectCodec<Account> account_codec();
json::ObjectCodec<SimState> sim_state_codec();

// Reads a whole state text. Throws json::decode_exception with the
// decoder's message and offset.
SimState decode_state(std::string_view text);

// The compact JSON text of `state`. Throws json::encode_exception (a volume
// that isn't finite) or std::bad_alloc.
std::string encode_state(const SimState& state);

}  // namespace orvanta::sim
