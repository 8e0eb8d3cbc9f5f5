#include "commands/version_info.hpp"

namespace orvanta::commands {

json::ObjectCodec<VersionInfo> version_info_codec() {
  using json::presence::required;
  using R = VersionInfo;
  json::ObjectCodec<R> codec;
  codec.add_field("cli",            required, &R::cli);
  codec.add_field("tetherkit",      required, &R::tetherkit);
  codec.add_field("tetherkit_hash", required, &R::tetherkit_hash);
  codec.add_field("podroom",        required, &R::podroom);
  return codec;
}

}  // namespace orvanta::commands
