#include "commands/credits.hpp"

namespace orvanta::commands {

void print_credits(std::FILE* out, const std::vector<std::string>& names) {
  std::string joined;
  for (std::size_t i = 0; i < names.size(); ++i) {
    if (i > 0) joined += ", ";
    joined += names[i];
  }
  if (!joined.empty()) std::fprintf(out, " by %s", joined.c_str());
}

}  // namespace orvanta::commands
