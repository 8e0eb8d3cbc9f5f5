#include "sim/ready_file.hpp"

#include <cstdio>
#include <fstream>

namespace orvanta::sim {

std::string write_ready_file(const std::string& path, const std::vector<std::uint16_t>& ports) {
  const std::string temporary = path + ".partial";
  {
    std::ofstream out(temporary, std::ios::trunc);
    for (std::uint16_t port : ports) out << port << '\n';
    out.flush();
    if (!out) return "cannot write the ready file " + temporary;
  }
  if (std::rename(temporary.c_str(), path.c_str()) != 0) return "cannot rename the ready file to " + path;
  return {};
}

}  // namespace orvanta::sim
