#include "sim/podroom_lookup.hpp"

namespace orvanta::sim {

namespace {

bool names(std::string_view uri, std::string_view id) {
  if (id.empty()) return false;
  if (uri == id) return true;
  return uri.size() > id.size() && uri.substr(uri.size() - id.size()) == id && uri[uri.size() - id.size() - 1] == ':';
}

}  // namespace

PodroomShow* find_podroom_show(Podroom& podroom, std::string_view id) {
  for (PodroomShow& show : podroom.shows) {
    if (names(show.show_uri, id)) return &show;
  }
  return nullptr;
}

PodroomEpisode* find_podroom_episode(Podroom& podroom, std::string_view id) {
  for (PodroomEpisode& episode : podroom.episodes) {
    if (names(episode.episode_uri, id)) return &episode;
  }
  return nullptr;
}

}  // namespace orvanta::sim
