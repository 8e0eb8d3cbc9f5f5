#include "desktop_link/incoming_message.hpp"

#include <system_error>
#include <utility>

#include "json/codec.hpp"

namespace orvanta::link {

Result<ClassifiedMessage> classify_message(const char* text, std::size_t length) {
  const auto bad_message = std::make_error_code(std::errc::bad_message);
  if (length == 0) return bad_message;
  // Built once: every frame from the desktop client goes through it, and
  // decoding only reads it.
  static const auto codec = messages::incoming_message_codec();
  messages::IncomingMessage incoming;
  if (!json::try_decode(codec, text, length, incoming)) return bad_message;

  if (incoming.method) {
    return ClassifiedMessage{NotificationMessage{"2.0", std::move(*incoming.method), std::move(incoming.params)}};
  }
  if (incoming.result && incoming.id) {
    return ClassifiedMessage{ResponseMessage{"2.0", std::move(*incoming.result), std::move(*incoming.id)}};
  }
  if (incoming.error) {
    auto& error = *incoming.error;
    return ClassifiedMessage{ErrorMessage{"2.0", error.code, std::move(error.category), std::move(error.message),
                                          std::move(incoming.id)}};
  }
  return bad_message;
}

}  // namespace orvanta::link
