// nlohmann-json on the benchmark documents: parse then copy, and dump.
#include "json_bench_peers.hpp"

#include <nlohmann/json.hpp>

namespace orvanta::bench {

namespace {

using nlohmann::json;

const std::string& text_at(const json& object, const char* k) { return object.at(k).get_ref<const std::string&>(); }

std::vector<Artist> artists_of(const json& array) {
  std::vector<Artist> artists;
  artists.reserve(array.size());
  for (const json& a : array) artists.push_back(Artist{text_at(a, "uri"), text_at(a, "name")});
  return artists;
}

json artists_json(const std::vector<Artist>& artists) {
  json array = json::array();
  for (const Artist& a : artists) array.push_back(json{{"uri", a.uri}, {"name", a.name}});
  return array;
}

}  // namespace

void nlohmann_decode(const std::string& text, LibraryList& out) {
  const json document = json::parse(text);
  LibraryList list;
  const json& items = document.at("items");
  list.items.reserve(items.size());
  for (const json& i : items) {
    LibraryItem item;
    item.uri = text_at(i, "uri");
    item.name = text_at(i, "name");
    item.type = text_at(i, "type");
    item.artists = artists_of(i.at("artists"));
    if (const auto album = i.find("album"); album != i.end()) {
      item.album = AlbumRef{text_at(*album, "uri"), text_at(*album, "name")};
    }
    list.items.push_back(std::move(item));
  }
  list.total = document.at("total").get<std::int32_t>();
  if (const auto offset = document.find("offset"); offset != document.end()) list.offset = offset->get<std::int32_t>();
  out = std::move(list);
}

void nlohmann_decode(const std::string& text, SearchResult& out) {
  const json document = json::parse(text);
  SearchResult result;
  for (const json& t : document.at("tracks")) {
    SearchTrack track;
    track.uri = text_at(t, "uri");
    track.name = text_at(t, "name");
    track.duration_ms = t.at("duration_ms").get<std::int32_t>();
    track.is_explicit = t.at("explicit").get<bool>();
    track.popularity = t.at("popularity").get<std::int32_t>();
    track.artists = artists_of(t.at("artists"));
    const json& album = t.at("album");
    track.album = AlbumRef{text_at(album, "uri"), text_at(album, "name")};
    if (const auto preview = t.find("preview_url"); preview != t.end()) {
      track.preview_url = preview->get_ref<const std::string&>();
    }
    result.tracks.push_back(std::move(track));
  }
  for (const json& a : document.at("albums")) {
    result.albums.push_back(SearchAlbum{text_at(a, "uri"), text_at(a, "name"), text_at(a, "release_date"),
                                        a.at("total_tracks").get<std::int32_t>(), artists_of(a.at("artists"))});
  }
  for (const json& a : document.at("artists")) {
    SearchArtist artist;
    artist.uri = text_at(a, "uri");
    artist.name = text_at(a, "name");
    artist.followers = a.at("followers").get<std::int64_t>();
    for (const json& g : a.at("genres")) artist.genres.push_back(g.get_ref<const std::string&>());
    artist.score = a.at("score").get<double>();
    result.artists.push_back(std::move(artist));
  }
  for (const json& p : document.at("playlists")) {
    const json& owner = p.at("owner");
    result.playlists.push_back(SearchPlaylist{text_at(p, "uri"), text_at(p, "name"), text_at(p, "description"),
                                              Owner{text_at(owner, "uri"), text_at(owner, "display_name")},
                                              p.at("track_count").get<std::int32_t>()});
  }
  out = std::move(result);
}

std::string nlohmann_encode(const LibraryList& value) {
  json items = json::array();
  for (const LibraryItem& item : value.items) {
    json i = {{"uri", item.uri}, {"name", item.name}, {"type", item.type}, {"artists", artists_json(item.artists)}};
    if (item.album) i["album"] = json{{"uri", item.album->uri}, {"name", item.album->name}};
    items.push_back(std::move(i));
  }
  return json{{"items", std::move(items)}, {"total", value.total}, {"offset", value.offset}}.dump();
}

std::string nlohmann_encode(const SearchResult& value) {
  json tracks = json::array();
  for (const SearchTrack& t : value.tracks) {
    json j = {{"uri", t.uri},
              {"name", t.name},
              {"duration_ms", t.duration_ms},
              {"explicit", t.is_explicit},
              {"popularity", t.popularity},
              {"artists", artists_json(t.artists)},
              {"album", {{"uri", t.album.uri}, {"name", t.album.name}}}};
    if (t.preview_url) j["preview_url"] = *t.preview_url;
    tracks.push_back(std::move(j));
  }
  json albums = json::array();
  for (const SearchAlbum& a : value.albums) {
    albums.push_back({{"uri", a.uri},
                      {"name", a.name},
                      {"release_date", a.release_date},
                      {"total_tracks", a.total_tracks},
                      {"artists", artists_json(a.artists)}});
  }
  json artists = json::array();
  for (const SearchArtist& a : value.artists) {
    artists.push_back(
        {{"uri", a.uri}, {"name", a.name}, {"followers", a.followers}, {"genres", a.genres}, {"score", a.score}});
  }
  json playlists = json::array();
  for (const SearchPlaylist& p : value.playlists) {
    playlists.push_back({{"uri", p.uri},
                         {"name", p.name},
                         {"description", p.description},
                         {"owner", {{"uri", p.owner.uri}, {"display_name", p.owner.display_name}}},
                         {"track_count", p.track_count}});
  }
  return json{{"tracks", std::move(tracks)},
              {"albums", std::move(albums)},
              {"artists", std::move(artists)},
              {"playlists", std::move(playlists)}}
      .dump();
}

}  // namespace orvanta::bench
