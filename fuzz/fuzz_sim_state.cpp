// libFuzzer target: the simulator's state file. A state that decodes is
// normalised as on load, and its encoding decodes again and encodes to the
// same bytes.
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

#include "sim/fixture.hpp"
#include "sim/state_codec.hpp"
#include "fuzz/fuzz_property.hpp"

using orvanta::fuzz::check;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace orvanta;
  const std::string_view text(data == nullptr ? "" : reinterpret_cast<const char*>(data), size);
  sim::SimState state;
  try {
    state = sim::decode_state(text);
  } catch (const json::decode_exception&) {
    return 0;
  }
  sim::normalize(state);
  std::string first;
  try {
    first = sim::encode_state(state);
  } catch (const json::encode_exception&) {
    return 0;  // a volume beyond the double range decodes as an infinity
  }
  sim::SimState again;
  try {
    again = sim::decode_state(first);
  } catch (const json::decode_exception& e) {
    std::fprintf(stderr, "%s\n", e.what());
    check(false, "an encoded state decodes");
  }
  sim::normalize(again);
  check(sim::encode_state(again) == first, "encoding is stable");
  return 0;
}
