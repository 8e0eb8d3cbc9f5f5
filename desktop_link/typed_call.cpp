#include "desktop_link/typed_call.hpp"

namespace orvanta::link {

std::error_code result_decode_failure() {
  const auto ec = std::make_error_code(std::errc::bad_message);
  log(log_level_failure, "Partner API - Failed to decode response: %s", ec.message().c_str());
  return ec;
}

}  // namespace orvanta::link
