#pragma once

// The file that tells a waiting script the simulator listens: the ports, one
// per line. It is written under a temporary name and renamed into place, so
// whoever sees it sees it whole.

#include <cstdint>
#include <string>
#include <vector>

namespace orvanta::sim {

// Returns an empty string, or the reason it could not be written.
std::string write_ready_file(const std::string& path, const std::vector<std::uint16_t>& ports);

}  // namespace orvanta::sim
