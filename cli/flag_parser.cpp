#include "cli/flag_parser.hpp"

#include <cassert>
#include <clocale>
#include <cstdlib>
#include <string>
#include <utility>
#include <vector>

#include "cli/usage_errors.hpp"

namespace orvanta::cli {

namespace detail {

namespace {

// A number typed as "0,5" must not become valid because the environment
// names a locale with a decimal comma, so every reader uses this one.
locale_t c_locale() {
  static const locale_t locale = newlocale(LC_ALL_MASK, "C", nullptr);
  assert(locale != nullptr);
  return locale;
}

}  // namespace

long long c_strtoll(const char* text, const char*& end) {
  char* stop = nullptr;
  const long long value = strtoll_l(text, &stop, 10, c_locale());
  end = stop;
  return value;
}

long c_strtol(const char* text, const char*& end) {
  char* stop = nullptr;
  const long value = strtol_l(text, &stop, 10, c_locale());
  end = stop;
  return value;
}

float c_strtof(const char* text, const char*& end) {
  char* stop = nullptr;
  const float value = strtof_l(text, &stop, c_locale());
  end = stop;
  return value;
}

std::int32_t to_int32(const char* text) {
  const char* end = nullptr;
  return static_cast<std::int32_t>(c_strtol(text, end));
}

}  // namespace detail

bool starts_with(std::string_view text, std::string_view prefix) {
  return text.size() >= prefix.size() && text.substr(0, prefix.size()) == prefix;
}

namespace {

// The whole text is one integer, as strtoll reads it; `value` receives it.
bool read_whole_integer(const char* text, long long& value) {
  const char* end = nullptr;
  value = detail::c_strtoll(text, end);
  return end != text && *end == '\0';
}

}  // namespace

bool is_positive_integer(const char* text) {
  long long value = 0;
  return read_whole_integer(text, value) && value > 0;
}

bool is_non_negative_integer(const char* text) {
  long long value = 0;
  return read_whole_integer(text, value) && value >= 0;
}

namespace {

using Fields = detail::CommandLineFields;
using ErrorText = std::string (*)(std::string_view);

constexpr std::string_view uri_prefix = "orvanta:";

// After a flag the walk goes on with the next word or stops on a failure.
enum class Next { go_on, stop };

Next fail(Fields& f, std::string text) {
  f.error_text = std::move(text);
  f.command = CommandId::None;
  return Next::stop;
}

template <std::optional<std::string> Fields::*member>
Next store(Fields& f, const char* value) {
  f.*member = value;
  return Next::go_on;
}

template <std::optional<std::string> Fields::*member, ErrorText error>
Next store_uri(Fields& f, const char* value) {
  if (!starts_with(value, uri_prefix)) return fail(f, error(value));
  f.*member = value;
  return Next::go_on;
}

template <std::optional<std::int32_t> Fields::*member, ErrorText error>
Next store_positive(Fields& f, const char* value) {
  if (!is_positive_integer(value)) return fail(f, error(value));
  f.*member = detail::to_int32(value);
  return Next::go_on;
}

template <std::optional<std::int32_t> Fields::*member, ErrorText error>
Next store_non_negative(Fields& f, const char* value) {
  if (!is_non_negative_integer(value)) return fail(f, error(value));
  f.*member = detail::to_int32(value);
  return Next::go_on;
}

template <std::optional<bool> Fields::*member, ErrorText error>
Next store_on_off(Fields& f, const char* value) {
  const std::string_view word = value;
  if (word != "on" && word != "off") return fail(f, error(word));
  f.*member = word == "on";
  return Next::go_on;
}

template <bool Fields::*member>
Next turn_on(Fields& f, const char* /*no value*/) {
  f.*member = true;
  return Next::go_on;
}

Next store_type(Fields& f, const char* value) {
  f.type_filter = value;
  return Next::go_on;
}

// --text and --hierarchy-id stand in for the main positional.
Next store_argument(Fields& f, const char* value) {
  f.argument = value;
  return Next::go_on;
}

Next store_to(Fields& f, const char* value) {
  const std::string_view word = value;
  if (!starts_with(word, uri_prefix) && word != "root") {
    return fail(f, errors::to_not_uri_or_root(word));
  }
  f.to_uri = value;
  return Next::go_on;
}

Next store_state(Fields& f, const char* value) {
  const std::string_view word = value;
  if (word != "online" && word != "offline") return fail(f, errors::state_not_online_offline(word));
  f.state = value;
  return Next::go_on;
}

// A bad role is reported but does not end the walk: a later failure
// replaces the text, and a later success leaves it standing.
Next store_role(Fields& f, const char* value) {
  const std::string_view word = value;
  if (word == "assistant") {
    f.role = Role::assistant;
  } else if (word == "tool_call") {
    f.role = Role::tool_call;
  } else {
    fail(f, errors::unknown_role(word));
  }
  return Next::go_on;
}

Next sent_by_agent(Fields& f, const char* /*no value*/) {
  f.sent_by_agent = true;
  if (f.role == Role::none) f.role = Role::assistant;
  return Next::go_on;
}

Next make_public(Fields& f, const char* /*no value*/) {
  f.is_public = true;
  return Next::go_on;
}

Next make_private(Fields& f, const char* /*no value*/) {
  f.is_public = false;
  return Next::go_on;
}

// Only the exact word "json" selects JSON; anything else means text.
Next store_format(Fields& f, const char* value) {
  f.json_output = std::string_view(value) == "json";
  return Next::go_on;
}

// Pieces between commas, from the start; a trailing comma adds no piece,
// while an empty piece inside the list is kept.
std::vector<std::string_view> comma_pieces(std::string_view value) {
  std::vector<std::string_view> pieces;
  std::size_t position = 0;
  while (position < value.size()) {
    std::size_t comma = value.find(',', position);
    if (comma == std::string_view::npos) comma = value.size();
    pieces.push_back(value.substr(position, comma - position));
    position = comma + 1;
  }
  return pieces;
}

// A repeated --fields starts over.
Next store_fields(Fields& f, const char* value) {
  f.fields.emplace();
  for (std::string_view piece : comma_pieces(value)) f.fields->emplace_back(piece);
  return Next::go_on;
}

// A repeated --positions adds to the list; on a bad piece the pieces
// before it stay.
Next append_positions(Fields& f, const char* value) {
  for (std::string_view piece : comma_pieces(value)) {
    const std::string text(piece);
    if (!is_non_negative_integer(text.c_str())) return fail(f, errors::positions_negative(piece));
    f.positions.push_back(detail::to_int32(text.c_str()));
  }
  return Next::go_on;
}

struct FlagRule {
  std::string_view name;
  bool takes_value;
  Next (*apply)(Fields& f, const char* value);
};

constexpr bool with_value = true;
constexpr bool alone = false;

// clang-format off
constexpr FlagRule flag_rules[] = {
    {"--in",                   with_value, store_uri<&Fields::in_uri, errors::in_not_uri>},
    {"--to",                   with_value, store_to},
    {"--uri",                  with_value, store<&Fields::uri>},
    {"--type",                 with_value, store_type},
    {"--name",                 with_value, store<&Fields::name>},
    {"--file",                 with_value, store<&Fields::file>},
    {"--role",                 with_value, store_role},
    {"--body",                 with_value, store<&Fields::body>},
    {"--text",                 with_value, store_argument},
    {"--limit",                with_value, store_positive<&Fields::limit, errors::limit_not_positive>},
    {"--voice",                with_value, store<&Fields::voice>},
    {"--state",                with_value, store_state},
    {"--title",                with_value, store<&Fields::title>},
    {"--width",                with_value, store_positive<&Fields::width, errors::width_not_positive>},
    {"--offset",               with_value, store_non_negative<&Fields::offset, errors::offset_negative>},
    {"--public",               alone,      make_public},
    {"--folder",               with_value, store_uri<&Fields::folder_uri, errors::folder_not_uri>},
    {"--device",               with_value, store<&Fields::device>},
    {"--format",               with_value, store_format},
    {"--fields",               with_value, store_fields},
    {"--submit",               alone,      turn_on<&Fields::submit>},
    {"--height",               with_value, store_positive<&Fields::height, errors::height_not_positive>},
    {"--private",              alone,      make_private},
    {"--show-id",              with_value, store<&Fields::show_id>},
    {"--position",             with_value, store_non_negative<&Fields::position, errors::position_negative>},
    {"--relative",             alone,      turn_on<&Fields::relative>},
    {"--new-show",             with_value, store<&Fields::new_show>},
    {"--language",             with_value, store<&Fields::language>},
    {"--subtitle",             with_value, store<&Fields::subtitle>},
    {"--no-tracks",            alone,      turn_on<&Fields::no_tracks>},
    {"--positions",            with_value, append_positions},
    {"--recursive",            alone,      turn_on<&Fields::recursive>},
    {"--agent-uri",            with_value, store<&Fields::agent_uri>},
    {"--from-file",            with_value, store<&Fields::from_file>},
    {"--image-url",            with_value, store<&Fields::image_url>},
    {"--image-file",           with_value, store<&Fields::image_file>},
    {"--entity-uri",           with_value, store_uri<&Fields::entity_uri, errors::entity_uri_not_uri>},
    {"--silence-ms",           with_value, store_non_negative<&Fields::silence_ms, errors::silence_ms_negative>},
    {"--episode-id",           with_value, store<&Fields::episode_id>},
    {"--queue-only",           with_value, store_on_off<&Fields::queue_only, errors::queue_only_not_on_off>},
    {"--launch-uri",           with_value, store<&Fields::launch_uri>},
    {"--description",          with_value, store<&Fields::description>},
    {"--attribution",          with_value, store<&Fields::attribution>},
    {"--hierarchy-id",         with_value, store_argument},
    {"--keep-contents",        alone,      turn_on<&Fields::keep_contents>},
    {"--stop-on-error",        alone,      turn_on<&Fields::stop_on_error>},
    {"--sent-by-agent",        alone,      sent_by_agent},
    {"--volume-control",       with_value, store_on_off<&Fields::volume_control, errors::volume_control_not_on_off>},
    {"--agentic-product-type", with_value, store<&Fields::agentic_product_type>},
};
// clang-format on

constexpr bool flag_names_are_sound() {
  for (std::size_t i = 0; i < std::size(flag_rules); ++i) {
    if (flag_rules[i].name.substr(0, 2) != "--") return false;
    for (std::size_t j = i + 1; j < std::size(flag_rules); ++j) {
      if (flag_rules[i].name == flag_rules[j].name) return false;
    }
  }
  return true;
}
static_assert(flag_names_are_sound(), "every flag begins with -- and is listed once");

// Exact bytes only: no abbreviation, no case folding, no --flag=value.
const FlagRule* find_flag(std::string_view word) {
  for (const FlagRule& rule : flag_rules) {
    if (rule.name == word) return &rule;
  }
  return nullptr;
}

bool is_allowed(std::string_view word, const std::string_view* allowed, std::size_t count) {
  for (std::size_t i = 0; i < count; ++i) {
    if (allowed[i] == word) return true;
  }
  return false;
}

}  // namespace

void parse_flags(CommandLine& line, int argc, const char* const* argv, int start,
                 const std::string_view* allowed, std::size_t allowed_count,
                 std::string_view unknown_flag_message, std::string_view positional_message) {
  Fields& f = detail::writable(line);
  if (!f.error_text.empty() || start >= argc) return;

  for (int i = start; i < argc; ++i) {
    const std::string_view word = argv[i];
    if (word.empty()) continue;
    const bool dashed = word.front() == '-';
    if (dashed && allowed_count != 0 && !is_allowed(word, allowed, allowed_count)) {
      fail(f, unknown_flag_message.empty() ? errors::unknown_option(word)
                                           : std::string(unknown_flag_message));
      return;
    }
    if (!positional_message.empty() && !dashed) {
      fail(f, std::string(positional_message));
      return;
    }
    if (word.size() == 1) continue;

    const FlagRule* rule = find_flag(word);
    if (rule == nullptr) {
      if (!dashed) continue;  // a leftover positional, dropped without comment
      fail(f, errors::unknown_option(word));
      return;
    }
    const char* value = nullptr;
    if (rule->takes_value) {
      if (i + 1 >= argc) {
        fail(f, errors::requires_value(rule->name));
        return;
      }
      value = argv[++i];
    }
    if (rule->apply(f, value) == Next::stop) return;
  }
}

}  // namespace orvanta::cli
