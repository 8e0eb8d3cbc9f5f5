#pragma once

// The three kinds of message the desktop client sends, and the rule that
// sorts a received text into one of them.

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <variant>

#include "desktop_link/result.hpp"
#include "json/raw_value.hpp"
#include "messages/envelope.hpp"

namespace orvanta::link {

struct NotificationMessage {
  std::string jsonrpc;
  std::string method;
  std::optional<json::RawJsonValue> params;
};

struct ResponseMessage {
  std::string jsonrpc;
  json::RawJsonValue result;
  std::string id;
};

struct ErrorMessage {
  std::string jsonrpc;
  std::int32_t code = 0;
  std::string category;
  std::string message;
  std::optional<std::string> id;

  messages::ErrorObject error_object() const { return {code, category, message}; }
};

using ClassifiedMessage = std::variant<NotificationMessage, ResponseMessage, ErrorMessage>;

// Decodes one received text as the incoming envelope (nothing but white
// space may follow it) and sorts it: anything with `method` is a
// notification, even with an `id`, `result` or `error` beside it; else
// `result` with `id` is a response; else `error` is an error reply, with or
// without `id`. `jsonrpc` must be present but its value is not looked at; it
// reads "2.0" in every kind. An empty text, a text that doesn't decode, and
// an envelope of no kind (such as `result` without `id`) give
// std::errc::bad_message; the detail of a decode failure is dropped.
Result<ClassifiedMessage> classify_message(const char* text, std::size_t length);

}  // namespace orvanta::link
