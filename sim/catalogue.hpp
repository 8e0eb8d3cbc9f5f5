#pragma once

// Finding things in the state by URI, and the few facts that several
// handler families need about a URI: its kind, its display name, its
// artists.

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "sim/state.hpp"

namespace orvanta::sim {

// The kind word of a URI: "track", "album", "artist", "playlist", "show",
// "episode", "audiobook", "folder", or whatever stands between the first two
// colons. Empty when the text is not an orvanta URI.
std::string uri_type(std::string_view uri);

// The record with that URI, or nullptr.
template <class T>
T* find_uri(std::vector<T>& items, std::string_view uri) {
  for (T& item : items) {
    if (item.uri == uri) return &item;
  }
  return nullptr;
}

template <class T>
const T* find_uri(const std::vector<T>& items, std::string_view uri) {
  for (const T& item : items) {
    if (item.uri == uri) return &item;
  }
  return nullptr;
}

Folder* find_folder(SimState& state, std::string_view uri);

// The name of any catalogue entry, playlist or folder; nullopt when the
// state has nothing with that URI.
std::optional<std::string> name_of(const SimState& state, std::string_view uri);

bool exists(const SimState& state, std::string_view uri);

// Something a player can play on its own: a track or an episode.
bool is_playable_item(const SimState& state, std::string_view uri);

// The names of the artists behind `uris`, unknown ones left out.
std::vector<std::string> artist_names(const SimState& state, const std::vector<std::string>& uris);

// The artists of a track, the show of an episode, the authors of an
// audiobook, the artists of an album: who a listener would say made it.
std::vector<std::string> makers_of(const SimState& state, std::string_view uri);

// What a player plays when asked for `uri`: the items of a playlist, the
// tracks of an album or of an artist, a track or an episode by itself.
std::vector<std::string> playable_items(const SimState& state, std::string_view uri);

// "3:34" or "1:02:03".
std::string format_duration(std::uint32_t duration_ms);

// The case-insensitive test that search uses.
bool contains_folded(std::string_view text, std::string_view query);

}  // namespace orvanta::sim
