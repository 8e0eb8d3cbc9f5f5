#include "commands/content.hpp"

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "commands/credits.hpp"
#include "messages/record_codecs.hpp"

namespace orvanta::commands {
namespace {

using messages::SearchResponse;

std::optional<std::string> owned(std::optional<std::string_view> text) {
  if (!text) return std::nullopt;
  return std::string(*text);
}

// ---- Search sections ----

void print_named(std::FILE* out, const std::string& name, const std::string& uri) {
  std::fprintf(out, "  %s  %s\n", name.c_str(), uri.c_str());
}

// "  name by A, B  uri".
void print_credited(std::FILE* out, const std::string& name, const std::vector<std::string>& credits,
                    const std::string& uri) {
  std::fprintf(out, "  %s", name.c_str());
  print_credits(out, credits);
  std::fprintf(out, "  %s\n", uri.c_str());
}

void print_playlist(std::FILE* out, const messages::SearchPlaylist& playlist) {
  std::fprintf(out, "  %s", playlist.name.c_str());
  if (playlist.author) std::fprintf(out, " by %s", playlist.author->c_str());
  std::fprintf(out, "  %s\n", playlist.uri.c_str());
}

// A list section: its heading and one line per entry, or nothing at all when
// the list is empty.
template <class Entry, class PrintEntry>
void print_list(std::FILE* out, const char* heading, const std::vector<Entry>& entries, PrintEntry print_entry) {
  if (entries.empty()) return;
  std::fprintf(out, "%s", heading);
  for (const Entry& entry : entries) print_entry(entry);
}

void print_top_hit(std::FILE* out, const SearchResponse& r) {
  if (r.top_hit) std::fprintf(out, "Top Hit:\n  %s  %s\n", r.top_hit->name.c_str(), r.top_hit->uri.c_str());
}

void print_recommendations(std::FILE* out, const SearchResponse& r) {
  if (!r.top_recommendations) return;
  std::fprintf(out, "Recommendations (%s):\n", r.top_recommendations->title.c_str());
  for (const auto& playlist : r.top_recommendations->playlists) print_playlist(out, playlist);
}

void print_tracks(std::FILE* out, const SearchResponse& r) {
  print_list(out, "Tracks:\n", r.tracks, [out](const auto& t) { print_credited(out, t.name, t.artists, t.uri); });
}

void print_artists(std::FILE* out, const SearchResponse& r) {
  print_list(out, "Artists:\n", r.artists, [out](const auto& a) { print_named(out, a.name, a.uri); });
}

void print_albums(std::FILE* out, const SearchResponse& r) {
  print_list(out, "Albums:\n", r.albums, [out](const auto& a) { print_credited(out, a.name, a.artists, a.uri); });
}

void print_playlists(std::FILE* out, const SearchResponse& r) {
  print_list(out, "Playlists:\n", r.playlists, [out](const auto& p) { print_playlist(out, p); });
}

void print_shows(std::FILE* out, const SearchResponse& r) {
  print_list(out, "Shows:\n", r.shows, [out](const auto& s) { print_named(out, s.name, s.uri); });
}

void print_episodes(std::FILE* out, const SearchResponse& r) {
  print_list(out, "Episodes:\n", r.episodes, [out](const auto& e) { print_named(out, e.name, e.uri); });
}

void print_audiobooks(std::FILE* out, const SearchResponse& r) {
  print_list(out, "Audiobooks:\n", r.audiobooks,
             [out](const auto& b) { print_credited(out, b.name, b.authors, b.uri); });
}

struct SearchSection {
  std::string_view word;  // as the desktop client names it in `categories_order`
  void (*print)(std::FILE*, const SearchResponse&);
};

// In the order used when the response gives none. Episodes are
// "audioepisodes" to the desktop client; "episodes" names nothing.
constexpr std::array<SearchSection, 9> kSearchSections{{
    {"topHit", print_top_hit},
    {"topRecommendations", print_recommendations},
    {"tracks", print_tracks},
    {"artists", print_artists},
    {"albums", print_albums},
    {"playlists", print_playlists},
    {"shows", print_shows},
    {"audioepisodes", print_episodes},
    {"audiobooks", print_audiobooks},
}};

// The desktop client's `categories_order` decides which sections show and in
// which order; a word we don't know is passed over.
void print_search(std::FILE* out, const SearchResponse& r) {
  if (r.categories_order.empty()) {
    for (const SearchSection& section : kSearchSections) section.print(out, r);
    return;
  }
  for (const std::string& word : r.categories_order) {
    for (const SearchSection& section : kSearchSections) {
      if (section.word == word) section.print(out, r);
    }
  }
}

// ---- Lookup ----

void print_entity(std::FILE* out, const messages::LookupEntity& e) {
  std::fprintf(out, "[%s] %s\n", e.type.c_str(), e.name.c_str());
  if (e.description) std::fprintf(out, "  %s\n", e.description->c_str());
  for (const messages::LookupContributor& contributor : e.contributors) {
    std::fprintf(out, "  By: %s", contributor.name.c_str());
    if (contributor.uri) std::fprintf(out, "  (%s)", contributor.uri->c_str());
    std::fputc('\n', out);
  }
  if (e.parent) std::fprintf(out, "  From: %s  (%s)\n", e.parent->name.c_str(), e.parent->uri.c_str());
  // The values line up unless a key is too long for the column; it is never cut.
  for (const messages::LookupMetadataField& m : e.metadata) {
    std::fprintf(out, "  %-20s %s\n", (m.field + ":").c_str(), m.value.c_str());
  }
  std::fputc('\n', out);
}

}  // namespace

int search(const cli::CommandLine& line, Context& context) {
  messages::SearchRequest request;
  request.query = std::string(line.argument());
  request.type = owned(line.type_filter());
  request.limit = line.limit();
  link::Result<SearchResponse> found = context.run_and_wait(context.api().search(std::move(request)));
  if (!found) {
    std::fprintf(context.err, "Search failed: %s\n", found.error().message().c_str());
    return 1;
  }
  if (line.json_output()) {
    context.print_json(messages::record_codec<SearchResponse>(), *found);
  } else {
    print_search(context.out, *found);
  }
  return 0;
}

int lookup(const cli::CommandLine& line, Context& context) {
  messages::LookupRequest request;
  request.uris = line.uris();
  request.fields = line.fields();
  link::Result<messages::LookupResponse> found = context.run_and_wait(context.api().lookup(std::move(request)));
  if (!found) {
    std::fprintf(context.err, "Lookup failed: %s\n", found.error().message().c_str());
    return 1;
  }
  // An entity without a name is one the desktop client could not resolve.
  bool any_resolved = false;
  for (const messages::LookupEntity& e : found->entities) {
    if (e.name.empty()) {
      std::fprintf(context.err, "warning: could not resolve %s\n", e.uri.c_str());
      continue;
    }
    any_resolved = true;
    if (!line.json_output()) print_entity(context.out, e);
  }
  // JSON keeps the unresolved entities too.
  if (line.json_output()) context.print_json(messages::record_codec<messages::LookupResponse>(), *found);
  return any_resolved || found->entities.empty() ? 0 : 1;
}

int taste(const cli::CommandLine& line, Context& context) {
  link::Result<messages::TasteProfileResponse> profile = context.run_and_wait(context.api().taste_profile());
  if (!profile) {
    std::fprintf(context.err, "Failed to get taste profile: %s\n", profile.error().message().c_str());
    return 1;
  }
  if (line.json_output()) {
    context.print_json(messages::record_codec<messages::TasteProfileResponse>(), *profile);
    return 0;
  }
  // The URI lists are for scripts; they show in JSON only.
  std::FILE* out = context.out;
  std::fprintf(out, "Musical Identity:\n  %s\n\n", profile->musical_identity.c_str());
  std::fprintf(out, "Content Rhythms:\n  %s\n\n", profile->content_rhythms.c_str());
  std::fprintf(out, "What Makes You Distinctive:\n  %s\n", profile->what_makes_you_distinctive.c_str());
  if (profile->podcast_and_audiobook_taste) {
    std::fprintf(out, "\nPodcast & Audiobook Taste:\n  %s\n", profile->podcast_and_audiobook_taste->c_str());
  }
  return 0;
}

int history_top(const cli::CommandLine& line, Context& context) {
  messages::HistoryTopRequest request;
  request.type = owned(line.type_filter());
  request.limit = line.limit();
  link::Result<messages::HistoryTopResponse> top = context.run_and_wait(context.api().history_top(std::move(request)));
  if (!top) {
    std::fprintf(context.err, "Failed to get top history: %s\n", top.error().message().c_str());
    return 1;
  }
  if (line.json_output()) {
    context.print_json(messages::record_codec<messages::HistoryTopResponse>(), *top);
    return 0;
  }
  std::size_t rank = 0;
  for (const messages::HistoryItem& item : top->items) {
    std::fprintf(context.out, "%2zu. %s  %s", ++rank, item.name.c_str(), item.uri.c_str());
    // Whole hours, truncated: 3599 seconds is "0h".
    if (item.played_seconds) {
      std::fprintf(context.out, "  (%lldh)", static_cast<long long>(*item.played_seconds / 3600));
    }
    std::fputc('\n', context.out);
  }
  return 0;
}

int history_recent(const cli::CommandLine& line, Context& context) {
  messages::HistoryRecentRequest request;
  request.type = owned(line.type_filter());
  request.limit = line.limit();
  link::Result<messages::HistoryRecentResponse> recent =
      context.run_and_wait(context.api().history_recent(std::move(request)));
  if (!recent) {
    std::fprintf(context.err, "Failed to get recent history: %s\n", recent.error().message().c_str());
    return 1;
  }
  if (line.json_output()) {
    context.print_json(messages::record_codec<messages::HistoryRecentResponse>(), *recent);
    return 0;
  }
  for (const messages::HistoryItem& item : recent->items) {
    std::fprintf(context.out, "%s  %s", item.name.c_str(), item.uri.c_str());
    if (item.last_played_at) std::fprintf(context.out, "  %s", item.last_played_at->c_str());
    std::fputc('\n', context.out);
  }
  return 0;
}

int now_playing(const cli::CommandLine& line, Context& context) {
  link::Result<messages::NowPlayingResponse> now = context.run_and_wait(context.api().now_playing());
  if (!now) {
    std::fprintf(context.err, "Failed to get now playing: %s\n", now.error().message().c_str());
    return 1;
  }
  // In JSON, nothing playing is the response without `currently_playing`.
  if (line.json_output()) {
    context.print_json(messages::record_codec<messages::NowPlayingResponse>(), *now);
    return 0;
  }
  if (!now->currently_playing) {
    std::fprintf(context.out, "Nothing currently playing\n");
    return 0;
  }
  const messages::NowPlayingItem& item = *now->currently_playing;
  std::fprintf(context.out, "%s  %s\n", item.description.c_str(), item.uri.c_str());
  if (item.context_description) std::fprintf(context.out, "Context: %s\n", item.context_description->c_str());
  std::fprintf(context.out, "Status: %s\n", item.is_playing ? "Playing" : "Paused");
  return 0;
}

}  // namespace orvanta::commands
