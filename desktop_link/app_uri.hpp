#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace orvanta::link {

inline constexpr std::string_view kDefaultAppUri = "orvanta:open";
inline constexpr std::string_view kMediumQueryKey = "utm_medium";
inline constexpr std::string_view kUriArgumentPrefix = "--uri=";

// `uri` with "key=value" appended to its query. Nothing is percent-encoded.
std::string add_query_parameter(std::string_view uri, std::string_view key, std::string_view value);

// `uri` without any query pair whose key is `key`; the '?' goes when no pair
// is left.
std::string remove_query_parameter(std::string_view uri, std::string_view key);

// The URI the application is to open, tagged with `medium`: the last
// "--uri=" argument's, else the default one. With `strip` the "--uri="
// arguments are removed from `args`; without it they are rewritten to the
// tagged URI, and one is appended when there was none.
std::string apply_uri(std::vector<std::string>& args, std::string_view medium, bool strip);

}  // namespace orvanta::link
