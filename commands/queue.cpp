#include "commands/queue.hpp"

#include <string>

#include "messages/record_codecs.hpp"

namespace orvanta::commands {
namespace {

using messages::QueueItem;

// "<name> -- <artist>  [<provider>]  <uri>", without " -- " when no artist
// is known.
void print_item(std::FILE* out, const QueueItem& item) {
  std::fprintf(out, "%s", item.name.c_str());
  if (!item.artist.empty()) std::fprintf(out, " -- %s", item.artist.c_str());
  std::fprintf(out, "  [%s]  %s\n", item.provider.c_str(), item.uri.c_str());
}

}  // namespace

int queue_list(const cli::CommandLine& line, Context& context) {
  link::Result<messages::QueueListResponse> queue = context.run_and_wait(context.api().queue_list());
  if (!queue) return context.fail("Failed to get queue: %s\n", queue.error().message().c_str());
  if (line.json_output()) {
    context.print_json(messages::record_codec<messages::QueueListResponse>(), *queue);
    return 0;
  }
  std::FILE* out = context.out;
  if (queue->currently_playing) {
    std::fprintf(out, "Now playing: ");
    print_item(out, *queue->currently_playing);
  } else {
    std::fprintf(out, "Nothing currently playing\n");
  }
  if (queue->next_tracks.empty()) {
    std::fprintf(out, "Queue is empty\n");
    return 0;
  }
  // Numbered from 0, the positions that `queue remove` and `queue move` take.
  std::fprintf(out, "\nUp next:\n");
  for (std::size_t position = 0; position < queue->next_tracks.size(); ++position) {
    std::fprintf(out, "  %zu. ", position);
    print_item(out, queue->next_tracks[position]);
  }
  return 0;
}

int queue_add(std::string_view uri, Context& context) {
  std::error_code ec = context.run_and_wait(context.api().queue_add(std::string(uri)));
  if (ec) return context.fail("Failed to add to queue: %s\n", ec.message().c_str());
  std::fprintf(context.out, "Added to queue\n");
  return 0;
}

int queue_remove(const cli::CommandLine& line, Context& context) {
  link::Result<messages::QueueRemoveResponse> removed =
      context.run_and_wait(context.api().queue_remove(*line.position()));
  if (!removed) return context.fail("Failed to remove from queue: %s\n", removed.error().message().c_str());
  std::fprintf(context.out, "Removed from queue (%d remaining)\n", removed->remaining);
  return 0;
}

int queue_move(const cli::CommandLine& line, Context& context) {
  messages::QueueMoveRequest request;
  request.from_position = line.positions()[0];
  request.to_position = line.positions()[1];
  std::error_code ec = context.run_and_wait(context.api().queue_move(request));
  if (ec) return context.fail("Failed to move in queue: %s\n", ec.message().c_str());
  // The positions as typed; the desktop client answers with nothing.
  std::fprintf(context.out, "Moved track from position %d to %d\n", request.from_position, request.to_position);
  return 0;
}

}  // namespace orvanta::commands
