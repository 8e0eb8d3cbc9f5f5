// simdjson On Demand on the benchmark documents, straight into the structs.
#include "json_bench_peers.hpp"

#include <simdjson.h>

#include <string_view>

namespace orvanta::bench {

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
