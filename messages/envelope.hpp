#pragma once

// The envelope around every message of the Partner API, and the records of
// the handshake. Requests are encoded in two stages (the method's record
// first, then the envelope with that text as `params`), and incoming texts
// are decoded in two stages the other way round: the envelope keeps `result`
// and `params` as raw text, and the method's own codec reads them later.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "json/json.hpp"

namespace orvanta::messages {

// The outgoing envelope. `params` is always written, `{}` for a method
// without parameters.
struct RequestMessage {
  std::string jsonrpc;
  std::string method;
  json::RawJsonValue params;
  std::optional<std::string> id;
  bool operator==(const RequestMessage&) const = default;
};

struct ErrorObject {
  std::int32_t code = 0;
  std::string category;
  std::string message;
  bool operator==(const ErrorObject&) const = default;
};

// Every incoming text is first read as this. `jsonrpc` must be there but
// its value is not looked at; `id` may be a string or `null` but never a
// number; a `result` of `null` still counts as present.
struct IncomingMessage {
  std::string jsonrpc;
  std::optional<std::string> id;
  std::optional<std::string> method;
  std::optional<json::RawJsonValue> params;
  std::optional<json::RawJsonValue> result;
  std::optional<ErrorObject> error;
  bool operator==(const IncomingMessage&) const = default;
};

// The `params` of a method that takes none, written `{}`.
struct EmptyRequest {
  bool operator==(const EmptyRequest&) const = default;
};

// The result of a method that returns nothing of interest: any object is
// accepted and its content ignored, anything else is refused.
struct EmptyResponse {
  bool operator==(const EmptyResponse&) const = default;
};

// Sent first on a new connection, as `authorize_connection`.
struct HelloRequest {
  std::string client_id;
  std::string name;
  std::string version;
  std::optional<std::string> feature_identifier;
  bool operator==(const HelloRequest&) const = default;
};

struct HelloResponse {
  std::string orvanta_app_version;
  std::optional<bool> sends_complete_notification;
  bool operator==(const HelloResponse&) const = default;
};

json::ObjectCodec<RequestMessage> request_message_codec();
json::ObjectCodec<ErrorObject> error_object_codec();
json::ObjectCodec<IncomingMessage> incoming_message_codec();
json::ObjectCodec<EmptyRequest> empty_request_codec();
json::ObjectCodec<EmptyResponse> empty_response_codec();
json::ObjectCodec<HelloRequest> hello_request_codec();
json::ObjectCodec<HelloResponse> hello_response_codec();

// The envelope of an outgoing request: `jsonrpc` "2.0", the method, the
// parameters' finished text copied in as it stands, and the id when there
// is one. Throws std::bad_alloc.
std::string encode_request_message(std::string_view method, json::RawJsonValue params,
                                   std::optional<std::string> id);

// Both stages of a request: the method's record with its own codec, then
// the envelope. Throws json::encode_exception (only a double that isn't
// finite can cause it) or std::bad_alloc.
template <class R>
std::string encode_request(std::string_view method, const json::ObjectCodec<R>& codec, const R& params,
                           std::optional<std::string> id) {
  return encode_request_message(method, json::RawJsonValue(json::encode(codec, params)), std::move(id));
}

// The second stage of an incoming message: reads a `result` or a
// notification's `params` with the method's own codec. The peer may add keys
// we don't know; they are skipped. A missing required key, a wrong type, a
// `null` for an optional member or a value that isn't an object gives false,
// and `out` is left as it was.
template <class R>
bool decode_raw(const json::ObjectCodec<R>& codec, const json::RawJsonValue& raw, R& out) {
  return json::try_decode(codec, raw.view(), out);
}

// As above for a member that may be missing: an absent value is read as the
// text `null`, which no record accepts.
template <class R>
bool decode_raw(const json::ObjectCodec<R>& codec, const std::optional<json::RawJsonValue>& raw,
                R& out) {
  return raw ? decode_raw(codec, *raw, out) : decode_raw(codec, json::RawJsonValue(), out);
}

}  // namespace orvanta::messages
