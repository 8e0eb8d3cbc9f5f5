// `lookup`: URIs to entities with their metadata. Each kind of entity has a
// few fields it always shows; `fields` asks for more of those it knows.
#include "sim/handlers.hpp"

#include <algorithm>
#include <utility>

#include "sim/catalogue.hpp"

namespace orvanta::sim {

namespace {

using Fields = std::vector<std::pair<std::string, std::string>>;

std::string join(const std::vector<std::string>& words) {
  std::string text;
  for (const std::string& word : words) text += (text.empty() ? "" : ", ") + word;
  return text;
}

std::string yes_no(bool value) { return value ? "true" : "false"; }

m::LookupEntity entity(std::string uri, std::string type, std::string name) {
  m::LookupEntity e;
  e.uri = std::move(uri);
  e.type = std::move(type);
  e.name = std::move(name);
  return e;
}

void credit(const SimState& state, m::LookupEntity& e, const std::vector<std::string>& artist_uris) {
  for (const std::string& uri : artist_uris) {
    e.contributors.push_back(m::LookupContributor{.name = name_of(state, uri).value_or(uri), .uri = uri});
  }
}

// Fills the entity's text members and returns every metadata field the
// state knows for it; the first `shown` of them are always shown.
Fields describe(const SimState& state, m::LookupEntity& e, std::size_t& shown) {
  shown = 1;
  if (const auto* t = find_uri(state.tracks, e.uri)) {
    const Album* album = find_uri(state.albums, t->album_uri);
    credit(state, e, t->artist_uris);
    if (album) e.parent = m::LookupParent{.name = album->name, .uri = album->uri};
    const std::string released = album ? album->release_date : "";
    shown = 2;
    return {{"duration", format_duration(t->duration_ms)}, {"release_date", released},
            {"total_plays", std::to_string(t->total_plays)}, {"bpm", std::to_string(t->bpm)},
            {"key", t->key}, {"mode", t->mode}, {"camelot_key", t->camelot_key},
            {"content_ratings", t->is_explicit ? "explicit" : "clean"}, {"formats", "ogg 320, flac"},
            {"orvanta_release_date", released}, {"copyright", album ? album->copyright : ""},
            {"entity_type", "track"}};
  }
  if (const auto* a = find_uri(state.artists, e.uri)) {
    e.description = a->description;
    e.image_url = a->image;
    return {{"monthly_listeners", std::to_string(a->monthly_listeners)}, {"followers", std::to_string(a->followers)},
            {"is_verified", yes_no(a->is_verified)}, {"genres", join(a->genres)}, {"entity_type", "artist"}};
  }
  if (const auto* a = find_uri(state.albums, e.uri)) {
    credit(state, e, a->artist_uris);
    e.image_url = a->image;
    if (!a->artist_uris.empty()) {
      const std::string& first = a->artist_uris.front();
      e.parent = m::LookupParent{.name = name_of(state, first).value_or(first), .uri = first};
    }
    return {{"release_date", a->release_date}, {"copyright", a->copyright}, {"genres", join(a->genres)},
            {"orvanta_release_date", a->release_date}, {"entity_type", "album"}};
  }
  if (const auto* p = find_uri(state.playlists, e.uri)) {
    if (!p->description.empty()) e.description = p->description;
    e.contributors.push_back(m::LookupContributor{.name = p->owner, .uri = "orvanta:user:" + p->owner});
    shown = 2;
    return {{"tracks", std::to_string(p->items.size())}, {"owner", p->owner},
            {"entity_type", p->collaborative ? "collaborative_playlist" : "playlist"}};
  }
  if (const auto* s = find_uri(state.shows, e.uri)) {
    e.description = s->description;
    e.image_url = s->image;
    e.contributors.push_back(m::LookupContributor{.name = s->publisher, .uri = std::nullopt});
    return {{"rating", s->rating}, {"rating_count", std::to_string(s->rating_count)}, {"entity_type", "show"}};
  }
  if (const auto* ep = find_uri(state.episodes, e.uri)) {
    e.description = ep->description;
    if (const auto* s = find_uri(state.shows, ep->show_uri)) e.parent = m::LookupParent{.name = s->name, .uri = s->uri};
    shown = 2;
    return {{"duration", format_duration(ep->duration_ms)}, {"release_date", ep->release_date},
            {"entity_type", "episode"}};
  }
  if (const auto* b = find_uri(state.audiobooks, e.uri)) {
    e.description = b->description;
    for (const std::string& author : b->authors) e.contributors.push_back(m::LookupContributor{author, std::nullopt});
    shown = 3;
    return {{"duration", format_duration(b->duration_ms)}, {"release_date", b->release_date},
            {"narrators", join(b->narrators)}, {"entity_type", "audiobook"}};
  }
  shown = 0;
  return {};
}

}  // namespace

Answer<m::LookupResponse> handle(m::Lookup, const m::LookupRequest& request, Context& context) {
  const SimState& state = context.state;
  if (request.uris.empty()) return bad_request("Give at least one URI to look up");
  m::LookupResponse response;
  for (const std::string& uri : request.uris) {
    // An unknown URI comes back with an empty name: the client warns about it.
    m::LookupEntity e = entity(uri, uri_type(uri), name_of(state, uri).value_or(""));
    std::size_t shown = 0;
    const Fields fields = describe(state, e, shown);
    for (std::size_t i = 0; i < shown && i < fields.size(); ++i) {
      e.metadata.push_back(m::LookupMetadataField{fields[i].first, fields[i].second});
    }
    for (const std::string& wanted : request.fields.value_or(std::vector<std::string>{})) {
      auto known = std::find_if(fields.begin(), fields.end(), [&](const auto& f) { return f.first == wanted; });
      auto listed = std::find_if(e.metadata.begin(), e.metadata.end(), [&](const auto& f) { return f.field == wanted; });
      if (known != fields.end() && listed == e.metadata.end()) {
        e.metadata.push_back(m::LookupMetadataField{known->first, known->second});
      }
    }
    response.entities.push_back(std::move(e));
  }
  return response;
}

}  // namespace orvanta::sim
