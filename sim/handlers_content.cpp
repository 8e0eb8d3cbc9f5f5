// Search, account view, taste profile, history and what is playing.
#include "sim/handlers.hpp"

#include <algorithm>

#include "sim/catalogue.hpp"

namespace orvanta::sim {

namespace {

constexpr std::int32_t default_search_limit = 10;
constexpr std::int32_t default_history_limit = 20;

// The order the client lists its result sections in.
const std::vector<std::string> section_order{"topHit",    "tracks", "artists",       "albums",
                                             "playlists", "shows",  "audioepisodes", "audiobooks"};

bool wanted(const std::optional<std::string>& type, std::string_view word) { return !type || *type == word; }

// Fills `out` with the first `limit` records whose name (or, for tracks and
// albums, an artist's name) contains the query.
template <class Record, class Entry, class Make>
void collect(const std::vector<Record>& records, const m::SearchRequest& request, std::int32_t limit,
             std::vector<Entry>& out, Make make) {
  for (const Record& record : records) {
    if (static_cast<std::int32_t>(out.size()) >= limit) return;
    Entry entry = make(record);
    bool hit = contains_folded(record.name, request.query);
    if constexpr (requires { entry.artists; }) {
      for (const std::string& artist : entry.artists) hit = hit || contains_folded(artist, request.query);
    }
    if (hit) out.push_back(std::move(entry));
  }
}

template <class Items>
Items history_items(const SimState& state, const std::optional<std::string>& type, std::optional<std::int32_t> limit,
                    bool by_time) {
  std::vector<Play> plays;
  for (const Play& play : state.history) {
    if (!type || uri_type(play.uri) == *type) plays.push_back(play);
  }
  std::stable_sort(plays.begin(), plays.end(), [by_time](const Play& a, const Play& b) {
    return by_time ? a.last_played_at > b.last_played_at : a.played_seconds > b.played_seconds;
  });
  Items response;
  for (const Play& play : plays) {
    if (static_cast<std::int32_t>(response.items.size()) >= limit.value_or(default_history_limit)) break;
    m::HistoryItem item{.uri = play.uri, .name = name_of(state, play.uri).value_or(play.uri)};
    if (by_time) {
      item.last_played_at = play.last_played_at;
    } else {
      item.played_seconds = play.played_seconds;
    }
    response.items.push_back(std::move(item));
  }
  return response;
}

// Fills each list of `r` that the request's type asks for.
void collect_all(const SimState& state, const m::SearchRequest& request, std::int32_t limit, m::SearchResponse& r) {
  const auto& type = request.type;
  auto names = [&](const std::vector<std::string>& uris) { return artist_names(state, uris); };
  if (wanted(type, "artist")) {
    collect(state.artists, request, limit, r.artists, [](const Artist& a) {
      return m::SearchArtist{.uri = a.uri, .name = a.name, .monthly_listeners = a.monthly_listeners, .image = a.image};
    });
  }
  if (wanted(type, "track")) {
    collect(state.tracks, request, limit, r.tracks, [&](const Track& t) {
      return m::SearchTrack{.uri = t.uri, .name = t.name, .artists = names(t.artist_uris), .image = {}};
    });
  }
  if (wanted(type, "album")) {
    collect(state.albums, request, limit, r.albums, [&](const Album& a) {
      return m::SearchAlbum{.uri = a.uri, .name = a.name, .artists = names(a.artist_uris), .image = a.image};
    });
  }
  if (wanted(type, "playlist")) {
    collect(state.playlists, request, limit, r.playlists, [](const Playlist& p) {
      auto author = p.owner.empty() ? std::nullopt : std::optional<std::string>(p.owner);
      return m::SearchPlaylist{.uri = p.uri, .name = p.name, .author = std::move(author), .image = {}};
    });
  }
  if (wanted(type, "show")) {
    collect(state.shows, request, limit, r.shows,
            [](const Show& s) { return m::SearchShow{.uri = s.uri, .name = s.name, .image = s.image}; });
  }
  if (wanted(type, "episode")) {
    collect(state.episodes, request, limit, r.episodes,
            [](const Episode& e) { return m::SearchEpisode{.uri = e.uri, .name = e.name, .image = {}}; });
  }
  if (wanted(type, "audiobook")) {
    collect(state.audiobooks, request, limit, r.audiobooks, [](const Audiobook& b) {
      return m::SearchAudiobook{.uri = b.uri, .name = b.name, .authors = b.authors, .image = {}};
    });
  }
}

}  // namespace

Answer<m::SearchResponse> handle(m::Search, const m::SearchRequest& request, Context& context) {
  if (request.query.empty()) return bad_request("The search query is empty");
  const std::int32_t limit = request.limit.value_or(default_search_limit);
  if (limit <= 0) return bad_request("The search limit must be at least 1");
  m::SearchResponse r;
  collect_all(context.state, request, limit, r);
  // Without a type, the best artist (else track) is the top hit.
  if (!request.type) {
    if (!r.artists.empty()) {
      r.top_hit = m::SearchTopHit{.uri = r.artists.front().uri, .name = r.artists.front().name, .image = {}};
    } else if (!r.tracks.empty()) {
      r.top_hit = m::SearchTopHit{.uri = r.tracks.front().uri, .name = r.tracks.front().name, .image = {}};
    }
  }
  r.top_recommendations = context.state.search_recommendations;
  r.categories_order = context.state.search_categories_order.value_or(section_order);
  return r;
}

Answer<m::MeResponse> handle(m::Me, const m::EmptyRequest&, Context& context) { return context.state.account.user; }

Answer<m::TasteProfileResponse> handle(m::TasteProfile, const m::EmptyRequest&, Context& context) {
  return context.state.taste;
}

Answer<m::HistoryTopResponse> handle(m::HistoryTop, const m::HistoryTopRequest& request, Context& context) {
  if (request.limit && *request.limit <= 0) return bad_request("The history limit must be at least 1");
  return history_items<m::HistoryTopResponse>(context.state, request.type, request.limit, false);
}

Answer<m::HistoryRecentResponse> handle(m::HistoryRecent, const m::HistoryRecentRequest& request, Context& context) {
  if (request.limit && *request.limit <= 0) return bad_request("The history limit must be at least 1");
  return history_items<m::HistoryRecentResponse>(context.state, request.type, request.limit, true);
}

Answer<m::NowPlayingResponse> handle(m::NowPlaying, const m::EmptyRequest&, Context& context) {
  const SimState& state = context.state;
  const Player& player = state.player;
  m::NowPlayingResponse response;
  if (!player.track_uri) return response;
  m::NowPlayingItem item;
  item.uri = *player.track_uri;
  item.description = name_of(state, item.uri).value_or(item.uri);
  std::string makers;
  for (const std::string& maker : makers_of(state, item.uri)) makers += (makers.empty() ? "" : ", ") + maker;
  if (!makers.empty()) item.description += " \xE2\x80\x94 " + makers;
  if (player.context_uri) item.context_description = name_of(state, *player.context_uri);
  item.is_playing = player.is_playing;
  response.currently_playing = std::move(item);
  return response;
}

}  // namespace orvanta::sim
