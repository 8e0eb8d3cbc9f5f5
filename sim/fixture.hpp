#pragma once

// Where the state comes from and where it goes: the built-in default
// (sim/fixture/default_state.json, compiled in), a state file given on the
// command line, and the dump written on exit.

#include <string>
#include <string_view>
#include <variant>

#include "sim/options.hpp"
#include "sim/state.hpp"

namespace orvanta::sim {

// The text of the built-in default state.
std::string_view default_state_text() noexcept;

// The built-in default state. Throws json::decode_exception only if the
// compiled-in text is broken, which the tests rule out.
SimState default_state();

// Reads a state file: the state, or a reason for a person ("cannot read
// ...", or the decoder's message with its byte offset).
std::variant<SimState, std::string> load_state_file(const std::string& path);

// The state the simulator starts with: from the state file of `options`,
// or the built-in default; logged out when the options say so.
std::variant<SimState, std::string> initial_state(const SimOptions& options);

// Writes `state` to `path` as one line of JSON. Returns an empty string, or
// the reason it failed.
std::string write_state_file(const std::string& path, const SimState& state);

// Makes the derived parts agree with the rest after loading: each device's
// `is_active` from `active_device_id`.
void normalize(SimState& state);

}  // namespace orvanta::sim
