#pragma once

// The envelopes the simulator reads and writes. Requests arrive in the
// client's request envelope; replies and notifications go out in the
// envelope the client reads, with only the keys of their kind:
//   {"jsonrpc":"2.0","id":"...","result":{...}}
//   {"jsonrpc":"2.0","id":"...","error":{"code":2,"category":"desktop_api","message":"..."}}
//   {"jsonrpc":"2.0","method":"...","params":{...}}

#include <optional>
#include <string>
#include <string_view>

#include "messages/envelope.hpp"
#include "sim/answer.hpp"

namespace orvanta::sim {

// The request in `text`, or nullopt when it isn't one.
std::optional<messages::RequestMessage> decode_request(std::string_view text);

std::string encode_result(const std::optional<std::string>& id, std::string_view result);
std::string encode_error(const std::optional<std::string>& id, const Failure& failure);
std::string encode_notification(std::string_view method, std::string_view params);

}  // namespace orvanta::sim
