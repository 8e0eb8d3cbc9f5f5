#pragma once

// Completion scripts for bash, zsh and fish. Each carries the command tree
// as data and walks the words typed so far; none of them runs orvanta_cli or
// touches the network while completing.

#include <string>
#include <vector>

#include "tools/docgen/command_tree.hpp"

namespace orvanta::docgen {

std::string bash_completion(const std::vector<Node>& tree);
std::string zsh_completion(const std::vector<Node>& tree);
std::string fish_completion(const std::vector<Node>& tree);

}  // namespace orvanta::docgen
