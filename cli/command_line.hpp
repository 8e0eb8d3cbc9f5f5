#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "cli/command_id.hpp"

namespace orvanta::cli {

// Who a message sent on an agent's behalf speaks as; `--role` and
// `--sent-by-agent` fill it.
enum class Role : std::uint8_t { none = 0, assistant = 1, tool_call = 2 };

class CommandLine;

namespace detail {

// The parsed run as plain data, in the order of the flag table.
// String views point into the argument vector given to main, which outlives
// the record. Only the flag parser and the recogniser write these fields,
// through writable(); everybody else reads a CommandLine by its accessors.
struct CommandLineFields {
  std::int32_t argc = 0;
  const char* const* argv = nullptr;
  std::string_view program_name = "orvanta_cli";
  std::string_view argument;
  std::vector<std::string> arguments;
  std::vector<std::string> uris;
  std::optional<std::string_view> type_filter;
  std::optional<std::int32_t> limit;
  std::optional<std::int32_t> offset;
  bool no_tracks = false;
  std::optional<std::int32_t> position;
  std::vector<std::int32_t> positions;
  bool is_public = false;
  std::optional<std::string> in_uri;
  std::optional<std::string> to_uri;
  std::optional<std::string> folder_uri;
  bool recursive = false;
  bool relative = false;
  bool keep_contents = false;
  std::optional<std::string> name;
  std::optional<std::string> description;
  std::optional<std::string> show_id;
  std::optional<std::string> new_show;
  std::optional<std::string> image_file;
  std::optional<std::string> language;
  std::optional<std::string> file;
  std::optional<std::string> episode_id;
  std::optional<std::string> from_file;
  bool stop_on_error = false;
  bool json_output = false;
  std::optional<std::vector<std::string>> fields;
  bool sent_by_agent = false;
  bool submit = false;
  std::optional<std::int32_t> width;
  std::optional<std::int32_t> height;
  Role role = Role::none;
  std::optional<std::string> uri;
  std::optional<bool> queue_only;
  std::optional<bool> volume_control;
  std::optional<std::string> voice;
  std::optional<std::int32_t> silence_ms;
  bool play_after = false;
  std::optional<std::string> device;
  std::optional<std::string> attribution;
  std::optional<std::string> agentic_product_type;
  std::optional<std::string> state;
  std::optional<std::string> agent_uri;
  std::optional<std::string> entity_uri;
  std::optional<std::string> title;
  std::optional<std::string> body;
  std::optional<std::string> subtitle;
  std::optional<std::string> image_url;
  std::optional<std::string> launch_uri;
  std::string error_text;
  bool help_requested = false;
  std::string_view unknown_word;
  std::string help_topic;
  std::string_view help_subtopic;
  CommandId command = CommandId::None;
};

// The one way to fill a CommandLine; meant for the parser and recogniser.
CommandLineFields& writable(CommandLine& line);

}  // namespace detail

// One run's command line: the command, its positionals and one value per
// flag. Filled once by parse_command_line(), then only read.
class CommandLine {
 public:
  using OptionalText = std::optional<std::string>;
  using OptionalNumber = std::optional<std::int32_t>;

  std::int32_t argc() const { return f_.argc; }
  const char* const* argv() const { return f_.argv; }
  std::string_view program_name() const { return f_.program_name; }
  std::string_view argument() const { return f_.argument; }
  const std::vector<std::string>& arguments() const { return f_.arguments; }
  const std::vector<std::string>& uris() const { return f_.uris; }
  std::optional<std::string_view> type_filter() const { return f_.type_filter; }
  OptionalNumber limit() const { return f_.limit; }
  OptionalNumber offset() const { return f_.offset; }
  bool no_tracks() const { return f_.no_tracks; }
  OptionalNumber position() const { return f_.position; }
  const std::vector<std::int32_t>& positions() const { return f_.positions; }
  bool is_public() const { return f_.is_public; }
  const OptionalText& in_uri() const { return f_.in_uri; }
  const OptionalText& to_uri() const { return f_.to_uri; }
  const OptionalText& folder_uri() const { return f_.folder_uri; }
  bool recursive() const { return f_.recursive; }
  bool relative() const { return f_.relative; }
  bool keep_contents() const { return f_.keep_contents; }
  const OptionalText& name() const { return f_.name; }
  const OptionalText& description() const { return f_.description; }
  const OptionalText& show_id() const { return f_.show_id; }
  const OptionalText& new_show() const { return f_.new_show; }
  const OptionalText& image_file() const { return f_.image_file; }
  const OptionalText& language() const { return f_.language; }
  const OptionalText& file() const { return f_.file; }
  const OptionalText& episode_id() const { return f_.episode_id; }
  const OptionalText& from_file() const { return f_.from_file; }
  bool stop_on_error() const { return f_.stop_on_error; }
  bool json_output() const { return f_.json_output; }
  const std::optional<std::vector<std::string>>& fields() const { return f_.fields; }
  bool sent_by_agent() const { return f_.sent_by_agent; }
  bool submit() const { return f_.submit; }
  OptionalNumber width() const { return f_.width; }
  OptionalNumber height() const { return f_.height; }
  Role role() const { return f_.role; }
  const OptionalText& uri() const { return f_.uri; }
  std::optional<bool> queue_only() const { return f_.queue_only; }
  std::optional<bool> volume_control() const { return f_.volume_control; }
  const OptionalText& voice() const { return f_.voice; }
  OptionalNumber silence_ms() const { return f_.silence_ms; }
  bool play_after() const { return f_.play_after; }
  const OptionalText& device() const { return f_.device; }
  const OptionalText& attribution() const { return f_.attribution; }
  const OptionalText& agentic_product_type() const { return f_.agentic_product_type; }
  const OptionalText& state() const { return f_.state; }
  const OptionalText& agent_uri() const { return f_.agent_uri; }
  const OptionalText& entity_uri() const { return f_.entity_uri; }
  const OptionalText& title() const { return f_.title; }
  const OptionalText& body() const { return f_.body; }
  const OptionalText& subtitle() const { return f_.subtitle; }
  const OptionalText& image_url() const { return f_.image_url; }
  const OptionalText& launch_uri() const { return f_.launch_uri; }
  const std::string& error_text() const { return f_.error_text; }
  bool help_requested() const { return f_.help_requested; }
  std::string_view unknown_word() const { return f_.unknown_word; }
  const std::string& help_topic() const { return f_.help_topic; }
  std::string_view help_subtopic() const { return f_.help_subtopic; }
  CommandId command() const { return f_.command; }

 private:
  friend detail::CommandLineFields& detail::writable(CommandLine& line);

  detail::CommandLineFields f_;
};

}  // namespace orvanta::cli
