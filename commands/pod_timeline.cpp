#include "commands/pod_timeline.hpp"

#include <string>

#include "messages/record_codecs.hpp"

namespace orvanta::commands {

using namespace messages;

int pod_timeline_get(const cli::CommandLine& line, Context& context) {
  if (line.argument().empty()) return context.fail("pod timeline get requires <episode_id>\n");
  PodTimelineGetRequest request;
  request.id = std::string(line.argument());
  request.show_id = line.show_id();
  link::Result<PodTimelineGetResponse> timeline =
      context.run_and_wait(context.api().pod_timeline_get(std::move(request)));
  if (!timeline) return context.fail("pod timeline get failed: %s\n", timeline.error().message().c_str());
  if (line.json_output()) {
    context.print_json(record_codec<PodTimelineGetResponse>(), *timeline);
    return 0;
  }
  // The text form is the chapter list; companion content shows only in JSON.
  for (const TimelineItem& item : timeline->items) {
    if (!item.chapter) continue;
    std::fprintf(context.out, "%s\t%s\t%d\n", item.chapter->chapter_uri.c_str(), item.chapter->title.c_str(),
                 item.chapter->start_time_ms);
  }
  return 0;
}

int pod_timeline_set(const cli::CommandLine& line, Context& context) {
  if (!line.episode_id()) return context.fail("pod timeline set requires --episode-id <id>\n");
  if (!line.from_file()) return context.fail("pod timeline set requires --from-file <path>\n");
  // The path goes out as typed; the desktop client reads and checks the file.
  PodTimelineSetRequest request;
  request.episode_id = *line.episode_id();
  request.from_file = *line.from_file();
  request.show_id = line.show_id();
  link::Result<PodTimelineSetResponse> timeline =
      context.run_and_wait(context.api().pod_timeline_set(std::move(request)));
  if (!timeline) return context.fail("pod timeline set failed: %s\n", timeline.error().message().c_str());
  if (line.json_output()) {
    context.print_json(record_codec<PodTimelineSetResponse>(), *timeline);
  } else {
    std::fprintf(context.out, "Timeline set (%zu items)\n", timeline->items.size());
  }
  return 0;
}

int pod_timeline_delete(const cli::CommandLine& line, Context& context) {
  if (line.argument().empty()) return context.fail("pod timeline delete requires <episode_id>\n");
  PodTimelineDeleteRequest request;
  request.id = std::string(line.argument());
  request.show_id = line.show_id();
  link::Result<PodTimelineDeleteResponse> deleted =
      context.run_and_wait(context.api().pod_timeline_delete(std::move(request)));
  if (!deleted) return context.fail("pod timeline delete failed: %s\n", deleted.error().message().c_str());
  // A response that decodes is a success; `ok` is not looked at.
  if (line.json_output()) {
    context.print_json(record_codec<PodTimelineDeleteResponse>(), *deleted);
  } else {
    std::fprintf(context.out, "Timeline deleted for episode %s\n", deleted->episode_id.c_str());
  }
  return 0;
}

}  // namespace orvanta::commands
