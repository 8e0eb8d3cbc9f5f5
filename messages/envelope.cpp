#include "messages/envelope.hpp"

#include <utility>

namespace orvanta::messages {

using json::presence::optional;
using json::presence::required;

json::ObjectCodec<RequestMessage> request_message_codec() {
  using R = RequestMessage;
  json::ObjectCodec<R> codec;
  codec.add_field("jsonrpc", required, &R::jsonrpc);
  codec.add_field("method",  required, &R::method);
  codec.add_field("params",  required, &R::params);
  codec.add_field("id",      optional, &R::id);
  return codec;
}

json::ObjectCodec<ErrorObject> error_object_codec() {
  using R = ErrorObject;
  json::ObjectCodec<R> codec;
  codec.add_field("code",     required, &R::code);
  codec.add_field("category", required, &R::category);
  codec.add_field("message",  required, &R::message);
  return codec;
}

json::ObjectCodec<IncomingMessage> incoming_message_codec() {
  using R = IncomingMessage;
  json::ObjectCodec<R> codec;
  codec.add_field("jsonrpc", required, &R::jsonrpc);
  codec.add_field("id",      optional, &R::id,     json::or_null(json::string_codec()));
  codec.add_field("method",  optional, &R::method);
  codec.add_field("params",  optional, &R::params);
  codec.add_field("result",  optional, &R::result);
  codec.add_field("error",   optional, &R::error,  error_object_codec());
  return codec;
}

json::ObjectCodec<EmptyRequest> empty_request_codec() {
  return json::ObjectCodec<EmptyRequest>();
}

// No fields: every key of the object is skipped, and a value that isn't an
// object fails at the opening brace.
json::ObjectCodec<EmptyResponse> empty_response_codec() {
  return json::ObjectCodec<EmptyResponse>();
}

json::ObjectCodec<HelloRequest> hello_request_codec() {
  using R = HelloRequest;
  json::ObjectCodec<R> codec;
  codec.add_field("client_id",          required, &R::client_id);
  codec.add_field("name",               required, &R::name);
  codec.add_field("version",            required, &R::version);
  codec.add_field("feature_identifier", optional, &R::feature_identifier);
  return codec;
}

json::ObjectCodec<HelloResponse> hello_response_codec() {
  using R = HelloResponse;
  json::ObjectCodec<R> codec;
  codec.add_field("orvanta_app_version",         required, &R::orvanta_app_version);
  codec.add_field("sends_complete_notification", optional, &R::sends_complete_notification);
  return codec;
}

std::string encode_request_message(std::string_view method, json::RawJsonValue params,
                                   std::optional<std::string> id) {
  RequestMessage message;
  message.jsonrpc = "2.0";
  message.method = std::string(method);
  message.params = std::move(params);
  message.id = std::move(id);
  return json::encode(request_message_codec(), message).str();
}

}  // namespace orvanta::messages
