// Records of the content queries: search, lookup, taste profile and
// listening history.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "json/json.hpp"

namespace orvanta::messages {

// ---- Search ----

struct SearchRequest {
  std::string query{};
  std::optional<std::string> type{};
  std::optional<std::int32_t> limit{};
  bool operator==(const SearchRequest&) const = default;
};

struct SearchArtist {
  std::string uri{};
  std::string name{};
  std::optional<std::int64_t> monthly_listeners{};
  std::optional<std::string> image{};
  bool operator==(const SearchArtist&) const = default;
};

struct SearchTrack {
  std::string uri{};
  std::string name{};
  std::vector<std::string> artists{};
  std::optional<std::string> image{};
  bool operator==(const SearchTrack&) const = default;
};

struct SearchAlbum {
  std::string uri{};
  std::string name{};
  std::vector<std::string> artists{};
  std::optional<std::string> image{};
  bool operator==(const SearchAlbum&) const = default;
};

struct SearchPlaylist {
  std::string uri{};
  std::string name{};
  std::optional<std::string> author{};
  std::optional<std::string> image{};
  bool operator==(const SearchPlaylist&) const = default;
};

struct SearchShow {
  std::string uri{};
  std::string name{};
  std::optional<std::string> image{};
  bool operator==(const SearchShow&) const = default;
};

struct SearchEpisode {
  std::string uri{};
  std::string name{};
  std::optional<std::string> image{};
  bool operator==(const SearchEpisode&) const = default;
};

struct SearchAudiobook {
  std::string uri{};
  std::string name{};
  std::vector<std::string> authors{};
  std::optional<std::string> image{};
  bool operator==(const SearchAudiobook&) const = default;
};

struct SearchTopHit {
  std::string uri{};
  std::string name{};
  std::optional<std::string> image{};
  bool operator==(const SearchTopHit&) const = default;
};

// A titled list of playlists.
struct SearchRecommendations {
  std::string title{};
  std::vector<SearchPlaylist> playlists{};
  bool operator==(const SearchRecommendations&) const = default;
};

struct SearchResponse {
  std::vector<SearchArtist> artists{};
  std::vector<SearchTrack> tracks{};
  std::vector<SearchAlbum> albums{};
  std::vector<SearchPlaylist> playlists{};
  std::vector<SearchShow> shows{};
  std::vector<SearchEpisode> episodes{};
  std::vector<SearchAudiobook> audiobooks{};
  std::optional<SearchTopHit> top_hit{};
  std::optional<SearchRecommendations> top_recommendations{};
  std::vector<std::string> categories_order{};
  bool operator==(const SearchResponse&) const = default;
};

// ---- Lookup ----

struct LookupRequest {
  std::vector<std::string> uris{};
  std::optional<std::vector<std::string>> fields{};
  bool operator==(const LookupRequest&) const = default;
};

// The entity that contains a looked-up one.
struct LookupParent {
  std::string name{};
  std::string uri{};
  bool operator==(const LookupParent&) const = default;
};

struct LookupContributor {
  std::string name{};
  std::optional<std::string> uri{};
  bool operator==(const LookupContributor&) const = default;
};

struct LookupMetadataField {
  std::string field{};
  std::string value{};
  bool operator==(const LookupMetadataField&) const = default;
};

struct LookupEntity {
  std::string uri{};
  std::string type{};
  std::string name{};
  std::optional<std::string> description{};
  std::optional<LookupParent> parent{};
  std::vector<LookupContributor> contributors{};
  std::optional<std::string> image_url{};
  std::vector<LookupMetadataField> metadata{};
  bool operator==(const LookupEntity&) const = default;
};

struct LookupResponse {
  std::vector<LookupEntity> entities{};
  bool operator==(const LookupResponse&) const = default;
};

// ---- Taste and history ----

struct TasteProfileResponse {
  std::string musical_identity{};
  std::string content_rhythms{};
  std::string what_makes_you_distinctive{};
  std::optional<std::string> podcast_and_audiobook_taste{};
  std::vector<std::string> artist_uris{};
  std::vector<std::string> show_uris{};
  std::vector<std::string> audiobook_uris{};
  bool operator==(const TasteProfileResponse&) const = default;
};

// The two history methods take the same fields and return the same items,
// but they stay separate types so that each wire method names its own.
struct HistoryTopRequest {
  std::optional<std::string> type{};
  std::optional<std::int32_t> limit{};
  bool operator==(const HistoryTopRequest&) const = default;
};

struct HistoryRecentRequest {
  std::optional<std::string> type{};
  std::optional<std::int32_t> limit{};
  bool operator==(const HistoryRecentRequest&) const = default;
};

struct HistoryItem {
  std::string uri{};
  std::string name{};
  std::optional<std::int64_t> played_seconds{};
  std::optional<std::string> last_played_at{};
  bool operator==(const HistoryItem&) const = default;
};

struct HistoryTopResponse {
  std::vector<HistoryItem> items{};
  bool operator==(const HistoryTopResponse&) const = default;
};

struct HistoryRecentResponse {
  std::vector<HistoryItem> items{};
  bool operator==(const HistoryRecentResponse&) const = default;
};

json::ObjectCodec<SearchRequest> search_request_codec();
json::ObjectCodec<SearchArtist> search_artist_codec();
json::ObjectCodec<SearchTrack> search_track_codec();
json::ObjectCodec<SearchAlbum> search_album_codec();
json::ObjectCodec<SearchPlaylist> search_playlist_codec();
json::ObjectCodec<SearchShow> search_show_codec();
json::ObjectCodec<SearchEpisode> search_episode_codec();
json::ObjectCodec<SearchAudiobook> search_audiobook_codec();
json::ObjectCodec<SearchTopHit> search_top_hit_codec();
json::ObjectCodec<SearchRecommendations> search_recommendations_codec();
json::ObjectCodec<SearchResponse> search_response_codec();

json::ObjectCodec<LookupRequest> lookup_request_codec();
json::ObjectCodec<LookupParent> lookup_parent_codec();
json::ObjectCodec<LookupContributor> lookup_contributor_codec();
json::ObjectCodec<LookupMetadataField> lookup_metadata_field_codec();
json::ObjectCodec<LookupEntity> lookup_entity_codec();
json::ObjectCodec<LookupResponse> lookup_response_codec();

json::ObjectCodec<TasteProfileResponse> taste_profile_response_codec();
json::ObjectCodec<HistoryTopRequest> history_top_request_codec();
json::ObjectCodec<HistoryRecentRequest> history_recent_request_codec();
json::ObjectCodec<HistoryItem> history_item_codec();
json::ObjectCodec<HistoryTopResponse> history_top_response_codec();
json::ObjectCodec<HistoryRecentResponse> history_recent_response_codec();

}  // namespace orvanta::messages
