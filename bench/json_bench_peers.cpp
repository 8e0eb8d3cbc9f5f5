#include "json_bench_peers.hpp"

// RapidJSON at its best baseline: SSE2 scans for whitespace and strings.
#define RAPIDJSON_SSE2
#include <rapidjson/document.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <nlohmann/json.hpp>
#include <simdjson.h>

#include <string_view>

namespace orvanta::bench {

// ---------------------------------------------------------------- RapidJSON

namespace {

using RValue = rapidjson::Value;

std::string text_of(const RValue& value) { return std::string(value.GetString(), value.GetStringLength()); }
std::string_view key_of(const RValue& name) { return {name.GetString(), name.GetStringLength()}; }

template <class Record>
Record copy_pair(const RValue& object, std::string Record::*first, const char* first_key, std::string Record::*second) {
  Record record;
  for (const auto& member : object.GetObject()) {
    if (key_of(member.name) == first_key) {
      record.*first = text_of(member.value);
    } else {
      record.*second = text_of(member.value);
    }
  }
  return record;
}

Artist copy_artist(const RValue& v) { return copy_pair(v, &Artist::uri, "uri", &Artist::name); }
AlbumRef copy_album(const RValue& v) { return copy_pair(v, &AlbumRef::uri, "uri", &AlbumRef::name); }
Owner copy_owner(const RValue& v) { return copy_pair(v, &Owner::uri, "uri", &Owner::display_name); }

std::vector<Artist> copy_artists(const RValue& array) {
  std::vector<Artist> artists;
  artists.reserve(array.Size());
  for (const auto& element : array.GetArray()) artists.push_back(copy_artist(element));
  return artists;
}

LibraryItem copy_item(const RValue& object) {
  LibraryItem item;
  for (const auto& m : object.GetObject()) {
    const std::string_view key = key_of(m.name);
    if (key == "uri") item.uri = text_of(m.value);
    else if (key == "name") item.name = text_of(m.value);
    else if (key == "type") item.type = text_of(m.value);
    else if (key == "artists") item.artists = copy_artists(m.value);
    else if (key == "album") item.album = copy_album(m.value);
  }
  return item;
}

SearchTrack copy_track(const RValue& object) {
  SearchTrack track;
  for (const auto& m : object.GetObject()) {
    const std::string_view key = key_of(m.name);
    if (key == "uri") track.uri = text_of(m.value);
    else if (key == "name") track.name = text_of(m.value);
    else if (key == "duration_ms") track.duration_ms = m.value.GetInt();
    else if (key == "explicit") track.is_explicit = m.value.GetBool();
    else if (key == "popularity") track.popularity = m.value.GetInt();
    else if (key == "artists") track.artists = copy_artists(m.value);
    else if (key == "album") track.album = copy_album(m.value);
    else if (key == "preview_url") track.preview_url = text_of(m.value);
  }
  return track;
}

SearchAlbum copy_search_album(const RValue& object) {
  SearchAlbum album;
  for (const auto& m : object.GetObject()) {
    const std::string_view key = key_of(m.name);
    if (key == "uri") album.uri = text_of(m.value);
    else if (key == "name") album.name = text_of(m.value);
    else if (key == "release_date") album.release_date = text_of(m.value);
    else if (key == "total_tracks") album.total_tracks = m.value.GetInt();
    else if (key == "artists") album.artists = copy_artists(m.value);
  }
  return album;
}

SearchArtist copy_search_artist(const RValue& object) {
  SearchArtist artist;
  for (const auto& m : object.GetObject()) {
    const std::string_view key = key_of(m.name);
    if (key == "uri") artist.uri = text_of(m.value);
    else if (key == "name") artist.name = text_of(m.value);
    else if (key == "followers") artist.followers = m.value.GetInt64();
    else if (key == "genres") {
      artist.genres.reserve(m.value.Size());
      for (const auto& genre : m.value.GetArray()) artist.genres.push_back(text_of(genre));
    } else if (key == "score") artist.score = m.value.GetDouble();
  }
  return artist;
}

SearchPlaylist copy_playlist(const RValue& object) {
  SearchPlaylist playlist;
  for (const auto& m : object.GetObject()) {
    const std::string_view key = key_of(m.name);
    if (key == "uri") playlist.uri = text_of(m.value);
    else if (key == "name") playlist.name = text_of(m.value);
    else if (key == "description") playlist.description = text_of(m.value);
    else if (key == "owner") playlist.owner = copy_owner(m.value);
    else if (key == "track_count") playlist.track_count = m.value.GetInt();
  }
  return playlist;
}

template <class T, class Copy>
std::vector<T> copy_list(const RValue& array, Copy copy) {
  std::vector<T> list;
  list.reserve(array.Size());
  for (const auto& element : array.GetArray()) list.push_back(copy(element));
  return list;
}

rapidjson::Document parse(const std::string& text) {
  rapidjson::Document document;
  document.Parse(text.data(), text.size());
  if (document.HasParseError()) throw std::runtime_error("rapidjson parse error");
  return document;
}

using Writer = rapidjson::Writer<rapidjson::StringBuffer>;

void key(Writer& w, std::string_view k) { w.Key(k.data(), static_cast<rapidjson::SizeType>(k.size())); }
void string(Writer& w, const std::string& s) { w.String(s.data(), static_cast<rapidjson::SizeType>(s.size())); }

template <class Record>
void write_pair(Writer& w, const Record& r, std::string_view k1, const std::string& v1, std::string_view k2,
                const std::string& v2) {
  (void)r;
  w.StartObject();
  key(w, k1);
  string(w, v1);
  key(w, k2);
  string(w, v2);
  w.EndObject();
}

void write_artists(Writer& w, const std::vector<Artist>& artists) {
  w.StartArray();
  for (const Artist& a : artists) write_pair(w, a, "uri", a.uri, "name", a.name);
  w.EndArray();
}

}  // namespace

void rapidjson_dom_decode(const std::string& text, LibraryList& out) {
  const rapidjson::Document document = parse(text);
  LibraryList list;
  for (const auto& m : document.GetObject()) {
    const std::string_view k = key_of(m.name);
    if (k == "items") list.items = copy_list<LibraryItem>(m.value, copy_item);
    else if (k == "total") list.total = m.value.GetInt();
    else if (k == "offset") list.offset = m.value.GetInt();
  }
  out = std::move(list);
}

void rapidjson_dom_decode(const std::string& text, SearchResult& out) {
  const rapidjson::Document document = parse(text);
  SearchResult result;
  for (const auto& m : document.GetObject()) {
    const std::string_view k = key_of(m.name);
    if (k == "tracks") result.tracks = copy_list<SearchTrack>(m.value, copy_track);
    else if (k == "albums") result.albums = copy_list<SearchAlbum>(m.value, copy_search_album);
    else if (k == "artists") result.artists = copy_list<SearchArtist>(m.value, copy_search_artist);
    else if (k == "playlists") result.playlists = copy_list<SearchPlaylist>(m.value, copy_playlist);
  }
  out = std::move(result);
}

std::string rapidjson_writer_encode(const LibraryList& value) {
  rapidjson::StringBuffer buffer;
  Writer w(buffer);
  w.StartObject();
  key(w, "items");
  w.StartArray();
  for (const LibraryItem& item : value.items) {
    w.StartObject();
    key(w, "uri");
    string(w, item.uri);
    key(w, "name");
    string(w, item.name);
    key(w, "type");
    string(w, item.type);
    key(w, "artists");
    write_artists(w, item.artists);
    if (item.album) {
      key(w, "album");
      write_pair(w, *item.album, "uri", item.album->uri, "name", item.album->name);
    }
    w.EndObject();
  }
  w.EndArray();
  key(w, "total");
  w.Int(value.total);
  key(w, "offset");
  w.Int(value.offset);
  w.EndObject();
  return std::string(buffer.GetString(), buffer.GetSize());
}

std::string rapidjson_writer_encode(const SearchResult& value) {
  rapidjson::StringBuffer buffer;
  Writer w(buffer);
  w.StartObject();
  key(w, "tracks");
  w.StartArray();
  for (const SearchTrack& t : value.tracks) {
    w.StartObject();
    key(w, "uri");
    string(w, t.uri);
    key(w, "name");
    string(w, t.name);
    key(w, "duration_ms");
    w.Int(t.duration_ms);
    key(w, "explicit");
    w.Bool(t.is_explicit);
    key(w, "popularity");
    w.Int(t.popularity);
    key(w, "artists");
    write_artists(w, t.artists);
    key(w, "album");
    write_pair(w, t.album, "uri", t.album.uri, "name", t.album.name);
    if (t.preview_url) {
      key(w, "preview_url");
      string(w, *t.preview_url);
    }
    w.EndObject();
  }
  w.EndArray();
  key(w, "albums");
  w.StartArray();
  for (const SearchAlbum& a : value.albums) {
    w.StartObject();
    key(w, "uri");
    string(w, a.uri);
    key(w, "name");
    string(w, a.name);
    key(w, "release_date");
    string(w, a.release_date);
    key(w, "total_tracks");
    w.Int(a.total_tracks);
    key(w, "artists");
    write_artists(w, a.artists);
    w.EndObject();
  }
  w.EndArray();
  key(w, "artists");
  w.StartArray();
  for (const SearchArtist& a : value.artists) {
    w.StartObject();
    key(w, "uri");
    string(w, a.uri);
    key(w, "name");
    string(w, a.name);
    key(w, "followers");
    w.Int64(a.followers);
    key(w, "genres");
    w.StartArray();
    for (const std::string& g : a.genres) string(w, g);
    w.EndArray();
    key(w, "score");
    w.Double(a.score);
    w.EndObject();
  }
  w.EndArray();
  key(w, "playlists");
  w.StartArray();
  for (const SearchPlaylist& p : value.playlists) {
    w.StartObject();
    key(w, "uri");
    string(w, p.uri);
    key(w, "name");
    string(w, p.name);
    key(w, "description");
    string(w, p.description);
    key(w, "owner");
    write_pair(w, p.owner, "uri", p.owner.uri, "display_name", p.owner.display_name);
    key(w, "track_count");
    w.Int(p.track_count);
    w.EndObject();
  }
  w.EndArray();
  w.EndObject();
  return std::string(buffer.GetString(), buffer.GetSize());
}

// ------------------------------------------------------------ nlohmann-json

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

// ------------------------------------------------------ simdjson On Demand

namespace {

namespace od = simdjson::ondemand;

std::string read_text(od::value value) { return std::string(std::string_view(value.get_string())); }

template <class Record>
Record read_pair(od::object object, std::string Record::*first, std::string_view first_key,
                 std::string Record::*second) {
  Record record;
  for (auto field : object) {
    const std::string_view k = field.unescaped_key();
    if (k == first_key) {
      record.*first = read_text(field.value());
    } else {
      record.*second = read_text(field.value());
    }
  }
  return record;
}

std::vector<Artist> read_artists(od::array array) {
  std::vector<Artist> artists;
  for (auto element : array) artists.push_back(read_pair(element.get_object(), &Artist::uri, "uri", &Artist::name));
  return artists;
}

LibraryItem read_item(od::object object) {
  LibraryItem item;
  for (auto field : object) {
    const std::string_view k = field.unescaped_key();
    if (k == "uri") item.uri = read_text(field.value());
    else if (k == "name") item.name = read_text(field.value());
    else if (k == "type") item.type = read_text(field.value());
    else if (k == "artists") item.artists = read_artists(field.value().get_array());
    else if (k == "album") item.album = read_pair(field.value().get_object(), &AlbumRef::uri, "uri", &AlbumRef::name);
  }
  return item;
}

SearchTrack read_track(od::object object) {
  SearchTrack track;
  for (auto field : object) {
    const std::string_view k = field.unescaped_key();
    if (k == "uri") track.uri = read_text(field.value());
    else if (k == "name") track.name = read_text(field.value());
    else if (k == "duration_ms") track.duration_ms = static_cast<std::int32_t>(std::int64_t(field.value().get_int64()));
    else if (k == "explicit") track.is_explicit = field.value().get_bool();
    else if (k == "popularity") track.popularity = static_cast<std::int32_t>(std::int64_t(field.value().get_int64()));
    else if (k == "artists") track.artists = read_artists(field.value().get_array());
    else if (k == "album") track.album = read_pair(field.value().get_object(), &AlbumRef::uri, "uri", &AlbumRef::name);
    else if (k == "preview_url") track.preview_url = read_text(field.value());
  }
  return track;
}

SearchAlbum read_search_album(od::object object) {
  SearchAlbum album;
  for (auto field : object) {
    const std::string_view k = field.unescaped_key();
    if (k == "uri") album.uri = read_text(field.value());
    else if (k == "name") album.name = read_text(field.value());
    else if (k == "release_date") album.release_date = read_text(field.value());
    else if (k == "total_tracks") album.total_tracks = static_cast<std::int32_t>(std::int64_t(field.value().get_int64()));
    else if (k == "artists") album.artists = read_artists(field.value().get_array());
  }
  return album;
}

SearchArtist read_search_artist(od::object object) {
  SearchArtist artist;
  for (auto field : object) {
    const std::string_view k = field.unescaped_key();
    if (k == "uri") artist.uri = read_text(field.value());
    else if (k == "name") artist.name = read_text(field.value());
    else if (k == "followers") artist.followers = field.value().get_int64();
    else if (k == "genres") {
      for (auto genre : field.value().get_array()) artist.genres.push_back(read_text(genre.value()));
    } else if (k == "score") artist.score = field.value().get_double();
  }
  return artist;
}

SearchPlaylist read_playlist(od::object object) {
  SearchPlaylist playlist;
  for (auto field : object) {
    const std::string_view k = field.unescaped_key();
    if (k == "uri") playlist.uri = read_text(field.value());
    else if (k == "name") playlist.name = read_text(field.value());
    else if (k == "description") playlist.description = read_text(field.value());
    else if (k == "owner") playlist.owner = read_pair(field.value().get_object(), &Owner::uri, "uri", &Owner::display_name);
    else if (k == "track_count") playlist.track_count = static_cast<std::int32_t>(std::int64_t(field.value().get_int64()));
  }
  return playlist;
}

}  // namespace

struct SimdjsonOnDemand::State {
  explicit State(const std::string& text) : padded(text) {}
  simdjson::padded_string padded;
  od::parser parser;
};

SimdjsonOnDemand::SimdjsonOnDemand(const std::string& text) : state_(new State(text)) {}
SimdjsonOnDemand::~SimdjsonOnDemand() { delete state_; }

void SimdjsonOnDemand::decode(LibraryList& out) {
  od::document document = state_->parser.iterate(state_->padded);
  LibraryList list;
  for (auto field : document.get_object()) {
    const std::string_view k = field.unescaped_key();
    if (k == "items") {
      for (auto item : field.value().get_array()) list.items.push_back(read_item(item.get_object()));
    } else if (k == "total") {
      list.total = static_cast<std::int32_t>(std::int64_t(field.value().get_int64()));
    } else if (k == "offset") {
      list.offset = static_cast<std::int32_t>(std::int64_t(field.value().get_int64()));
    }
  }
  out = std::move(list);
}

void SimdjsonOnDemand::decode(SearchResult& out) {
  od::document document = state_->parser.iterate(state_->padded);
  SearchResult result;
  for (auto field : document.get_object()) {
    const std::string_view k = field.unescaped_key();
    if (k == "tracks") {
      for (auto t : field.value().get_array()) result.tracks.push_back(read_track(t.get_object()));
    } else if (k == "albums") {
      for (auto a : field.value().get_array()) result.albums.push_back(read_search_album(a.get_object()));
    } else if (k == "artists") {
      for (auto a : field.value().get_array()) result.artists.push_back(read_search_artist(a.get_object()));
    } else if (k == "playlists") {
      for (auto p : field.value().get_array()) result.playlists.push_back(read_playlist(p.get_object()));
    }
  }
  out = std::move(result);
}

}  // namespace orvanta::bench
