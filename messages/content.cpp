#include "messages/content.hpp"

namespace orvanta::messages {

using json::presence::optional;
using json::presence::required;

// ---- Search ----

json::ObjectCodec<SearchRequest> search_request_codec() {
  using R = SearchRequest;
  json::ObjectCodec<R> codec;
  codec.add_field("query", required, &R::query);
  codec.add_field("type",  optional, &R::type);
  codec.add_field("limit", optional, &R::limit);
  return codec;
}

json::ObjectCodec<SearchArtist> search_artist_codec() {
  using R = SearchArtist;
  json::ObjectCodec<R> codec;
  codec.add_field("uri",               required, &R::uri);
  codec.add_field("name",              required, &R::name);
  codec.add_field("monthly_listeners", optional, &R::monthly_listeners);
  codec.add_field("image",             optional, &R::image);
  return codec;
}

json::ObjectCodec<SearchTrack> search_track_codec() {
  using R = SearchTrack;
  json::ObjectCodec<R> codec;
  codec.add_field("uri",     required, &R::uri);
  codec.add_field("name",    required, &R::name);
  codec.add_field("artists", required, &R::artists);
  codec.add_field("image",   optional, &R::image);
  return codec;
}

json::ObjectCodec<SearchAlbum> search_album_codec() {
  using R = SearchAlbum;
  json::ObjectCodec<R> codec;
  codec.add_field("uri",     required, &R::uri);
  codec.add_field("name",    required, &R::name);
  codec.add_field("artists", required, &R::artists);
  codec.add_field("image",   optional, &R::image);
  return codec;
}

json::ObjectCodec<SearchPlaylist> search_playlist_codec() {
  using R = SearchPlaylist;
  json::ObjectCodec<R> codec;
  codec.add_field("uri",    required, &R::uri);
  codec.add_field("name",   required, &R::name);
  codec.add_field("author", optional, &R::author);
  codec.add_field("image",  optional, &R::image);
  return codec;
}

json::ObjectCodec<SearchShow> search_show_codec() {
  using R = SearchShow;
  json::ObjectCodec<R> codec;
  codec.add_field("uri",   required, &R::uri);
  codec.add_field("name",  required, &R::name);
  codec.add_field("image", optional, &R::image);
  return codec;
}

json::ObjectCodec<SearchEpisode> search_episode_codec() {
  using R = SearchEpisode;
  json::ObjectCodec<R> codec;
  codec.add_field("uri",   required, &R::uri);
  codec.add_field("name",  required, &R::name);
  codec.add_field("image", optional, &R::image);
  return codec;
}

json::ObjectCodec<SearchAudiobook> search_audiobook_codec() {
  using R = SearchAudiobook;
  json::ObjectCodec<R> codec;
  codec.add_field("uri",     required, &R::uri);
  codec.add_field("name",    required, &R::name);
  codec.add_field("authors", required, &R::authors);
  codec.add_field("image",   optional, &R::image);
  return codec;
}

json::ObjectCodec<SearchTopHit> search_top_hit_codec() {
  using R = SearchTopHit;
  json::ObjectCodec<R> codec;
  codec.add_field("uri",   required, &R::uri);
  codec.add_field("name",  required, &R::name);
  codec.add_field("image", optional, &R::image);
  return codec;
}

json::ObjectCodec<SearchRecommendations> search_recommendations_codec() {
  using R = SearchRecommendations;
  json::ObjectCodec<R> codec;
  codec.add_field("title",     required, &R::title);
  codec.add_field("playlists", required, &R::playlists, json::list_codec(search_playlist_codec()));
  return codec;
}

json::ObjectCodec<SearchResponse> search_response_codec() {
  using R = SearchResponse;
  json::ObjectCodec<R> codec;
  codec.add_field("artists",             required, &R::artists,    json::list_codec(search_artist_codec()));
  codec.add_field("tracks",              required, &R::tracks,     json::list_codec(search_track_codec()));
  codec.add_field("albums",              required, &R::albums,     json::list_codec(search_album_codec()));
  codec.add_field("playlists",           required, &R::playlists,  json::list_codec(search_playlist_codec()));
  codec.add_field("shows",               required, &R::shows,      json::list_codec(search_show_codec()));
  codec.add_field("episodes",            required, &R::episodes,   json::list_codec(search_episode_codec()));
  codec.add_field("audiobooks",          required, &R::audiobooks, json::list_codec(search_audiobook_codec()));
  codec.add_field("top_hit",             optional, &R::top_hit,    search_top_hit_codec());
  codec.add_field("top_recommendations", optional, &R::top_recommendations, search_recommendations_codec());
  codec.add_field("categories_order",    required, &R::categories_order);
  return codec;
}

// ---- Lookup ----

json::ObjectCodec<LookupRequest> lookup_request_codec() {
  using R = LookupRequest;
  json::ObjectCodec<R> codec;
  codec.add_field("uris",   required, &R::uris);
  codec.add_field("fields", optional, &R::fields);
  return codec;
}

json::ObjectCodec<LookupParent> lookup_parent_codec() {
  using R = LookupParent;
  json::ObjectCodec<R> codec;
  codec.add_field("name", required, &R::name);
  codec.add_field("uri",  required, &R::uri);
  return codec;
}

json::ObjectCodec<LookupContributor> lookup_contributor_codec() {
  using R = LookupContributor;
  json::ObjectCodec<R> codec;
  codec.add_field("name", required, &R::name);
  codec.add_field("uri",  optional, &R::uri);
  return codec;
}

json::ObjectCodec<LookupMetadataField> lookup_metadata_field_codec() {
  using R = LookupMetadataField;
  json::ObjectCodec<R> codec;
  codec.add_field("field", required, &R::field);
  codec.add_field("value", required, &R::value);
  return codec;
}

json::ObjectCodec<LookupEntity> lookup_entity_codec() {
  using R = LookupEntity;
  json::ObjectCodec<R> codec;
  codec.add_field("uri",          required, &R::uri);
  codec.add_field("type",         required, &R::type);
  codec.add_field("name",         required, &R::name);
  codec.add_field("description",  optional, &R::description);
  codec.add_field("parent",       optional, &R::parent,       lookup_parent_codec());
  codec.add_field("contributors", required, &R::contributors, json::list_codec(lookup_contributor_codec()));
  codec.add_field("image_url",    optional, &R::image_url);
  codec.add_field("metadata",     required, &R::metadata,     json::list_codec(lookup_metadata_field_codec()));
  return codec;
}

json::ObjectCodec<LookupResponse> lookup_response_codec() {
  using R = LookupResponse;
  json::ObjectCodec<R> codec;
  codec.add_field("entities", required, &R::entities, json::list_codec(lookup_entity_codec()));
  return codec;
}

// ---- Taste and history ----

json::ObjectCodec<TasteProfileResponse> taste_profile_response_codec() {
  using R = TasteProfileResponse;
  json::ObjectCodec<R> codec;
  codec.add_field("musical_identity",            required, &R::musical_identity);
  codec.add_field("content_rhythms",             required, &R::content_rhythms);
  codec.add_field("what_makes_you_distinctive",  required, &R::what_makes_you_distinctive);
  codec.add_field("podcast_and_audiobook_taste", optional, &R::podcast_and_audiobook_taste);
  codec.add_field("artist_uris",                 required, &R::artist_uris);
  codec.add_field("show_uris",                   required, &R::show_uris);
  codec.add_field("audiobook_uris",              required, &R::audiobook_uris);
  return codec;
}

json::ObjectCodec<HistoryTopRequest> history_top_request_codec() {
  using R = HistoryTopRequest;
  json::ObjectCodec<R> codec;
  codec.add_field("type",  optional, &R::type);
  codec.add_field("limit", optional, &R::limit);
  return codec;
}

json::ObjectCodec<HistoryRecentRequest> history_recent_request_codec() {
  using R = HistoryRecentRequest;
  json::ObjectCodec<R> codec;
  codec.add_field("type",  optional, &R::type);
  codec.add_field("limit", optional, &R::limit);
  return codec;
}

json::ObjectCodec<HistoryItem> history_item_codec() {
  using R = HistoryItem;
  json::ObjectCodec<R> codec;
  codec.add_field("uri",            required, &R::uri);
  codec.add_field("name",           required, &R::name);
  codec.add_field("played_seconds", optional, &R::played_seconds);
  codec.add_field("last_played_at", optional, &R::last_played_at);
  return codec;
}

json::ObjectCodec<HistoryTopResponse> history_top_response_codec() {
  using R = HistoryTopResponse;
  json::ObjectCodec<R> codec;
  codec.add_field("items", required, &R::items, json::list_codec(history_item_codec()));
  return codec;
}

json::ObjectCodec<HistoryRecentResponse> history_recent_response_codec() {
  using R = HistoryRecentResponse;
  json::ObjectCodec<R> codec;
  codec.add_field("items", required, &R::items, json::list_codec(history_item_codec()));
  return codec;
}

}  // namespace orvanta::messages
