#pragma once

#include <string>

#include "commands/program.hpp"
#include "json/object_codec.hpp"

namespace orvanta::commands {

// What `version` reports: versions fixed at the build of this program.
struct VersionInfo {
  std::string cli{kVersion};
  std::string tetherkit{kTetherkitVersion};
  std::string tetherkit_hash{kTetherkitHash};
  std::string podroom{kPodroomVersion};
  bool operator==(const VersionInfo&) const = default;
};

json::ObjectCodec<VersionInfo> version_info_codec();

}  // namespace orvanta::commands
