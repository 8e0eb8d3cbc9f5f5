#include "commands/library.hpp"

#include <string>

#include "messages/record_codecs.hpp"

namespace orvanta::commands {

int library_list(const cli::CommandLine& line, Context& context) {
  messages::LibraryListRequest request;
  if (line.type_filter()) request.type = std::string(*line.type_filter());
  request.limit = line.limit();
  request.offset = line.offset();

  link::Result<messages::LibraryListResponse> list = context.run_and_wait(context.api().library_list(request));
  if (!list) return context.fail("library list failed: %s\n", list.error().message().c_str());
  if (line.json_output()) {
    context.print_json(messages::record_codec<messages::LibraryListResponse>(), *list);
    return 0;
  }
  std::FILE* out = context.out;
  std::fprintf(out, "Total: %d (has_more: %s)\n", list->total, list->has_more ? "yes" : "no");
  for (const messages::LibraryItem& item : list->items) {
    std::fprintf(out, "  [%s] %s  %s", item.type.c_str(), item.name.c_str(), item.uri.c_str());
    // Artists stand side by side with a blank between them, no comma; the
    // album isn't shown.
    if (!item.artists.empty()) std::fprintf(out, " by");
    for (const std::string& artist : item.artists) std::fprintf(out, " %s", artist.c_str());
    std::fputc('\n', out);
  }
  return 0;
}

int library_contains(const cli::CommandLine& line, Context& context) {
  link::Result<messages::LibraryContainsResponse> saved =
      context.run_and_wait(context.api().library_contains(line.uris()));
  if (!saved) return context.fail("library contains failed: %s\n", saved.error().message().c_str());
  if (line.json_output()) {
    context.print_json(messages::record_codec<messages::LibraryContainsResponse>(), *saved);
    return 0;
  }
  // In the map's order, sorted by URI, not in the order typed.
  for (const auto& [uri, is_saved] : saved->contains) {
    std::fprintf(context.out, "%s: %s\n", uri.c_str(), is_saved ? "saved" : "not saved");
  }
  return 0;
}

// `add` and `remove` report the count only: the URIs in `failed` aren't
// shown and don't make the command fail. `library batch` shows them.

int library_add(const cli::CommandLine& line, Context& context) {
  link::Result<messages::LibraryAddResponse> added = context.run_and_wait(context.api().library_add(line.uris()));
  if (!added) return context.fail("library add failed: %s\n", added.error().message().c_str());
  std::fprintf(context.out, "Added %d item(s)\n", added->count);
  return 0;
}

int library_remove(const cli::CommandLine& line, Context& context) {
  link::Result<messages::LibraryRemoveResponse> removed =
      context.run_and_wait(context.api().library_remove(line.uris()));
  if (!removed) return context.fail("library remove failed: %s\n", removed.error().message().c_str());
  std::fprintf(context.out, "Removed %d item(s)\n", removed->count);
  return 0;
}

}  // namespace orvanta::commands
