#pragma once

#include "crash/crash_reporter_config.hpp"

#include <map>
#include <string>
#include <vector>

namespace orvanta::crash {

// The annotations the handler puts into every report: "format", "platform"
// (the build's), "product", "version", "ptype", "app_variant" when the
// config has one, "tc_build_id" when `build_id` (the value of
// TEAMCITY_BUILD_ID, nullptr when unset) is given, even empty, and then
// the config's own pairs, which win over the ones above.
std::map<std::string, std::string> handler_annotations(const CrashReporterConfig& config,
                                                       const char* build_id);

// The handler's extra arguments: "--no-rate-limit" when rate limiting is
// off, then the config's own arguments.
std::vector<std::string> handler_arguments(const CrashReporterConfig& config);

}  // namespace orvanta::crash
