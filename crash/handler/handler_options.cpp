#include "crash/handler/handler_options.hpp"

#include <charconv>
#include <string_view>

namespace orvanta::crash {
namespace {

// The text behind "--name=" when `argument` has that form.
std::optional<std::string_view> option_value(std::string_view argument, std::string_view name) {
  if (argument.size() < name.size() + 1 || argument.substr(0, name.size()) != name ||
      argument[name.size()] != '=') {
    return std::nullopt;
  }
  return argument.substr(name.size() + 1);
}

template <typename Number>
bool parse_number(std::string_view text, Number& number) {
  auto [end, ec] = std::from_chars(text.data(), text.data() + text.size(), number);
  return ec == std::errc{} && end == text.data() + text.size();
}

bool apply(std::string_view argument, HandlerOptions& options) {
  if (argument == "--no-rate-limit") {
    options.rate_limit = false;
  } else if (auto database = option_value(argument, "--database")) {
    options.database = *database;
  } else if (auto metrics = option_value(argument, "--metrics-dir")) {
    options.metrics_dir = *metrics;
  } else if (auto url = option_value(argument, "--url")) {
    options.url = *url;
  } else if (auto annotation = option_value(argument, "--annotation")) {
    auto equals = annotation->find('=');
    if (equals == std::string_view::npos || equals == 0) return false;
    options.annotations.insert_or_assign(std::string(annotation->substr(0, equals)),
                                         std::string(annotation->substr(equals + 1)));
  } else if (auto fd = option_value(argument, "--client-fd")) {
    return parse_number(*fd, options.client_fd) && options.client_fd >= 0;
  } else if (auto pid = option_value(argument, "--client-pid")) {
    return parse_number(*pid, options.client_pid) && options.client_pid > 0;
  } else {
    return false;
  }
  return true;
}

}  // namespace

std::optional<HandlerOptions> parse_handler_options(int argc, const char* const* argv) {
  HandlerOptions options;
  for (int i = 1; i < argc; ++i) {
    if (!apply(argv[i], options)) return std::nullopt;
  }
  if (options.database.empty() || options.client_fd < 0 || options.client_pid <= 0) {
    return std::nullopt;
  }
  return options;
}

}  // namespace orvanta::crash
