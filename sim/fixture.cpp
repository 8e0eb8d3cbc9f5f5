#include "sim/fixture.hpp"

#include <fstream>

#include "sim/bounded_file.hpp"
#include "sim/state_codec.hpp"

namespace orvanta::sim {

void normalize(SimState& state) {
  for (auto& device : state.devices) device.is_active = device.device_id == state.active_device_id;
}

SimState default_state() {
  SimState state = decode_state(default_state_text());
  normalize(state);
  return state;
}

std::variant<SimState, std::string> load_state_file(const std::string& path) {
  std::string text;
  const FileRead read = read_bounded_file(path, text);
  if (read == FileRead::unreadable) return "cannot read the state file " + path;
  if (read != FileRead::ok) return "the state file " + path + file_read_reason(read);
  try {
    SimState state = decode_state(text);
    normalize(state);
    return state;
  } catch (const json::decode_exception& e) {
    return "the state file " + path + " is not valid: " + e.what() + " at byte " + std::to_string(e.offset());
  }
}

std::variant<SimState, std::string> initial_state(const SimOptions& options) {
  auto loaded = options.state_file.empty() ? std::variant<SimState, std::string>(default_state())
                                           : load_state_file(options.state_file);
  if (auto* state = std::get_if<SimState>(&loaded); state != nullptr && options.logged_out) {
    state->account.logged_in = false;
  }
  return loaded;
}

std::string write_state_file(const std::string& path, const SimState& state) {
  std::ofstream out(path, std::ios::binary | std::ios::trunc);
  if (!out) return "cannot write the state file " + path;
  out << encode_state(state) << '\n';
  out.flush();
  if (!out) return "cannot write the state file " + path;
  return {};
}

}  // namespace orvanta::sim
