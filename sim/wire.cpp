#include "sim/wire.hpp"

namespace orvanta::sim {

namespace {

messages::IncomingMessage envelope() {
  messages::IncomingMessage message;
  message.jsonrpc = "2.0";
  return message;
}

std::string encode(const messages::IncomingMessage& message) {
  return json::encode(messages::incoming_message_codec(), message).str();
}

}  // namespace

std::optional<messages::RequestMessage> decode_request(std::string_view text) {
  messages::RequestMessage request;
  if (!json::try_decode(messages::request_message_codec(), text, request)) return std::nullopt;
  return request;
}

std::string encode_result(const std::optional<std::string>& id, std::string_view result) {
  messages::IncomingMessage message = envelope();
  message.id = id;
  message.result = json::RawJsonValue(result);
  return encode(message);
}

std::string encode_error(const std::optional<std::string>& id, const Failure& failure) {
  messages::IncomingMessage message = envelope();
  message.id = id;
  message.error = messages::ErrorObject{failure.code, failure.category, failure.message};
  return encode(message);
}

std::string encode_notification(std::string_view method, std::string_view params) {
  messages::IncomingMessage message = envelope();
  message.method = std::string(method);
  message.params = json::RawJsonValue(params);
  return encode(message);
}

}  // namespace orvanta::sim
