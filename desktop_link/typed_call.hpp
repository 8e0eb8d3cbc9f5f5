#pragma once

// The typed half of a request: a method's record in, its result record out.
// The request is encoded in two stages (the record, then the envelope around
// it) and the result decoded in two (the envelope by the reader, then
// `result` here, with the method's own codec).

#include <memory>
#include <string>
#include <string_view>
#include <system_error>
#include <type_traits>
#include <utility>

#include <asio/awaitable.hpp>

#include "desktop_link/incoming_message.hpp"
#include "desktop_link/log.hpp"
#include "desktop_link/result.hpp"
#include "desktop_link/transport.hpp"
#include "json/codec.hpp"
#include "messages/operations.hpp"

namespace orvanta::link {

// `{"jsonrpc":"2.0","method":...,"params":...,"id":...}` around the already
// encoded `params`.
std::string encode_request_envelope(std::string_view method, json::RawJsonValue params, std::string id);

// The text of one request of `Op`. Throws json::encode_exception for a
// record that has no JSON form (a double that isn't finite).
template <class Op>
std::string encode_request(const typename Op::Request& request, std::string id) {
  auto params = json::encode(messages::record_codec<typename Op::Request>(), request);
  return encode_request_envelope(Op::name, json::RawJsonValue(std::move(params)), std::move(id));
}

// Logs "Partner API - Failed to decode response: %s" and returns bad_message.
std::error_code result_decode_failure();

// Decodes the `result` of a response as `Response`. Unknown keys are
// skipped; a missing required field, a wrong type or a null optional gives
// std::errc::bad_message, with one log line.
template <class Response>
Result<Response> decode_result(const ResponseMessage& response) {
  Response value{};
  if (!json::try_decode(messages::record_codec<Response>(), response.result.data(), response.result.size(), value)) {
    return result_decode_failure();
  }
  if constexpr (std::is_same_v<Response, messages::EmptyResponse>) {
    return Result<Response>();
  } else {
    return value;
  }
}

// Encodes, sends and decodes one request of `Op` with id `id`. No state
// check: that is the caller's. Returns the result record or the failure as
// it came, not yet folded for the user.
template <class Op>
asio::awaitable<Result<typename Op::Response>> typed_call(std::shared_ptr<PartnerApiTransport> transport,
                                                         typename Op::Request request, std::string id) {
  std::string payload = encode_request<Op>(request, id);
  auto sent = co_await transport->send_request(std::move(payload), std::move(id));
  if (!sent) co_return sent.error();
  co_return decode_result<typename Op::Response>(sent.value());
}

}  // namespace orvanta::link
