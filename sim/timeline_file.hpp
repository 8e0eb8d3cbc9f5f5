#pragma once

// The timeline file that `pod_timeline_set` reads, and the rules the
// service applies to it:
//   {"items": [{"chapter": {"title": "...", "start_time_ms": 0}}, ...]}
// Each item holds exactly one of chapter, image, link or orvanta_entity; at
// least 2 chapters; the first chapter starts at 0 ms; chapters are at least
// 30 s apart. Unlike the timeline the service gives back, the file carries
// no URIs: they are made when the file is accepted.

#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "messages/timeline.hpp"

namespace orvanta::sim {

inline constexpr std::int32_t min_chapter_gap_ms = 30000;

// The accepted items, or the reason for refusing the file in words for the
// person who wrote it. `id` names the episode in the URIs of the items.
using TimelineParse = std::variant<std::vector<messages::TimelineItem>, std::string>;

TimelineParse parse_timeline(std::string_view text, std::string_view id);

// As parse_timeline, for the file at `path`; a file that can't be read is
// refused with its path in the reason.
TimelineParse read_timeline_file(const std::string& path, std::string_view id);

}  // namespace orvanta::sim
