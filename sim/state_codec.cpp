#include "sim/state_codec.hpp"

namespace orvanta::sim {

namespace {
using json::presence::defaulted;
using json::presence::optional;
using json::presence::required;
}  // namespace

// clang-format off
json::ObjectCodec<Artist> artist_codec() {
  using R = Artist;
  json::ObjectCodec<R> codec;
  codec.add_field("uri",               required,  &R::uri);
  codec.add_field("name",              required,  &R::name);
  codec.add_field("monthly_listeners", defaulted, &R::monthly_listeners);
  codec.add_field("followers",         defaulted, &R::followers);
  codec.add_field("is_verified",       defaulted, &R::is_verified);
  codec.add_field("genres",            defaulted, &R::genres);
  codec.add_field("image",             optional,  &R::image);
  codec.add_field("description",       optional,  &R::description);
  return codec;
}

json::ObjectCodec<Album> album_codec() {
  using R = Album;
  json::ObjectCodec<R> codec;
  codec.add_field("uri",          required,  &R::uri);
  codec.add_field("name",         required,  &R::name);
  codec.add_field("artist_uris",  defaulted, &R::artist_uris);
  codec.add_field("release_date", defaulted, &R::release_date);
  codec.add_field("copyright",    defaulted, &R::copyright);
  codec.add_field("genres",       defaulted, &R::genres);
  codec.add_field("image",        optional,  &R::image);
  return codec;
}

json::ObjectCodec<Track> track_codec() {
  using R = Track;
  json::ObjectCodec<R> codec;
  codec.add_field("uri",         required,  &R::uri);
  codec.add_field("name",        required,  &R::name);
  codec.add_field("artist_uris", defaulted, &R::artist_uris);
  codec.add_field("album_uri",   defaulted, &R::album_uri);
  codec.add_field("duration_ms", defaulted, &R::duration_ms);
  codec.add_field("total_plays", defaulted, &R::total_plays);
  codec.add_field("bpm",         defaulted, &R::bpm);
  codec.add_field("key",         defaulted, &R::key);
  codec.add_field("mode",        defaulted, &R::mode);
  codec.add_field("camelot_key", defaulted, &R::camelot_key);
  codec.add_field("explicit",    defaulted, &R::is_explicit);
  return codec;
}

json::ObjectCodec<Show> show_codec() {
  using R = Show;
  json::ObjectCodec<R> codec;
  codec.add_field("uri",          required,  &R::uri);
  codec.add_field("name",         required,  &R::name);
  codec.add_field("publisher",    defaulted, &R::publisher);
  codec.add_field("description",  defaulted, &R::description);
  codec.add_field("rating",       defaulted, &R::rating);
  codec.add_field("rating_count", defaulted, &R::rating_count);
  codec.add_field("image",        optional,  &R::image);
  return codec;
}

json::ObjectCodec<Episode> episode_codec() {
  using R = Episode;
  json::ObjectCodec<R> codec;
  codec.add_field("uri",          required,  &R::uri);
  codec.add_field("name",         required,  &R::name);
  codec.add_field("show_uri",     defaulted, &R::show_uri);
  codec.add_field("description",  defaulted, &R::description);
  codec.add_field("duration_ms",  defaulted, &R::duration_ms);
  codec.add_field("release_date", defaulted, &R::release_date);
  return codec;
}

json::ObjectCodec<Audiobook> audiobook_codec() {
  using R = Audiobook;
  json::ObjectCodec<R> codec;
  codec.add_field("uri",          required,  &R::uri);
  codec.add_field("name",         required,  &R::name);
  codec.add_field("authors",      defaulted, &R::authors);
  codec.add_field("narrators",    defaulted, &R::narrators);
  codec.add_field("description",  defaulted, &R::description);
  codec.add_field("duration_ms",  defaulted, &R::duration_ms);
  codec.add_field("release_date", defaulted, &R::release_date);
  return codec;
}

json::ObjectCodec<Playlist> playlist_codec() {
  using R = Playlist;
  json::ObjectCodec<R> codec;
  codec.add_field("uri",              required,  &R::uri);
  codec.add_field("name",             required,  &R::name);
  codec.add_field("description",      defaulted, &R::description);
  codec.add_field("owner",            defaulted, &R::owner);
  codec.add_field("collaborative",    defaulted, &R::collaborative);
  codec.add_field("is_public",        defaulted, &R::is_public);
  codec.add_field("revision",         defaulted, &R::revision);
  codec.add_field("cover_image_path", optional,  &R::cover_image_path);
  codec.add_field("items",            defaulted, &R::items);
  return codec;
}

json::ObjectCodec<Folder> folder_codec() {
  using R = Folder;
  json::ObjectCodec<R> codec;
  codec.add_field("uri",      required,  &R::uri);
  codec.add_field("name",     required,  &R::name);
  codec.add_field("children", defaulted, &R::children);
  return codec;
}

json::ObjectCodec<SavedItem> saved_item_codec() {
  using R = SavedItem;
  json::ObjectCodec<R> codec;
  codec.add_field("uri",      required,  &R::uri);
  codec.add_field("added_at", defaulted, &R::added_at);
  return codec;
}

json::ObjectCodec<Play> play_codec() {
  using R = Play;
  json::ObjectCodec<R> codec;
  codec.add_field("uri",            required,  &R::uri);
  codec.add_field("played_seconds", defaulted, &R::played_seconds);
  codec.add_field("last_played_at", defaulted, &R::last_played_at);
  return codec;
}

json::ObjectCodec<Player> player_codec() {
  using R = Player;
  json::ObjectCodec<R> codec;
  codec.add_field("track_uri",   optional,  &R::track_uri);
  codec.add_field("context_uri", optional,  &R::context_uri);
  codec.add_field("is_playing",  defaulted, &R::is_playing);
  codec.add_field("position_ms", defaulted, &R::position_ms);
  codec.add_field("shuffle",     defaulted, &R::shuffle);
  codec.add_field("repeat",      defaulted, &R::repeat);
  codec.add_field("speed",       defaulted, &R::speed);
  codec.add_field("volume",      defaulted, &R::volume);
  return codec;
}

json::ObjectCodec<QueueEntry> queue_entry_codec() {
  using R = QueueEntry;
  json::ObjectCodec<R> codec;
  codec.add_field("uri", required,  &R::uri);
  codec.add_field("uid", defaulted, &R::uid);
  return codec;
}

json::ObjectCodec<Rondo> rondo_codec() {
  using R = Rondo;
  const auto members = json::list_codec(messages::rondo_member_codec());
  json::ObjectCodec<R> codec;
  codec.add_field("active",                 defaulted, &R::active);
  codec.add_field("session_id",             defaulted, &R::session_id);
  codec.add_field("is_session_owner",       defaulted, &R::is_session_owner);
  codec.add_field("queue_only_mode",        defaulted, &R::queue_only_mode);
  codec.add_field("volume_control_enabled", defaulted, &R::volume_control_enabled);
  codec.add_field("members",                defaulted, &R::members, members);
  codec.add_field("member_count",           optional,  &R::member_count);
  codec.add_field("join_token",             optional,  &R::join_token);
  codec.add_field("guests",                 defaulted, &R::guests, members);
  return codec;
}

json::ObjectCodec<PodroomShow> podroom_show_codec() {
  using R = PodroomShow;
  json::ObjectCodec<R> codec;
  codec.add_field("show_uri",                 required,  &R::show_uri);
  codec.add_field("title",                    required,  &R::title);
  codec.add_field("description",              defaulted, &R::description);
  codec.add_field("language",                 defaulted, &R::language);
  codec.add_field("created_at",               defaulted, &R::created_at);
  codec.add_field("last_episode_uploaded_at", optional,  &R::last_episode_uploaded_at);
  codec.add_field("image",                    optional,  &R::image);
  return codec;
}

json::ObjectCodec<PodroomEpisode> podroom_episode_codec() {
  using R = PodroomEpisode;
  json::ObjectCodec<R> codec;
  codec.add_field("episode_uri", required,  &R::episode_uri);
  codec.add_field("show_uri",    defaulted, &R::show_uri);
  codec.add_field("title",       required,  &R::title);
  codec.add_field("description", defaulted, &R::description);
  codec.add_field("language",    defaulted, &R::language);
  codec.add_field("media_type",  defaulted, &R::media_type);
  codec.add_field("status",      defaulted, &R::status);
  codec.add_field("readiness",   defaulted, &R::readiness);
  codec.add_field("created_at",  defaulted, &R::created_at);
  codec.add_field("file",        defaulted, &R::file);
  codec.add_field("timeline",    defaulted, &R::timeline, json::list_codec(messages::timeline_item_codec()));
  return codec;
}

json::ObjectCodec<Podroom> podroom_codec() {
  using R = Podroom;
  json::ObjectCodec<R> codec;
  codec.add_field("last_show_uri", optional,  &R::last_show_uri);
  codec.add_field("shows",         defaulted, &R::shows,    json::list_codec(podroom_show_codec()));
  codec.add_field("episodes",      defaulted, &R::episodes, json::list_codec(podroom_episode_codec()));
  return codec;
}

json::ObjectCodec<ChatThread> chat_thread_codec() {
  using R = ChatThread;
  json::ObjectCodec<R> codec;
  codec.add_field("conversation", required,  &R::conversation, messages::chat_conversation_codec());
  codec.add_field("messages",     defaulted, &R::messages,     json::list_codec(messages::chat_message_codec()));
  return codec;
}

json::ObjectCodec<Permissions> permissions_codec() {
  using R = Permissions;
  json::ObjectCodec<R> codec;
  codec.add_field("pending",          optional,  &R::pending, messages::permission_request_codec());
  codec.add_field("granted_commands", defaulted, &R::granted_commands);
  return codec;
}

json::ObjectCodec<Account> account_codec() {
  using R = Account;
  json::ObjectCodec<R> codec;
  codec.add_field("logged_in",           defaulted, &R::logged_in);
  codec.add_field("user",                required,  &R::user,          messages::me_response_codec());
  codec.add_field("username_hash",       defaulted, &R::username_hash, messages::get_username_hash_response_codec());
  codec.add_field("message_auth_policy", defaulted, &R::message_auth_policy);
  return codec;
}

json::ObjectCodec<SimState> sim_state_codec() {
  using R = SimState;
  json::ObjectCodec<R> codec;
  codec.add_field("app_version",      defaulted, &R::app_version);
  codec.add_field("account",          required,  &R::account,     account_codec());
  codec.add_field("artists",          defaulted, &R::artists,     json::list_codec(artist_codec()));
  codec.add_field("albums",           defaulted, &R::albums,      json::list_codec(album_codec()));
  codec.add_field("tracks",           defaulted, &R::tracks,      json::list_codec(track_codec()));
  codec.add_field("shows",            defaulted, &R::shows,       json::list_codec(show_codec()));
  codec.add_field("episodes",         defaulted, &R::episodes,    json::list_codec(episode_codec()));
  codec.add_field("audiobooks",       defaulted, &R::audiobooks,  json::list_codec(audiobook_codec()));
  codec.add_field("playlists",        defaulted, &R::playlists,   json::list_codec(playlist_codec()));
  codec.add_field("search_categories_order", optional, &R::search_categories_order);
  codec.add_field("search_recommendations",  optional, &R::search_recommendations,
                  messages::search_recommendations_codec());
  codec.add_field("taste",            defaulted, &R::taste,       messages::taste_profile_response_codec());
  codec.add_field("history",          defaulted, &R::history,     json::list_codec(play_codec()));
  codec.add_field("library",          defaulted, &R::library,     json::list_codec(saved_item_codec()));
  codec.add_field("sidebar",          defaulted, &R::sidebar);
  codec.add_field("folders",          defaulted, &R::folders,     json::list_codec(folder_codec()));
  codec.add_field("active_device_id", defaulted, &R::active_device_id);
  codec.add_field("devices",          defaulted, &R::devices,     json::list_codec(messages::connect_device_codec()));
  codec.add_field("broadcasting",     defaulted, &R::broadcasting);
  codec.add_field("player",           defaulted, &R::player,      player_codec());
  codec.add_field("queue",            defaulted, &R::queue,       json::list_codec(queue_entry_codec()));
  codec.add_field("queue_revision",   defaulted, &R::queue_revision);
  codec.add_field("rondo",            defaulted, &R::rondo,       rondo_codec());
  codec.add_field("podroom",          defaulted, &R::podroom,     podroom_codec());
  codec.add_field("chats",            defaulted, &R::chats,       json::list_codec(chat_thread_codec()));
  codec.add_field("permissions",      defaulted, &R::permissions, permissions_codec());
  codec.add_field("browsers",         defaulted, &R::browsers,    json::list_codec(messages::browser_list_item_codec()));
  codec.add_field("next_id",          defaulted, &R::next_id);
  return codec;
}
// clang-format on

SimState decode_state(std::string_view text) { return json::decode(sim_state_codec(), text); }

std::string encode_state(const SimState& state) { return json::encode(sim_state_codec(), state).str(); }

}  // namespace orvanta::sim
