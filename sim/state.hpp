#pragma once

// The simulator's whole world: one user, a small catalogue, what the user
// saved and arranged, the player, the devices, a Rondo session, Podroom and
// chat. Plain data, read from and written to JSON by state_codec; the
// handlers change it and nothing else does.
//
// URIs have the shape "orvanta:<type>:<id>"; folders are
// "orvanta:user:<username>:folder:<id>". Catalogue records name other
// records by URI only, so a state file stays flat and easy to edit.

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "messages/record_codecs.hpp"

namespace orvanta::sim {

struct Artist {
  std::string uri;
  std::string name;
  std::int64_t monthly_listeners = 0;
  std::int64_t followers = 0;
  bool is_verified = false;
  std::vector<std::string> genres;
  std::optional<std::string> image;
  std::optional<std::string> description;
};

struct Album {
  std::string uri;
  std::string name;
  std::vector<std::string> artist_uris;
  std::string release_date;
  std::string copyright;
  std::vector<std::string> genres;
  std::optional<std::string> image;
};

struct Track {
  std::string uri;
  std::string name;
  std::vector<std::string> artist_uris;
  std::string album_uri;
  std::uint32_t duration_ms = 0;
  std::int64_t total_plays = 0;
  std::int32_t bpm = 0;
  std::string key;
  std::string mode;
  std::string camelot_key;
  bool is_explicit = false;
};

struct Show {
  std::string uri;
  std::string name;
  std::string publisher;
  std::string description;
  std::string rating;
  std::int32_t rating_count = 0;
  std::optional<std::string> image;
};

struct Episode {
  std::string uri;
  std::string name;
  std::string show_uri;
  std::string description;
  std::uint32_t duration_ms = 0;
  std::string release_date;
};

struct Audiobook {
  std::string uri;
  std::string name;
  std::vector<std::string> authors;
  std::vector<std::string> narrators;
  std::string description;
  std::uint32_t duration_ms = 0;
  std::string release_date;
};

// `items` are track and episode URIs; `revision` makes the snapshot id and
// goes up with every change of the items.
struct Playlist {
  std::string uri;
  std::string name;
  std::string description;
  std::string owner;
  bool collaborative = false;
  bool is_public = false;
  std::int32_t revision = 1;
  std::optional<std::string> cover_image_path;
  std::vector<std::string> items;
};

// A playlist folder; `children` are folder and playlist URIs in display order.
struct Folder {
  std::string uri;
  std::string name;
  std::vector<std::string> children;
};

struct SavedItem {
  std::string uri;
  std::string added_at;
};

struct Play {
  std::string uri;
  std::int64_t played_seconds = 0;
  std::string last_played_at;
};

struct Player {
  std::optional<std::string> track_uri;
  std::optional<std::string> context_uri;
  bool is_playing = false;
  std::int32_t position_ms = 0;
  bool shuffle = false;
  std::string repeat = "off";
  std::int32_t speed = 100;  // hundredths
  double volume = 0.5;
};

struct QueueEntry {
  std::string uri;
  std::string uid;
};

// `guests` join a session as soon as the user creates one.
struct Rondo {
  bool active = false;
  std::string session_id;
  bool is_session_owner = false;
  bool queue_only_mode = false;
  bool volume_control_enabled = true;
  std::vector<messages::RondoMember> members;
  // The count the session reports, when a state sets it apart from the list
  // (members still joining); otherwise the list's length.
  std::optional<std::int32_t> member_count;
  std::optional<std::string> join_token;
  std::vector<messages::RondoMember> guests;
};

struct PodroomShow {
  std::string show_uri;
  std::string title;
  std::string description;
  std::string language;
  std::string created_at;
  std::optional<std::string> last_episode_uploaded_at;
  std::optional<std::string> image;
};

// `readiness` moves from "processing" to "ready" once somebody asked.
struct PodroomEpisode {
  std::string episode_uri;
  std::string show_uri;
  std::string title;
  std::string description;
  std::string language;
  std::string media_type;
  std::string status;
  std::string readiness;
  std::string created_at;
  std::string file;
  std::vector<messages::TimelineItem> timeline;
};

struct Podroom {
  std::optional<std::string> last_show_uri;
  std::vector<PodroomShow> shows;
  std::vector<PodroomEpisode> episodes;
};

struct ChatThread {
  messages::ChatConversation conversation;
  std::vector<messages::ChatMessage> messages;
};

struct Permissions {
  std::optional<messages::PermissionRequest> pending;
  std::vector<std::string> granted_commands;
};

struct Account {
  bool logged_in = true;
  messages::MeResponse user;
  messages::GetUsernameHashResponse username_hash;
  bool message_auth_policy = false;
};

struct SimState {
  std::string app_version;
  Account account;
  std::vector<Artist> artists;
  std::vector<Album> albums;
  std::vector<Track> tracks;
  std::vector<Show> shows;
  std::vector<Episode> episodes;
  std::vector<Audiobook> audiobooks;
  std::vector<Playlist> playlists;
  // How search answers are laid out: the client's section order (absent:
  // the usual one) and its editorial playlists, added to every answer.
  std::optional<std::vector<std::string>> search_categories_order;
  std::optional<messages::SearchRecommendations> search_recommendations;
  messages::TasteProfileResponse taste;
  std::vector<Play> history;
  std::vector<SavedItem> library;
  std::vector<std::string> sidebar;  // the top level of the folder tree
  std::vector<Folder> folders;
  std::string active_device_id;
  std::vector<messages::ConnectDevice> devices;
  bool broadcasting = false;
  Player player;
  std::vector<QueueEntry> queue;
  std::uint64_t queue_revision = 1;
  Rondo rondo;
  Podroom podroom;
  std::vector<ChatThread> chats;
  Permissions permissions;
  std::vector<messages::BrowserListItem> browsers;
  std::uint64_t next_id = 1;  // for the ids of everything made at run time
};

}  // namespace orvanta::sim
