#include "cli/recognizer.hpp"

#include <initializer_list>
#include <iterator>
#include <string>
#include <string_view>
#include <utility>

#include "cli/flag_parser.hpp"
#include "cli/usage_errors.hpp"

namespace orvanta::cli {

bool is_float_in_range(const char* text, float max) {
  const char* end = nullptr;
  const float value = detail::c_strtof(text, end);
  return end != text && *end == '\0' && 0.0F <= value && value <= max;
}

namespace {

using Fields = detail::CommandLineFields;
using ErrorText = std::string (*)(std::string_view);

constexpr std::string_view uri_prefix = "orvanta:";

// The argument vector as the grammar sees it: word 1 is the command word.
// The row functions below read words by index and finish in one of three
// ways: a command (maybe followed by flags), an error, or neither, which is
// the bare usage failure.
class Recognition {
 public:
  Recognition(CommandLine& line, int argc, const char* const* argv)
      : f(detail::writable(line)), line_(line), argc_(argc), argv_(argv) {}

  Fields& f;

  int count() const { return argc_; }
  bool has(int i) const { return i < argc_; }
  const char* text(int i) const { return argv_[i]; }
  std::string_view word(int i) const { return argv_[i]; }
  bool is(int i, std::string_view expected) const { return has(i) && word(i) == expected; }
  bool dashed(int i) const { return has(i) && argv_[i][0] == '-'; }
  bool double_dashed(int i) const { return has(i) && starts_with(word(i), "--"); }
  bool missing_or_dashed(int i) const { return !has(i) || dashed(i); }

  void accept(CommandId id) { f.command = id; }

  void fail(std::string text) {
    f.error_text = std::move(text);
    f.command = CommandId::None;
  }

  void flags_from(int start) { parse_flags(line_, argc_, argv_, start); }

  void accept_then_flags(CommandId id, int start) {
    accept(id);
    flags_from(start);
  }

  // The main positional must be a URI; false after storing the error.
  bool take_uri(int i, ErrorText error) {
    if (!starts_with(word(i), uri_prefix)) {
      fail(error(word(i)));
      return false;
    }
    f.argument = word(i);
    return true;
  }

  bool take_float(int i, float max, ErrorText error) {
    if (!is_float_in_range(text(i), max)) {
      fail(error(word(i)));
      return false;
    }
    f.argument = word(i);
    return true;
  }

  // URIs up to the first word that begins with "--", which starts the
  // flags; URIs behind that are not collected.
  void uri_walk(int start, ErrorText error) {
    for (int i = start; i < argc_; ++i) {
      if (starts_with(word(i), "--")) return flags_from(i);
      if (!starts_with(word(i), uri_prefix)) return fail(error(word(i)));
      f.uris.emplace_back(word(i));
    }
  }

  void restricted_flags_from(int start, const std::string_view* allowed, std::size_t count,
                             std::string_view unknown_flag, std::string_view positional) {
    parse_flags(line_, argc_, argv_, start, allowed, count, unknown_flag, positional);
  }

 private:
  CommandLine& line_;
  int argc_;
  const char* const* argv_;
};

// --- Playback and content -------------------------------------------------

template <CommandId id>
void plain(Recognition& r) {
  r.accept(id);
}

// Everything behind `open` belongs to the application it opens.
void open(Recognition& r) {
  r.accept(CommandId::Open);
  for (int i = 2; i < r.count(); ++i) r.f.arguments.emplace_back(r.word(i));
}

// Without a mode the handler prints its own usage line.
void repeat(Recognition& r) {
  r.accept(CommandId::Repeat);
  if (r.missing_or_dashed(2)) return;
  const std::string_view mode = r.word(2);
  if (mode != "off" && mode != "context" && mode != "track") {
    return r.fail(errors::repeat_invalid(mode));
  }
  r.f.argument = mode;
}

void shuffle(Recognition& r) {
  if (r.missing_or_dashed(2)) return r.fail(std::string(errors::shuffle_requires_argument));
  r.accept(CommandId::Shuffle);
  const std::string_view mode = r.word(2);
  if (mode != "on" && mode != "off") return r.fail(errors::shuffle_invalid(mode));
  r.f.argument = mode;
}

void speed(Recognition& r) {
  if (r.missing_or_dashed(2)) return;
  r.accept(CommandId::Speed);
  r.take_float(2, 2.0F, errors::speed_out_of_range);
}

void volume(Recognition& r) {
  if (r.missing_or_dashed(2)) return;
  r.accept(CommandId::Volume);
  r.take_float(2, 1.0F, errors::volume_out_of_range);
}

// A leading '-' is a flag unless a digit follows: `seek -10` goes back.
void seek(Recognition& r) {
  if (!r.has(2)) return;
  const char* position = r.text(2);
  if (position[0] == '-' && !(position[1] >= '0' && position[1] <= '9')) return;
  r.accept(CommandId::Seek);
  const char* end = nullptr;
  detail::c_strtol(position, end);
  if (end == position || *end != '\0') return r.fail(errors::seek_not_integer(position));
  r.f.argument = position;
  r.flags_from(3);
}

void search(Recognition& r) {
  if (r.missing_or_dashed(2)) return;
  r.accept(CommandId::Search);
  r.f.argument = r.word(2);
  r.flags_from(3);
}

void lookup(Recognition& r) {
  if (!r.has(2)) return;
  r.accept(CommandId::Lookup);
  r.uri_walk(2, errors::lookup_uri_invalid);
}

// Without a URI, `play` resumes, and does so even when a flag failed: the
// failure text is kept but never shown. Only a --device makes it a real
// play whose flag failures stand.
void play(Recognition& r) {
  r.accept(CommandId::Play);
  if (r.has(2) && !r.dashed(2)) {
    if (r.take_uri(2, errors::play_uri_invalid)) r.flags_from(3);
    return;
  }
  r.flags_from(2);
  if (!r.f.device) r.f.command = CommandId::Resume;
}

// navigate reads its few words itself instead of through parse_flags.
void navigate(Recognition& r) {
  if (r.missing_or_dashed(2)) return r.fail(std::string(errors::navigate_requires_uri));
  r.accept(CommandId::Navigate);
  if (!r.take_uri(2, errors::navigate_uri_invalid)) return;
  for (int i = 3; i < r.count(); ++i) {
    const std::string_view word = r.word(i);
    if (word == "--play") {
      r.f.play_after = true;
    } else if (word == "-h" || word == "--help") {
      continue;
    } else if (word == "--format") {
      if (!r.has(i + 1)) return r.fail(errors::requires_value(word));
      r.f.json_output = r.word(++i) == "json";
    } else {
      return r.fail(errors::navigate_unknown_option(word));
    }
  }
}

void history(Recognition& r) {
  if (r.is(2, "top")) return r.accept_then_flags(CommandId::HistoryTop, 3);
  if (r.is(2, "recent")) return r.accept_then_flags(CommandId::HistoryRecent, 3);
}

// --- Groups ---------------------------------------------------------------
// An unmatched second word is the usage failure, so each function returns
// as soon as no row is left that could match.

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
  if (r.is(2, "contains")) r.accept(CommandId::LibraryContains);
  if (r.is(2, "add")) r.accept(CommandId::LibraryAdd);
  if (r.is(2, "remove")) r.accept(CommandId::LibraryRemove);
  // Still no command: the second word matched no row.
  if (r.f.command != CommandId::None) r.uri_walk(3, errors::library_uri_invalid);
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
  if (r.is(2, "get")) r.accept(CommandId::PlaylistGet);
  if (r.is(2, "update")) r.accept(CommandId::PlaylistUpdate);
  if (r.is(2, "remove")) r.accept(CommandId::PlaylistRemove);
  if (r.f.command == CommandId::None) return;
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

// --- pod --------------------------------------------------------------------

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

// --- First word -----------------------------------------------------------

struct FirstWord {
  std::string_view word;
  void (*recognize)(Recognition& r);
};

constexpr FirstWord first_words[] = {
    {"status", plain<CommandId::Status>},
    {"resume", plain<CommandId::Resume>},
    {"pause", plain<CommandId::Pause>},
    {"next", plain<CommandId::Next>},
    {"prev", plain<CommandId::Previous>},
    {"previous", plain<CommandId::Previous>},
    {"me", plain<CommandId::Me>},
    {"taste", plain<CommandId::Taste>},
    {"now-playing", plain<CommandId::NowPlaying>},
    {"version", plain<CommandId::Version>},
    {"open", open},
    {"repeat", repeat},
    {"shuffle", shuffle},
    {"speed", speed},
    {"volume", volume},
    {"seek", seek},
    {"search", search},
    {"lookup", lookup},
    {"play", play},
    {"navigate", navigate},
    {"history", history},
    {"devices", devices},
    {"library", library},
    {"playlist", playlist},
    {"folder", folder},
    {"queue", queue},
    {"rondo", rondo},
    {"pod", pod},
};

// Whole word, case-sensitive, no abbreviation.
const FirstWord* find_first_word(std::string_view word) {
  for (const FirstWord& row : first_words) {
    if (row.word == word) return &row;
  }
  return nullptr;
}

// --format counts wherever it stands, also for commands that take no flags;
// the last occurrence with a word behind it decides.
void scan_format(Recognition& r) {
  for (int i = 1; i + 1 < r.count(); ++i) {
    if (r.word(i) == "--format") r.f.json_output = r.word(i + 1) == "json";
  }
}

bool any_word_is(const Recognition& r, std::initializer_list<std::string_view> words) {
  for (int i = 1; i < r.count(); ++i) {
    for (std::string_view word : words) {
      if (r.word(i) == word) return true;
    }
  }
  return false;
}

// `pod` has second-level groups, so its topic may take two words.
void set_help_topic(Recognition& r) {
  int subtopic = 2;
  if (r.is(1, "pod") && r.has(2) && !r.dashed(2)) {
    const std::string_view group = r.word(2);
    if (group == "episodes" || group == "timeline" || group == "shows") {
      r.f.help_topic = std::string("pod ").append(group);
      subtopic = 3;
    } else {
      r.f.help_topic = "pod";
    }
  } else {
    r.f.help_topic = r.word(1);
  }
  if (r.has(subtopic) && !r.dashed(subtopic)) r.f.help_subtopic = r.word(subtopic);
}

}  // namespace

CommandLine parse_command_line(int argc, const char* const* argv) {
  CommandLine line;
  Fields& f = detail::writable(line);
  f.argc = argc;
  f.argv = argv;
  if (argc >= 1 && argv[0] != nullptr) f.program_name = argv[0];
  if (argc < 2) return line;

  Recognition r(line, argc, argv);
  scan_format(r);
  // --version wins over everything, even as the value of some flag.
  if (any_word_is(r, {"--version"})) {
    f.command = CommandId::Version;
    return line;
  }
  f.help_requested = any_word_is(r, {"-h", "--help"});
  if (r.is(1, "-h") || r.is(1, "--help")) return line;
  // The command is still recognised under help; main looks at help first.
  if (f.help_requested) set_help_topic(r);

  const FirstWord* row = find_first_word(r.word(1));
  if (row == nullptr) {
    f.unknown_word = r.word(1);
    return line;
  }
  row->recognize(r);
  return line;
}

}  // namespace orvanta::cli
