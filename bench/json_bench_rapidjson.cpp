// RapidJSON on the benchmark documents: DOM parse then copy into the
// structs, and its Writer from them.
#include "json_bench_peers.hpp"

// RapidJSON at its best baseline: SSE2 scans for whitespace and strings.
#define RAPIDJSON_SSE2
#include <rapidjson/document.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <stdexcept>
#include <string_view>

namespace orvanta::bench {

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

}  // namespace orvanta::bench
