#include "messages/speech.hpp"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>
#include <string_view>

#include "record_check.hpp"

namespace orvanta::messages {
namespace {

using test::runner;
using test::WireCase;

constexpr std::string_view kVoice =
    R"({"id":"v1","name":"Ava","provider":"acme","format":"mp3","locale":"en-US",)"
    R"("language":{"code":"en","label":"English"},"gender":{"code":"f","label":"Female"},)"
    R"("accent":{"code":"us","label":"American"},"previewText":"Hi there"})";

TEST(SpeechRecords, WireTable) {
  const std::string voices = std::string(R"({"defaultVoiceId":"v1","aliases":["default","narrator"],"voices":[)") +
                             std::string(kVoice) + "]}";
  const WireCase cases[] = {
      {"TtsSynthesizeRequest", runner(tts_synthesize_request_codec),
       R"({"text":"Hello","voice":"v1","language":"en-US","output_path":"/tmp/out.mp3"})"},
      // Five billion ms: the length is 64-bit.
      {"TtsSynthesizeResponse", runner(tts_synthesize_response_codec),
       R"({"url":"file:///tmp/out.mp3","output_path":"/tmp/out.mp3","duration_ms":5000000000})", "duration_ms"},
      {"TtsVoicesResponse", runner(tts_voices_response_codec), voices, "defaultVoiceId aliases"},
  };
  test::check_wire_table(cases);
  // Three members share one record type; each must land under its own key.
  test::check_record(tts_voice_codec,
                     {"v1", "Ava", "acme", "mp3", "en-US", {"en", "English"}, {"f", "Female"}, {"us", "American"},
                      "Hi there"},
                     kVoice, "gender previewText");
}

}  // namespace
}  // namespace orvanta::messages
