#include "sim/fixture.hpp"

#include <fstream>
#include <sstream>

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
  std::ifstream in(path, std::ios::binary);
  if (!in) return "cannot read the state file " + path;
  std::ostringstream text;
  text << in.rdbuf();
  try {
    SimState state = decode_state(text.str());
    normalize(state);
    return state;
  } catch (const json::decode_exception& e) {
    return "the state file " + path + " is not valid: " + e.what() + " at byte " + std::to_string(e.offset());
  }
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
