#pragma once

// The simulator's command line.

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "sim/faults.hpp"

namespace orvanta::sim {

inline constexpr std::uint16_t default_port = 7768;

struct SimOptions {
  std::vector<std::uint16_t> ports;  // 0 lets the system pick; empty means default_port
  std::string ready_file;
  std::string state_file;
  std::string dump_state_file;
  std::string log_file;
  bool name_process = true;
  bool complete_notification = false;
  bool logged_out = false;
  bool log_connections = false;
  bool help = false;
  FaultPlan faults;
};

// Reads the arguments after the program name. Returns the options, or the
// reason they are refused, for one line on stderr.
std::variant<SimOptions, std::string> parse_options(const std::vector<std::string_view>& args);

// The text of --help.
std::string_view usage_text() noexcept;

}  // namespace orvanta::sim
