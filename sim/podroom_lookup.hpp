#pragma once

// Podroom shows and episodes named the way people name them: by the whole
// URI or by the id at its end.

#include <string_view>

#include "sim/state.hpp"

namespace orvanta::sim {

PodroomShow* find_podroom_show(Podroom& podroom, std::string_view id);
PodroomEpisode* find_podroom_episode(Podroom& podroom, std::string_view id);

}  // namespace orvanta::sim
