#pragma once

// The credit of a track, album or audiobook line: " by " and its names
// joined with ", ". Every name counts, an empty one too (["", "B"] gives
// " by , B"); only when the joined text is empty is nothing written.

#include <cstdio>
#include <string>
#include <vector>

namespace orvanta::commands {

void print_credits(std::FILE* out, const std::vector<std::string>& names);

}  // namespace orvanta::commands
