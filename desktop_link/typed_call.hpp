#pragma once

// The typed half of a request: a method's record in, its result record out.
// The request is encoded in two stages (the record, then the envelope around
// it) and the result decoded in two (the envelope by the reader, then
// `result` here, with the method's own codec); both go through the
// operation table's helpers in messages/operations.hpp.

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

// Logs "Partner API - Failed to decode response: %s" and returns bad_message.
std::error_code result_decode_failure();

// Decodes the `result` of a response to `Op`. Unknown keys are skipped; a
// missing required field, a wrong type or a null optional gives
// std::errc::bad_message, with one log line.
template <class Op>
Result<typename Op::Response> decode_result(const ResponseMessage& response) {
  using Response = typename Op::Response;
  Response value{};
  if (!messages::decode_operation_result<Op>(response.result, value)) return result_decode_failure();
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
  std::string payload = messages::encode_operation_request<Op>(request, id);
  auto sent = co_await transport->send_request(std::move(payload), std::move(id));
  if (!sent) co_return sent.error();
  co_return decode_result<Op>(sent.value());
}

}  // namespace orvanta::link
