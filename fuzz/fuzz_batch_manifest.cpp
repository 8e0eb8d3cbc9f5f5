// libFuzzer target: the manifest of `library batch`, as read from a file or
// stdin. What decodes encodes, and the encoding decodes to an equal manifest
// and encodes to the same bytes.
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

#include "commands/batch_manifest.hpp"
#include "fuzz/fuzz_property.hpp"

using orvanta::fuzz::check;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace orvanta;
  static const auto codec = commands::batch_manifest_codec();
  commands::BatchManifest manifest;
  const std::string_view text(data == nullptr ? "" : reinterpret_cast<const char*>(data), size);
  if (!json::try_decode(codec, text, manifest)) return 0;
  const std::string first(json::encode(codec, manifest).view());
  commands::BatchManifest again;
  check(json::try_decode(codec, first, again), "an encoded manifest decodes");
  check(again == manifest, "decode(encode(manifest)) == manifest");
  check(json::encode(codec, again).view() == first, "encoding is stable");
  return 0;
}
