#pragma once

#include <string>

namespace orvanta::link {

// The identifier this program sends in `authorize_connection`. It is kept
// scrambled in the binary and unscrambled on first use; never empty.
const std::string& client_id();

// The client name and version sent beside it.
inline constexpr const char* client_name = "Orvanta CLI";
inline constexpr const char* client_version = "1.2.93.667";

}  // namespace orvanta::link
