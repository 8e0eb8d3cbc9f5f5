#include "json/object_codec.hpp"

namespace orvanta::json::detail {

std::string finished_key_text(std::string_view key) {
  EncodeContext scratch(4096);
  encode_string(scratch, key);
  scratch.append(':');
  return std::string(scratch.view());
}

}  // namespace orvanta::json::detail
