#include "sim/catalogue.hpp"

#include <algorithm>
#include <cctype>
#include <cstdio>

namespace orvanta::sim {

std::string uri_type(std::string_view uri) {
  constexpr std::string_view scheme = "orvanta:";
  if (uri.substr(0, scheme.size()) != scheme) return {};
  if (uri.find(":folder:") != std::string_view::npos) return "folder";
  std::string_view rest = uri.substr(scheme.size());
  return std::string(rest.substr(0, rest.find(':')));
}

Folder* find_folder(SimState& state, std::string_view uri) { return find_uri(state.folders, uri); }

std::optional<std::string> name_of(const SimState& state, std::string_view uri) {
  if (const auto* t = find_uri(state.tracks, uri)) return t->name;
  if (const auto* a = find_uri(state.artists, uri)) return a->name;
  if (const auto* a = find_uri(state.albums, uri)) return a->name;
  if (const auto* p = find_uri(state.playlists, uri)) return p->name;
  if (const auto* s = find_uri(state.shows, uri)) return s->name;
  if (const auto* e = find_uri(state.episodes, uri)) return e->name;
  if (const auto* b = find_uri(state.audiobooks, uri)) return b->name;
  if (const auto* f = find_uri(state.folders, uri)) return f->name;
  return std::nullopt;
}

bool exists(const SimState& state, std::string_view uri) { return name_of(state, uri).has_value(); }

bool is_playable_item(const SimState& state, std::string_view uri) {
  return find_uri(state.tracks, uri) != nullptr || find_uri(state.episodes, uri) != nullptr;
}

std::vector<std::string> artist_names(const SimState& state, const std::vector<std::string>& uris) {
  std::vector<std::string> names;
  for (const std::string& uri : uris) {
    if (const auto* artist = find_uri(state.artists, uri)) names.push_back(artist->name);
  }
  return names;
}

std::vector<std::string> makers_of(const SimState& state, std::string_view uri) {
  if (const auto* t = find_uri(state.tracks, uri)) return artist_names(state, t->artist_uris);
  if (const auto* a = find_uri(state.albums, uri)) return artist_names(state, a->artist_uris);
  if (const auto* b = find_uri(state.audiobooks, uri)) return b->authors;
  if (const auto* e = find_uri(state.episodes, uri)) {
    if (const auto* s = find_uri(state.shows, e->show_uri)) return {s->name};
  }
  if (const auto* s = find_uri(state.shows, uri)) return {s->publisher};
  return {};
}

std::vector<std::string> playable_items(const SimState& state, std::string_view uri) {
  if (is_playable_item(state, uri)) return {std::string(uri)};
  if (const auto* p = find_uri(state.playlists, uri)) return p->items;
  std::vector<std::string> items;
  for (const Track& track : state.tracks) {
    const auto& artists = track.artist_uris;
    if (track.album_uri == uri || std::find(artists.begin(), artists.end(), uri) != artists.end()) {
      items.push_back(track.uri);
    }
  }
  for (const Episode& episode : state.episodes) {
    if (episode.show_uri == uri) items.push_back(episode.uri);
  }
  return items;
}

std::string format_duration(std::uint32_t duration_ms) {
  const std::uint32_t seconds = duration_ms / 1000;
  char text[32];
  if (seconds >= 3600) {
    std::snprintf(text, sizeof text, "%u:%02u:%02u", seconds / 3600, seconds / 60 % 60, seconds % 60);
  } else {
    std::snprintf(text, sizeof text, "%u:%02u", seconds / 60, seconds % 60);
  }
  return text;
}

bool contains_folded(std::string_view text, std::string_view query) {
  auto fold = [](char c) { return static_cast<char>(std::tolower(static_cast<unsigned char>(c))); };
  auto hit = std::search(text.begin(), text.end(), query.begin(), query.end(),
                         [&](char a, char b) { return fold(a) == fold(b); });
  return hit != text.end();
}

}  // namespace orvanta::sim
