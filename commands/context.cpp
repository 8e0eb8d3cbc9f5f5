#include "commands/context.hpp"

#include <cstdarg>

namespace orvanta::commands {

int Context::fail(const char* format, ...) {
  std::va_list args;
  va_start(args, format);
  std::vfprintf(err, format, args);
  va_end(args);
  return 1;
}

}  // namespace orvanta::commands
