#include "cli/recognizer.hpp"

#include <initializer_list>
#include <iterator>
#include <string>
#include <string_view>
#include <utility>

#include "cli/flag_parser.hpp"
#include "cli/group_words.hpp"
#include "cli/recognition.hpp"
#include "cli/usage_errors.hpp"

namespace orvanta::cli {

bool is_float_in_range(const char* text, float max) {
  const char* end = nullptr;
  const float value = detail::c_strtof(text, end);
  return end != text && *end == '\0' && 0.0F <= value && value <= max;
}

namespace {

using detail::Recognition;

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
    {"devices", detail::devices},
    {"library", detail::library},
    {"playlist", detail::playlist},
    {"folder", detail::folder},
    {"queue", detail::queue},
    {"rondo", detail::rondo},
    {"pod", detail::pod},
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
  detail::CommandLineFields& f = detail::writable(line);
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
