#include "sim/options.hpp"

#include <array>
#include <charconv>

namespace orvanta::sim {

namespace {

constexpr std::string_view usage =
    "Usage: orvanta_desktop_sim [options]\n"
    "\n"
    "Plays the desktop client's side of the Partner API on 127.0.0.1, with an\n"
    "in-memory user, catalogue, library, devices, queue, Rondo and Podroom.\n"
    "\n"
    "Serving:\n"
    "  --port N                 Listen on port N (repeatable; 0 picks a free port; default 7768)\n"
    "  --ready-file PATH        Write the listening ports to PATH once listening\n"
    "  --no-process-name        Keep the process name; by default it is \"Orvanta\"\n"
    "  --log FILE               Append one JSON line per request: {\"method\":...,\"params\":...}\n"
    "  --log-connections        Number the log's lines by connection: {...,\"connection\":N}\n"
    "\n"
    "State:\n"
    "  --state FILE             Start from this state instead of the built-in one\n"
    "  --dump-state FILE        Write the state to FILE on exit\n"
    "  --logged-out             Start with nobody logged in\n"
    "  --complete-notification  Finish each handshake with a notification\n"
    "\n"
    "Faults:\n"
    "  --fail METHOD=CODE[:CATEGORY]    Answer METHOD with this error (category desktop_api by default)\n"
    "  --answer METHOD=JSON             Answer METHOD with this result; the state is left alone\n"
    "  --delay METHOD=MS                Answer METHOD after MS milliseconds\n"
    "  --hang METHOD                    Never answer METHOD\n"
    "  --wrong-id METHOD                Answer METHOD with an id that isn't the request's\n"
    "  --garbage-frame METHOD[=stray|oversize]\n"
    "                                   Before the answer, send a stray byte or a 4 MiB frame header\n"
    "  --close-after N                  Drop each connection after answering N requests\n"
    "  --reject-hello                   Refuse authorize_connection (unauthorized request)\n"
    "  --silent-hello                   Never answer authorize_connection\n"
    "  --spoil-first-hello reject|garbled|bad-completion\n"
    "                                   Spoil the first hello only: refuse it, answer what does not\n"
    "                                   decode, or complete it with params that are not an object\n"
    "\n"
    "SIGINT or SIGTERM stops it.\n";

using Options = SimOptions;
using Apply = std::string (*)(Options&, std::string_view);

template <class Int>
bool parse_number(std::string_view text, Int& out) {
  const char* end = text.data() + text.size();
  auto [stop, ec] = std::from_chars(text.data(), end, out);
  return !text.empty() && ec == std::errc() && stop == end;
}

std::string add_port(Options& o, std::string_view v) {
  std::uint16_t port = 0;
  if (!parse_number(v, port)) return "--port needs a port number, not '" + std::string(v) + "'";
  o.ports.push_back(port);
  return {};
}

std::string set_close_after(Options& o, std::string_view v) {
  std::uint32_t n = 0;
  if (!parse_number(v, n) || n == 0) return "--close-after needs a count of 1 or more, not '" + std::string(v) + "'";
  o.faults.close_after = n;
  return {};
}

template <std::string Options::*member>
std::string store(Options& o, std::string_view v) {
  o.*member = std::string(v);
  return {};
}

template <std::string (*add)(FaultPlan&, std::string_view)>
std::string fault(Options& o, std::string_view v) {
  return add(o.faults, v);
}

struct ValueFlag {
  std::string_view name;
  Apply apply;
};

constexpr std::array<ValueFlag, 13> value_flags{{
    {"--port", add_port},
    {"--ready-file", store<&Options::ready_file>},
    {"--state", store<&Options::state_file>},
    {"--dump-state", store<&Options::dump_state_file>},
    {"--log", store<&Options::log_file>},
    {"--fail", fault<add_fail>},
    {"--answer", fault<add_answer>},
    {"--delay", fault<add_delay>},
    {"--hang", fault<add_hang>},
    {"--wrong-id", fault<add_wrong_id>},
    {"--garbage-frame", fault<add_garbage>},
    {"--close-after", set_close_after},
    {"--spoil-first-hello", fault<add_spoiled_hello>},
}};

// The flag's member, for the flags that take no value.
bool* switch_flag(Options& o, std::string_view arg) {
  if (arg == "--complete-notification") return &o.complete_notification;
  if (arg == "--logged-out") return &o.logged_out;
  if (arg == "--log-connections") return &o.log_connections;
  if (arg == "--reject-hello") return &o.faults.reject_hello;
  if (arg == "--silent-hello") return &o.faults.silent_hello;
  if (arg == "--help" || arg == "-h") return &o.help;
  return nullptr;
}

}  // namespace

std::variant<SimOptions, std::string> parse_options(const std::vector<std::string_view>& args) {
  Options options;
  for (std::size_t i = 0; i < args.size(); ++i) {
    const std::string_view arg = args[i];
    if (arg == "--no-process-name") {
      options.name_process = false;
      continue;
    }
    if (bool* on = switch_flag(options, arg)) {
      *on = true;
      continue;
    }
    const ValueFlag* flag = nullptr;
    for (const ValueFlag& candidate : value_flags) {
      if (candidate.name == arg) flag = &candidate;
    }
    if (flag == nullptr) return "unknown option '" + std::string(arg) + "' (see --help)";
    if (i + 1 == args.size()) return std::string(arg) + " needs a value";
    if (std::string refusal = flag->apply(options, args[++i]); !refusal.empty()) return refusal;
  }
  if (options.ports.empty()) options.ports.push_back(default_port);
  if (options.faults.reject_hello && options.faults.silent_hello) {
    return "--reject-hello and --silent-hello exclude each other";
  }
  return options;
}

std::string_view usage_text() noexcept { return usage; }

}  // namespace orvanta::sim
