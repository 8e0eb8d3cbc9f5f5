// The saved library: list, contains, add, remove. Anything the catalogue
// knows (and playlists and folders) can be saved; the newest comes first.
#include "sim/handlers.hpp"

#include <algorithm>

#include "sim/catalogue.hpp"

namespace orvanta::sim {

namespace {

constexpr std::int32_t default_page = 50;

bool saved(const SimState& state, std::string_view uri) { return find_uri(state.library, uri) != nullptr; }

m::LibraryItem library_item(const SimState& state, const std::string& uri) {
  m::LibraryItem item{.uri = uri, .name = name_of(state, uri).value_or(uri), .type = uri_type(uri),
                      .artists = {}, .album = {}};
  if (const auto* track = find_uri(state.tracks, uri)) {
    item.artists = artist_names(state, track->artist_uris);
    item.album = name_of(state, track->album_uri);
  } else if (const auto* album = find_uri(state.albums, uri)) {
    item.artists = artist_names(state, album->artist_uris);
  }
  return item;
}

}  // namespace

Answer<m::LibraryListResponse> handle(m::LibraryList, const m::LibraryListRequest& request, Context& context) {
  const SimState& state = context.state;
  const std::int32_t limit = request.limit.value_or(default_page);
  const std::int32_t offset = request.offset.value_or(0);
  if (limit <= 0) return bad_request("The limit must be at least 1");
  if (offset < 0) return bad_request("The offset must not be negative");
  std::vector<const SavedItem*> matching;
  for (auto it = state.library.rbegin(); it != state.library.rend(); ++it) {
    if (!request.type || uri_type(it->uri) == *request.type) matching.push_back(&*it);
  }
  m::LibraryListResponse response;
  response.total = static_cast<std::int32_t>(matching.size());
  for (std::int32_t i = offset; i < response.total && i - offset < limit; ++i) {
    response.items.push_back(library_item(state, matching[static_cast<std::size_t>(i)]->uri));
  }
  response.has_more = offset + static_cast<std::int32_t>(response.items.size()) < response.total;
  return response;
}

Answer<m::LibraryContainsResponse> handle(m::LibraryContains, const m::LibraryContainsRequest& request,
                                          Context& context) {
  if (request.uris.empty()) return bad_request("Give at least one URI to check");
  m::LibraryContainsResponse response;
  for (const std::string& uri : request.uris) response.contains[uri] = saved(context.state, uri);
  return response;
}

Answer<m::LibraryAddResponse> handle(m::LibraryAdd, const m::LibraryAddRequest& request, Context& context) {
  SimState& state = context.state;
  m::LibraryAddResponse response;
  for (const std::string& uri : request.uris) {
    if (!exists(state, uri)) {
      response.failed.push_back(uri);
      continue;
    }
    if (!saved(state, uri)) state.library.push_back(SavedItem{.uri = uri, .added_at = context.now});
    ++response.count;
  }
  return response;
}

Answer<m::LibraryRemoveResponse> handle(m::LibraryRemove, const m::LibraryRemoveRequest& request, Context& context) {
  SimState& state = context.state;
  m::LibraryRemoveResponse response;
  for (const std::string& uri : request.uris) {
    auto it = std::find_if(state.library.begin(), state.library.end(), [&](const SavedItem& s) { return s.uri == uri; });
    if (it == state.library.end()) {
      response.failed.push_back(uri);
      continue;
    }
    state.library.erase(it);
    ++response.count;
  }
  return response;
}

}  // namespace orvanta::sim
