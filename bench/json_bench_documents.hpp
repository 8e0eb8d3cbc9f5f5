// The two documents of the json benchmark, their plain structs and our
// codecs for them, written the way a record author writes them.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "json/json.hpp"

namespace orvanta::bench {

struct Artist {
  std::string uri;
  std::string name;
  bool operator==(const Artist&) const = default;
};

struct AlbumRef {
  std::string uri;
  std::string name;
  bool operator==(const AlbumRef&) const = default;
};

struct LibraryItem {
  std::string uri;
  std::string name;
  std::string type;
  std::vector<Artist> artists;
  std::optional<AlbumRef> album;
  bool operator==(const LibraryItem&) const = default;
};

struct LibraryList {
  std::vector<LibraryItem> items;
  std::int32_t total = 0;
  std::int32_t offset = 0;
  bool operator==(const LibraryList&) const = default;
};

struct SearchTrack {
  std::string uri;
  std::string name;
  std::int32_t duration_ms = 0;
  bool is_explicit = false;
  std::int32_t popularity = 0;
  std::vector<Artist> artists;
  AlbumRef album;
  std::optional<std::string> preview_url;
  bool operator==(const SearchTrack&) const = default;
};

struct SearchAlbum {
  std::string uri;
  std::string name;
  std::string release_date;
  std::int32_t total_tracks = 0;
  std::vector<Artist> artists;
  bool operator==(const SearchAlbum&) const = default;
};

struct SearchArtist {
  std::string uri;
  std::string name;
  std::int64_t followers = 0;
  std::vector<std::string> genres;
  double score = 0;
  bool operator==(const SearchArtist&) const = default;
};

struct Owner {
  std::string uri;
  std::string display_name;
  bool operator==(const Owner&) const = default;
};

struct SearchPlaylist {
  std::string uri;
  std::string name;
  std::string description;
  Owner owner;
  std::int32_t track_count = 0;
  bool operator==(const SearchPlaylist&) const = default;
};

struct SearchResult {
  std::vector<SearchTrack> tracks;
  std::vector<SearchAlbum> albums;
  std::vector<SearchArtist> artists;
  std::vector<SearchPlaylist> playlists;
  bool operator==(const SearchResult&) const = default;
};

json::ObjectCodec<Artist> artist_codec();
json::ObjectCodec<AlbumRef> album_ref_codec();
json::ObjectCodec<LibraryItem> library_item_codec();
json::ObjectCodec<LibraryList> library_list_codec();
json::ObjectCodec<SearchResult> search_result_codec();

// Generated from a fixed seed: the library list has 10,000 items.
LibraryList make_library_list();
SearchResult make_search_result();

}  // namespace orvanta::bench
