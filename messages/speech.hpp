// Records of the speech methods `tts_synthesize` and `tts_voices`.
// Two keys of this family are camel case on the wire: `defaultVoiceId` and
// `previewText`. They stay so; the members take our own spelling.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "json/json.hpp"

namespace orvanta::messages {

struct TtsSynthesizeRequest {
  std::string text;
  std::string voice;
  std::optional<std::string> language;
  std::string output_path;
  bool operator==(const TtsSynthesizeRequest&) const = default;
};

struct TtsSynthesizeResponse {
  std::string url;
  std::string output_path;
  std::int64_t duration_ms = 0;
  bool operator==(const TtsSynthesizeResponse&) const = default;
};

// Value of a voice's `language`, `gender` and `accent`.
struct TtsVoiceAttribute {
  std::string code;
  std::string label;
  bool operator==(const TtsVoiceAttribute&) const = default;
};

struct TtsVoice {
  std::string id;
  std::string name;
  std::string provider;
  std::string format;
  std::string locale;
  TtsVoiceAttribute language;
  TtsVoiceAttribute gender;
  TtsVoiceAttribute accent;
  std::string preview_text;  // wire key `previewText`
  bool operator==(const TtsVoice&) const = default;
};

struct TtsVoicesResponse {
  std::string default_voice_id;  // wire key `defaultVoiceId`
  std::vector<std::string> aliases;
  std::vector<TtsVoice> voices;
  bool operator==(const TtsVoicesResponse&) const = default;
};

json::ObjectCodec<TtsSynthesizeRequest> tts_synthesize_request_codec();
json::ObjectCodec<TtsSynthesizeResponse> tts_synthesize_response_codec();
json::ObjectCodec<TtsVoiceAttribute> tts_voice_attribute_codec();
json::ObjectCodec<TtsVoice> tts_voice_codec();
json::ObjectCodec<TtsVoicesResponse> tts_voices_response_codec();

}  // namespace orvanta::messages
