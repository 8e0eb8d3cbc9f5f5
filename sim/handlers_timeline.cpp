// The timeline of a Podroom episode: chapters and companion content.
#include "sim/handlers.hpp"

#include "sim/podroom_lookup.hpp"
#include "sim/timeline_file.hpp"

namespace orvanta::sim {

namespace {

// The episode, which must belong to `show_id` when one is given.
std::variant<PodroomEpisode*, Failure> episode_of(Podroom& podroom, const std::string& id,
                                                  const std::optional<std::string>& show_id) {
  PodroomEpisode* episode = find_podroom_episode(podroom, id);
  if (episode == nullptr) return bad_request("No Podroom episode " + id);
  if (show_id) {
    const PodroomShow* show = find_podroom_show(podroom, *show_id);
    if (show == nullptr) return bad_request("No Podroom show " + *show_id);
    if (show->show_uri != episode->show_uri) return bad_request("Episode " + id + " is not in show " + *show_id);
  }
  return episode;
}

std::string id_part(const std::string& uri) { return uri.substr(uri.rfind(':') + 1); }

}  // namespace

Answer<m::PodTimelineGetResponse> handle(m::PodTimelineGet, const m::PodTimelineGetRequest& r, Context& context) {
  auto found = episode_of(context.state.podroom, r.id, r.show_id);
  if (auto* failure = std::get_if<Failure>(&found)) return *failure;
  return m::PodTimelineGetResponse{.items = std::get<PodroomEpisode*>(found)->timeline};
}

Answer<m::PodTimelineSetResponse> handle(m::PodTimelineSet, const m::PodTimelineSetRequest& r, Context& context) {
  auto found = episode_of(context.state.podroom, r.episode_id, r.show_id);
  if (auto* failure = std::get_if<Failure>(&found)) return *failure;
  PodroomEpisode& episode = *std::get<PodroomEpisode*>(found);
  TimelineParse parsed = read_timeline_file(r.from_file, id_part(episode.episode_uri));
  if (auto* refusal = std::get_if<std::string>(&parsed)) return bad_request(*refusal);
  episode.timeline = std::get<std::vector<m::TimelineItem>>(std::move(parsed));
  return m::PodTimelineSetResponse{.items = episode.timeline};
}

Answer<m::PodTimelineDeleteResponse> handle(m::PodTimelineDelete, const m::PodTimelineDeleteRequest& r,
                                            Context& context) {
  auto found = episode_of(context.state.podroom, r.id, r.show_id);
  if (auto* failure = std::get_if<Failure>(&found)) return *failure;
  PodroomEpisode& episode = *std::get<PodroomEpisode*>(found);
  episode.timeline.clear();
  return m::PodTimelineDeleteResponse{.ok = true, .episode_id = episode.episode_uri};
}

}  // namespace orvanta::sim
