#include "messages/speech.hpp"

namespace orvanta::messages {

namespace {
using json::presence::optional;
using json::presence::required;
}  // namespace

json::ObjectCodec<TtsSynthesizeRequest> tts_synthesize_request_codec() {
  using R = TtsSynthesizeRequest;
  json::ObjectCodec<R> codec;
  codec.add_field("text",        required, &R::text);
  codec.add_field("voice",       required, &R::voice);
  codec.add_field("language",    optional, &R::language);
  codec.add_field("output_path", required, &R::output_path);
  return codec;
}

json::ObjectCodec<TtsSynthesizeResponse> tts_synthesize_response_codec() {
  using R = TtsSynthesizeResponse;
  json::ObjectCodec<R> codec;
  codec.add_field("url",         required, &R::url);
  codec.add_field("output_path", required, &R::output_path);
  codec.add_field("duration_ms", required, &R::duration_ms);
  return codec;
}

json::ObjectCodec<TtsVoiceAttribute> tts_voice_attribute_codec() {
  using R = TtsVoiceAttribute;
  json::ObjectCodec<R> codec;
  codec.add_field("code",  required, &R::code);
  codec.add_field("label", required, &R::label);
  return codec;
}

json::ObjectCodec<TtsVoice> tts_voice_codec() {
  using R = TtsVoice;
  json::ObjectCodec<R> codec;
  codec.add_field("id",          required, &R::id);
  codec.add_field("name",        required, &R::name);
  codec.add_field("provider",    required, &R::provider);
  codec.add_field("format",      required, &R::format);
  codec.add_field("locale",      required, &R::locale);
  codec.add_field("language",    required, &R::language, tts_voice_attribute_codec());
  codec.add_field("gender",      required, &R::gender,   tts_voice_attribute_codec());
  codec.add_field("accent",      required, &R::accent,   tts_voice_attribute_codec());
  codec.add_field("previewText", required, &R::preview_text);
  return codec;
}

json::ObjectCodec<TtsVoicesResponse> tts_voices_response_codec() {
  using R = TtsVoicesResponse;
  json::ObjectCodec<R> codec;
  codec.add_field("defaultVoiceId", required, &R::default_voice_id);
  codec.add_field("aliases",        required, &R::aliases);
  codec.add_field("voices",         required, &R::voices, json::list_codec(tts_voice_codec()));
  return codec;
}

}  // namespace orvanta::messages
