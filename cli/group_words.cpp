#include "cli/group_words.hpp"

#include <initializer_list>
#include <iterator>
#include <string>
#include <string_view>

#include "cli/usage_errors.hpp"

namespace orvanta::cli::detail {

// An unmatched second word is the usage failure, so each function returns
// as soon as no row is left that could match.

namespace {

struct Verb {
  std::string_view word;
  CommandId id;
};

// The command of the verb that `word` names, or CommandId::None.
CommandId verb_id(std::string_view word, std::initializer_list<Verb> verbs) {
  for (const Verb& verb : verbs) {
    if (verb.word == word) return verb.id;
  }
  return CommandId::None;
}

}  // namespace

void devices(Recognition& r) {
  if (!r.has(2) || r.is(2, "list")) return r.accept_then_flags(CommandId::DevicesList, 3);
  if (r.double_dashed(2)) return r.accept_then_flags(CommandId::DevicesList, 2);
  if (!r.has(3)) return;
  if (r.is(2, "transfer")) {
    r.accept(CommandId::DevicesTransfer);
    r.f.argument = r.word(3);
  } else if (r.is(2, "info")) {
    r.accept(CommandId::DevicesInfo);
    r.f.argument = r.word(3);
  } else if (r.is(2, "volume")) {
    r.accept(CommandId::DevicesVolume);
    if (!r.take_float(3, 1.0F, errors::devices_volume_out_of_range)) return;
    if (r.has(4) && !r.dashed(4)) r.f.arguments.emplace_back(r.word(4));
  }
}

void library(Recognition& r) {
  if (!r.has(2) || r.is(2, "list")) return r.accept_then_flags(CommandId::LibraryList, 3);
  if (r.is(2, "batch")) return r.accept_then_flags(CommandId::LibraryBatch, 3);
  if (!r.has(3)) return;
  const CommandId id = verb_id(r.word(2), {{"contains", CommandId::LibraryContains},
                                           {"add", CommandId::LibraryAdd},
                                           {"remove", CommandId::LibraryRemove}});
  if (id == CommandId::None) return;
  r.accept(id);
  r.uri_walk(3, errors::library_uri_invalid);
}

void playlist(Recognition& r) {
  if (!r.has(3)) return;
  if (r.is(2, "create")) {
    r.accept(CommandId::PlaylistCreate);
    r.f.argument = r.word(3);
    return r.flags_from(4);
  }
  if (r.is(2, "add")) {
    if (!r.has(4)) return;
    r.accept(CommandId::PlaylistAdd);
    if (r.take_uri(3, errors::playlist_uri_invalid)) r.uri_walk(4, errors::playlist_uris_invalid);
    return;
  }
  const CommandId id = verb_id(r.word(2), {{"get", CommandId::PlaylistGet},
                                           {"update", CommandId::PlaylistUpdate},
                                           {"remove", CommandId::PlaylistRemove}});
  if (id == CommandId::None) return;
  r.accept(id);
  if (r.take_uri(3, errors::playlist_uri_invalid)) r.flags_from(4);
}

constexpr std::string_view folder_list_flags[] = {"--format", "--recursive", "--folder"};

void folder(Recognition& r) {
  if (!r.has(2) || r.is(2, "list")) {
    r.accept(CommandId::FolderList);
    return r.restricted_flags_from(3, folder_list_flags, std::size(folder_list_flags),
                                   errors::folder_list_unknown_flag,
                                   errors::folder_list_positional);
  }
  if (!r.has(3)) return;
  if (r.is(2, "create")) {
    r.accept(CommandId::FolderCreate);
    r.f.argument = r.word(3);
    r.flags_from(4);
  } else if (r.is(2, "rename") && r.has(4)) {
    r.accept(CommandId::FolderRename);
    if (r.take_uri(3, errors::folder_uri_invalid)) r.f.arguments.emplace_back(r.word(4));
  } else if (r.is(2, "remove")) {
    r.accept(CommandId::FolderRemove);
    if (r.take_uri(3, errors::folder_uri_invalid)) r.flags_from(4);
  } else if (r.is(2, "move")) {
    r.accept(CommandId::FolderMove);
    r.uri_walk(3, errors::folder_uri_invalid);
  }
}

void queue(Recognition& r) {
  if (!r.has(2) || r.is(2, "list")) return r.accept_then_flags(CommandId::QueueList, 3);
  if (r.double_dashed(2)) return r.accept_then_flags(CommandId::QueueList, 2);
  if (!r.has(3)) return;
  if (r.is(2, "add")) {
    r.accept(CommandId::QueueAdd);
    r.take_uri(3, errors::queue_add_uri_invalid);
  } else if (r.is(2, "remove")) {
    r.accept(CommandId::QueueRemove);
    if (!is_non_negative_integer(r.text(3))) {
      return r.fail(errors::queue_remove_not_position(r.word(3)));
    }
    r.f.position = detail::to_int32(r.text(3));
  } else if (r.is(2, "move") && r.has(4)) {
    r.accept(CommandId::QueueMove);
    if (!is_non_negative_integer(r.text(3)) || !is_non_negative_integer(r.text(4))) {
      return r.fail(std::string(errors::queue_move_requires_positions));
    }
    r.f.positions.push_back(detail::to_int32(r.text(3)));
    r.f.positions.push_back(detail::to_int32(r.text(4)));
  }
}

void rondo(Recognition& r) {
  if (!r.has(2) || r.is(2, "status")) return r.accept_then_flags(CommandId::RondoStatus, 3);
  if (r.double_dashed(2)) return r.accept_then_flags(CommandId::RondoStatus, 2);
  if (r.is(2, "create")) return r.accept(CommandId::RondoCreate);
  if (r.is(2, "leave")) return r.accept(CommandId::RondoLeave);
  if (r.is(2, "end")) return r.accept(CommandId::RondoEnd);
  if (r.is(2, "members")) return r.accept_then_flags(CommandId::RondoMembers, 3);
  if (r.is(2, "permissions")) return r.accept_then_flags(CommandId::RondoPermissions, 3);
  if (r.is(2, "kick")) {
    if (!r.has(3)) return r.fail(std::string(errors::rondo_kick_requires_username));
    r.accept(CommandId::RondoKick);
    r.f.argument = r.word(3);
  }
}

namespace {

// `pod <group> <verb> <id>`: the id is word 4 and the flags follow it.
void accept_with_id(Recognition& r, CommandId id) {
  r.accept(id);
  r.f.argument = r.word(4);
  r.flags_from(5);
}

// A verb without its id falls through to the list, where the verb is an
// ignored positional; so does `list` itself.
void pod_shows(Recognition& r) {
  if (!r.has(3)) return r.accept(CommandId::PodShows);
  if (r.is(3, "create")) return r.accept_then_flags(CommandId::PodShowsCreate, 4);
  if (r.is(3, "delete") && r.has(4)) return accept_with_id(r, CommandId::PodShowsDelete);
  r.accept_then_flags(CommandId::PodShows, 3);
}

void pod_episodes(Recognition& r) {
  if (!r.has(3)) return r.accept(CommandId::PodEpisodes);
  if (r.is(3, "create")) return r.accept_then_flags(CommandId::PodEpisodesCreate, 4);
  if (r.is(3, "status") && r.has(4)) return accept_with_id(r, CommandId::PodEpisodesStatus);
  if (r.is(3, "delete") && r.has(4)) return accept_with_id(r, CommandId::PodEpisodesDelete);
  r.accept_then_flags(CommandId::PodEpisodes, 3);
}

void pod_timeline(Recognition& r) {
  if (r.is(3, "get") && r.has(4)) return accept_with_id(r, CommandId::PodTimelineGet);
  if (r.is(3, "set")) return r.accept_then_flags(CommandId::PodTimelineSet, 4);
  if (r.is(3, "delete") && r.has(4)) return accept_with_id(r, CommandId::PodTimelineDelete);
}

}  // namespace

void pod(Recognition& r) {
  if (r.is(2, "upload") && r.has(3)) {
    r.accept(CommandId::PodUpload);
    r.f.argument = r.word(3);
    return r.flags_from(4);
  }
  if (r.is(2, "shows")) return pod_shows(r);
  if (r.is(2, "episodes")) return pod_episodes(r);
  if (r.is(2, "timeline")) return pod_timeline(r);
}

}  // namespace orvanta::cli::detail
