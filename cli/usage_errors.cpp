#include "cli/usage_errors.hpp"

namespace orvanta::cli::errors {

namespace {

// Most texts end in the offending word between single quotes.
std::string quoted(std::string_view opening, std::string_view got) {
  std::string text;
  text.reserve(opening.size() + got.size() + 1);
  text.append(opening).append(got).append("'");
  return text;
}

}  // namespace

std::string unknown_option(std::string_view word) {
  return quoted("unknown option '", word);
}

std::string requires_value(std::string_view flag) {
  return std::string(flag).append(" requires a value");
}

std::string in_not_uri(std::string_view got) {
  return quoted("--in must be a Orvanta URI (orvanta:...), got '", got);
}

std::string to_not_uri_or_root(std::string_view got) {
  return quoted("--to must be a Orvanta URI or 'root', got '", got);
}

std::string unknown_role(std::string_view got) {
  return quoted("unknown role '", got).append("; valid values: assistant, tool_call");
}

std::string limit_not_positive(std::string_view got) {
  return quoted("--limit requires a positive integer, got '", got);
}

std::string state_not_online_offline(std::string_view got) {
  return quoted("--state requires 'online' or 'offline', got '", got);
}

std::string width_not_positive(std::string_view got) {
  return quoted("--width requires a positive integer, got '", got);
}

std::string offset_negative(std::string_view got) {
  return quoted("--offset requires a non-negative integer, got '", got);
}

std::string folder_not_uri(std::string_view got) {
  return quoted("--folder must be a Orvanta URI (orvanta:...), got '", got);
}

std::string height_not_positive(std::string_view got) {
  return quoted("--height requires a positive integer, got '", got);
}

std::string position_negative(std::string_view got) {
  return quoted("--position requires a non-negative integer, got '", got);
}

std::string positions_negative(std::string_view got) {
  return quoted("--positions values must be non-negative integers, got '", got);
}

std::string entity_uri_not_uri(std::string_view got) {
  return quoted("--entity-uri must start with 'orvanta:', got '", got);
}

std::string silence_ms_negative(std::string_view got) {
  return quoted("--silence-ms requires a non-negative integer, got '", got);
}

std::string queue_only_not_on_off(std::string_view got) {
  return quoted("--queue-only requires 'on' or 'off', got '", got);
}

std::string volume_control_not_on_off(std::string_view got) {
  return quoted("--volume-control requires 'on' or 'off', got '", got);
}

std::string repeat_invalid(std::string_view got) {
  return quoted("repeat argument must be 'off', 'context', or 'track', got '", got);
}

std::string shuffle_invalid(std::string_view got) {
  return quoted("shuffle requires 'on' or 'off', got '", got);
}

std::string speed_out_of_range(std::string_view got) {
  return quoted("speed requires a float between 0.0 and 2.0, got '", got);
}

std::string volume_out_of_range(std::string_view got) {
  return quoted("volume requires a float between 0.0 and 1.0, got '", got);
}

std::string seek_not_integer(std::string_view got) {
  return quoted("seek requires an integer position in milliseconds, got '", got);
}

std::string lookup_uri_invalid(std::string_view got) {
  return quoted("lookup URIs must start with 'orvanta:', got '", got);
}

std::string play_uri_invalid(std::string_view got) {
  return quoted("play URI must start with 'orvanta:', got '", got);
}

std::string navigate_uri_invalid(std::string_view got) {
  return quoted("navigate URI must start with 'orvanta:', got '", got);
}

std::string navigate_unknown_option(std::string_view word) {
  return quoted("unknown navigate option '", word);
}

std::string devices_volume_out_of_range(std::string_view got) {
  return quoted("devices volume requires a float between 0.0 and 1.0, got '", got);
}

std::string library_uri_invalid(std::string_view got) {
  return quoted("library URIs must start with 'orvanta:', got '", got);
}

std::string playlist_uri_invalid(std::string_view got) {
  return quoted("playlist URI must start with 'orvanta:', got '", got);
}

std::string playlist_uris_invalid(std::string_view got) {
  return quoted("playlist URIs must start with 'orvanta:', got '", got);
}

std::string folder_uri_invalid(std::string_view got) {
  return quoted("folder URI must start with 'orvanta:', got '", got);
}

std::string queue_add_uri_invalid(std::string_view got) {
  return quoted("queue add URI must start with 'orvanta:', got '", got);
}

std::string queue_remove_not_position(std::string_view got) {
  return quoted("queue remove requires a non-negative integer position, got '", got);
}

}  // namespace orvanta::cli::errors
