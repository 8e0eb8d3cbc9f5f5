#include "json_bench_documents.hpp"

#include <random>

namespace orvanta::bench {

using json::presence::required, json::presence::defaulted, json::presence::optional;

json::ObjectCodec<Artist> artist_codec() {
  using R = Artist;
  json::ObjectCodec<R> codec;
  codec.add_field("uri",  required, &R::uri);
  codec.add_field("name", required, &R::name);
  return codec;
}

json::ObjectCodec<AlbumRef> album_ref_codec() {
  using R = AlbumRef;
  json::ObjectCodec<R> codec;
  codec.add_field("uri",  required, &R::uri);
  codec.add_field("name", required, &R::name);
  return codec;
}

json::ObjectCodec<LibraryItem> library_item_codec() {
  using R = LibraryItem;
  json::ObjectCodec<R> codec;
  codec.add_field("uri",     required, &R::uri);
  codec.add_field("name",    required, &R::name);
  codec.add_field("type",    required, &R::type);
  codec.add_field("artists", required, &R::artists, json::list_codec(artist_codec()));
  codec.add_field("album",   optional, &R::album,   album_ref_codec());
  return codec;
}

json::ObjectCodec<LibraryList> library_list_codec() {
  using R = LibraryList;
  json::ObjectCodec<R> codec;
  codec.add_field("items",  required, &R::items, json::list_codec(library_item_codec()));
  codec.add_field("total",  required, &R::total);
  codec.add_field("offset", defaulted, &R::offset);
  return codec;
}

namespace {

json::ObjectCodec<SearchTrack> search_track_codec() {
  using R = SearchTrack;
  json::ObjectCodec<R> codec;
  codec.add_field("uri",         required,  &R::uri);
  codec.add_field("name",        required,  &R::name);
  codec.add_field("duration_ms", required,  &R::duration_ms);
  codec.add_field("explicit",    defaulted, &R::is_explicit);
  codec.add_field("popularity",  defaulted, &R::popularity);
  codec.add_field("artists",     required,  &R::artists, json::list_codec(artist_codec()));
  codec.add_field("album",       required,  &R::album,   album_ref_codec());
  codec.add_field("preview_url", optional,  &R::preview_url);
  return codec;
}

json::ObjectCodec<SearchAlbum> search_album_codec() {
  using R = SearchAlbum;
  json::ObjectCodec<R> codec;
  codec.add_field("uri",          required, &R::uri);
  codec.add_field("name",         required, &R::name);
  codec.add_field("release_date", required, &R::release_date);
  codec.add_field("total_tracks", required, &R::total_tracks);
  codec.add_field("artists",      required, &R::artists, json::list_codec(artist_codec()));
  return codec;
}

json::ObjectCodec<SearchArtist> search_artist_codec() {
  using R = SearchArtist;
  json::ObjectCodec<R> codec;
  codec.add_field("uri",       required,  &R::uri);
  codec.add_field("name",      required,  &R::name);
  codec.add_field("followers", defaulted, &R::followers);
  codec.add_field("genres",    defaulted, &R::genres);
  codec.add_field("score",     defaulted, &R::score);
  return codec;
}

json::ObjectCodec<Owner> owner_codec() {
  using R = Owner;
  json::ObjectCodec<R> codec;
  codec.add_field("uri",          required, &R::uri);
  codec.add_field("display_name", required, &R::display_name);
  return codec;
}

json::ObjectCodec<SearchPlaylist> search_playlist_codec() {
  using R = SearchPlaylist;
  json::ObjectCodec<R> codec;
  codec.add_field("uri",         required,  &R::uri);
  codec.add_field("name",        required,  &R::name);
  codec.add_field("description", defaulted, &R::description);
  codec.add_field("owner",       required,  &R::owner, owner_codec());
  codec.add_field("track_count", required,  &R::track_count);
  return codec;
}

}  // namespace

json::ObjectCodec<SearchResult> search_result_codec() {
  using R = SearchResult;
  json::ObjectCodec<R> codec;
  codec.add_field("tracks",    required, &R::tracks,    json::list_codec(search_track_codec()));
  codec.add_field("albums",    required, &R::albums,    json::list_codec(search_album_codec()));
  codec.add_field("artists",   required, &R::artists,   json::list_codec(search_artist_codec()));
  codec.add_field("playlists", required, &R::playlists, json::list_codec(search_playlist_codec()));
  return codec;
}

namespace {

// Text that looks like catalogue names: mostly ASCII words, some UTF-8, now
// and then a quote or a backslash that needs an escape.
class TextMaker {
 public:
  explicit TextMaker(std::uint64_t seed) : random_(seed) {}

  std::string id() {
    static const char kAlphabet[] = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
    std::string text(22, '0');
    for (char& c : text) c = kAlphabet[random_() % 62];
    return text;
  }

  std::string uri(const char* kind) { return std::string("orvanta:") + kind + ":" + id(); }

  std::string words(int lowest, int highest) {
    static const char* const kWords[] = {"love", "night", "the", "blue", "river", "Caf\xC3\xA9", "song",
                                         "of", "m\xC3\xBCller", "dream", "fire", "light", "city", "\xE6\x9D\xB1\xE4\xBA\xAC",
                                         "heart", "road", "summer", "\"live\"", "remix", "AC\\DC"};
    const int count = lowest + static_cast<int>(random_() % static_cast<unsigned>(highest - lowest + 1));
    std::string text;
    for (int i = 0; i < count; ++i) {
      if (i != 0) text += ' ';
      // The last two words (with escapes) are rarer.
      const auto pick = random_() % 100;
      text += kWords[pick < 96 ? pick % 18 : 18 + pick % 2];
    }
    return text;
  }

  std::uint64_t number(std::uint64_t below) { return random_() % below; }

 private:
  std::mt19937_64 random_;
};

std::vector<Artist> make_artists(TextMaker& maker, int lowest, int highest) {
  std::vector<Artist> artists(static_cast<std::size_t>(lowest) + maker.number(static_cast<std::uint64_t>(highest - lowest + 1)));
  for (Artist& artist : artists) {
    artist.uri = maker.uri("artist");
    artist.name = maker.words(1, 3);
  }
  return artists;
}

}  // namespace

LibraryList make_library_list() {
  TextMaker maker(20261123);
  static const char* const kTypes[] = {"track", "album", "playlist", "episode", "show"};
  LibraryList list;
  list.items.resize(10000);
  for (LibraryItem& item : list.items) {
    item.type = kTypes[maker.number(5)];
    item.uri = maker.uri(item.type.c_str());
    item.name = maker.words(1, 5);
    item.artists = make_artists(maker, 1, 3);
    if (maker.number(3) != 0) item.album = AlbumRef{maker.uri("album"), maker.words(1, 4)};
  }
  list.total = 10000;
  list.offset = 0;
  return list;
}

SearchResult make_search_result() {
  TextMaker maker(4711);
  SearchResult result;
  result.tracks.resize(250);
  for (SearchTrack& track : result.tracks) {
    track.uri = maker.uri("track");
    track.name = maker.words(1, 5);
    track.duration_ms = static_cast<std::int32_t>(60000 + maker.number(400000));
    track.is_explicit = maker.number(5) == 0;
    track.popularity = static_cast<std::int32_t>(maker.number(101));
    track.artists = make_artists(maker, 1, 3);
    track.album = AlbumRef{maker.uri("album"), maker.words(1, 4)};
    if (maker.number(2) == 0) track.preview_url = "https://p.orvanta.example/" + maker.id();
  }
  result.albums.resize(250);
  for (SearchAlbum& album : result.albums) {
    album.uri = maker.uri("album");
    album.name = maker.words(1, 4);
    album.release_date = std::to_string(1960 + maker.number(66)) + "-0" + std::to_string(1 + maker.number(9)) + "-1" +
                         std::to_string(maker.number(10));
    album.total_tracks = static_cast<std::int32_t>(1 + maker.number(30));
    album.artists = make_artists(maker, 1, 2);
  }
  result.artists.resize(250);
  for (SearchArtist& artist : result.artists) {
    artist.uri = maker.uri("artist");
    artist.name = maker.words(1, 3);
    artist.followers = static_cast<std::int64_t>(maker.number(50000000));
    for (std::uint64_t g = maker.number(4); g > 0; --g) artist.genres.push_back(maker.words(1, 2));
    artist.score = static_cast<double>(maker.number(1000000)) / 100.0;
  }
  result.playlists.resize(250);
  for (SearchPlaylist& playlist : result.playlists) {
    playlist.uri = maker.uri("playlist");
    playlist.name = maker.words(1, 4);
    playlist.description = maker.words(0, 12);
    playlist.owner = Owner{maker.uri("user"), maker.words(1, 2)};
    playlist.track_count = static_cast<std::int32_t>(maker.number(5000));
  }
  return result;
}

}  // namespace orvanta::bench
