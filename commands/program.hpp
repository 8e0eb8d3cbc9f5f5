#pragma once

#include <string_view>

namespace orvanta::commands {

// The identity of this program, fixed at build time.
inline constexpr std::string_view kProduct = "orvanta";
inline constexpr std::string_view kVersion = "1.2.93.667";
inline constexpr std::string_view kProgramType = "orvanta_cli";
inline constexpr std::string_view kClientDisplayName = "Orvanta CLI";
inline constexpr std::string_view kLauncherName = "desktop_cli";

// Versions of the native libraries this release was built with.
inline constexpr std::string_view kTetherkitVersion = "v0.10.451";
inline constexpr std::string_view kTetherkitHash = "1ab97e21337b";
inline constexpr std::string_view kPodroomVersion = "0.1.3";

}  // namespace orvanta::commands
