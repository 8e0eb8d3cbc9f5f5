// libFuzzer target: see string_round_trip_body in json_fuzz_bodies.hpp.
#include "fuzz/json_fuzz_bodies.hpp"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  orvanta::json::fuzz::string_round_trip_body(data, size);
  return 0;
}
