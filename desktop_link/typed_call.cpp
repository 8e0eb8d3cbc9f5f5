#include "desktop_link/typed_call.hpp"

#include "messages/envelope.hpp"

namespace orvanta::link {

std::string encode_request_envelope(std::string_view method, json::RawJsonValue params, std::string id) {
  messages::RequestMessage message;
  message.jsonrpc = "2.0";
  message.method = std::string(method);
  message.params = std::move(params);
  message.id = std::move(id);
  return json::encode(messages::request_message_codec(), message).str();
}

std::error_code result_decode_failure() {
  const auto ec = std::make_error_code(std::errc::bad_message);
  log(log_level_failure, "Partner API - Failed to decode response: %s", ec.message().c_str());
  return ec;
}

}  // namespace orvanta::link
