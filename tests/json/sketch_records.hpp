// The records of the usage sketch at the top of json/object_codec.hpp, kept
// here so that the sketch compiles and is tested as written.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "json/json.hpp"

namespace orvanta::json::sketch {

enum class LoginSource : std::int32_t { zeroconf = 0, pull_notification = 1 };

struct Artist {
  std::string uri;
  std::string name;
  bool operator==(const Artist&) const = default;
};

struct Item {
  std::string uri;
  std::int32_t duration_ms = 0;
  std::vector<std::string> tags;
  std::vector<Artist> artists;
  std::optional<Artist> album;
  std::optional<std::int64_t> added_at;
  std::map<std::string, bool> contains;
  RawJsonValue extra;
  std::optional<std::string> id;
  LoginSource source = LoginSource::zeroconf;
  bool operator==(const Item&) const = default;
};

inline EnumerationCodec<LoginSource> login_source_codec() {
  return enumeration_codec<LoginSource>({
      {LoginSource::zeroconf, "zeroconf"},
      {LoginSource::pull_notification, "pull_notification"},
  });
}

inline ObjectCodec<Artist> artist_codec() {
  using presence::required;
  using R = Artist;
  ObjectCodec<R> codec;
  codec.add_field("uri",  required, &R::uri);
  codec.add_field("name", required, &R::name);
  return codec;
}

inline ObjectCodec<Item> item_codec() {
  using presence::required, presence::defaulted, presence::optional;
  using R = Item;
  ObjectCodec<R> codec;
  codec.add_field("uri",         required,  &R::uri);
  codec.add_field("duration_ms", defaulted, &R::duration_ms);
  codec.add_field("tags",        required,  &R::tags);
  codec.add_field("artists",     required,  &R::artists,  list_codec(artist_codec()));
  codec.add_field("album",       optional,  &R::album,    artist_codec());
  codec.add_field("added_at",    optional,  &R::added_at);
  codec.add_field("contains",    required,  &R::contains);
  codec.add_field("extra",       defaulted, &R::extra);
  codec.add_field("id",          optional,  &R::id,       or_null(string_codec()));
  codec.add_field("source",      required,  &R::source,   login_source_codec());
  return codec;
}

}  // namespace orvanta::json::sketch
