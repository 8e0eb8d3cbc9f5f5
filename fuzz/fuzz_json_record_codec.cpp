// libFuzzer target: see record_codec_body in json_fuzz_bodies.hpp.
#include "fuzz/json_fuzz_bodies.hpp"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  orvanta::json::fuzz::record_codec_body(data, size);
  return 0;
}
