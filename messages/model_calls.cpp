#include "messages/model_calls.hpp"

namespace orvanta::messages {

namespace {
using json::presence::defaulted;
using json::presence::required;
}  // namespace

json::ObjectCodec<AiCompletionsRequest> ai_completions_request_codec() {
  using R = AiCompletionsRequest;
  json::ObjectCodec<R> codec;
  codec.add_field("body", required, &R::body);
  return codec;
}

json::ObjectCodec<AiCompletionsResponse> ai_completions_response_codec() {
  using R = AiCompletionsResponse;
  json::ObjectCodec<R> codec;
  codec.add_field("status_code",  required, &R::status_code);
  codec.add_field("body",         required, &R::body);
  codec.add_field("content_type", required, &R::content_type);
  return codec;
}

json::ObjectCodec<AiCompletionsStreamRequest> ai_completions_stream_request_codec() {
  using R = AiCompletionsStreamRequest;
  json::ObjectCodec<R> codec;
  codec.add_field("body", required, &R::body);
  return codec;
}

json::ObjectCodec<AiCompletionsStreamChunk> ai_completions_stream_chunk_codec() {
  using R = AiCompletionsStreamChunk;
  json::ObjectCodec<R> codec;
  codec.add_field("data",         required,  &R::data);
  codec.add_field("done",         required,  &R::done);
  codec.add_field("error",        required,  &R::error);
  codec.add_field("error_msg",    defaulted, &R::error_msg);
  codec.add_field("status_code",  defaulted, &R::status_code);
  codec.add_field("content_type", defaulted, &R::content_type);
  return codec;
}

json::ObjectCodec<AiMessagesRequest> ai_messages_request_codec() {
  using R = AiMessagesRequest;
  json::ObjectCodec<R> codec;
  codec.add_field("body", required, &R::body);
  return codec;
}

json::ObjectCodec<AiMessagesResponse> ai_messages_response_codec() {
  using R = AiMessagesResponse;
  json::ObjectCodec<R> codec;
  codec.add_field("status_code",  required, &R::status_code);
  codec.add_field("body",         required, &R::body);
  codec.add_field("content_type", required, &R::content_type);
  return codec;
}

json::ObjectCodec<AiMessagesStreamRequest> ai_messages_stream_request_codec() {
  using R = AiMessagesStreamRequest;
  json::ObjectCodec<R> codec;
  codec.add_field("body", required, &R::body);
  return codec;
}

json::ObjectCodec<AiMessagesStreamChunk> ai_messages_stream_chunk_codec() {
  using R = AiMessagesStreamChunk;
  json::ObjectCodec<R> codec;
  codec.add_field("data",         required,  &R::data);
  codec.add_field("done",         required,  &R::done);
  codec.add_field("error",        required,  &R::error);
  codec.add_field("error_msg",    defaulted, &R::error_msg);
  codec.add_field("status_code",  defaulted, &R::status_code);
  codec.add_field("content_type", defaulted, &R::content_type);
  return codec;
}

json::ObjectCodec<AiImagesRequest> ai_images_request_codec() {
  using R = AiImagesRequest;
  json::ObjectCodec<R> codec;
  codec.add_field("body", required, &R::body);
  return codec;
}

json::ObjectCodec<AiImagesResponse> ai_images_response_codec() {
  using R = AiImagesResponse;
  json::ObjectCodec<R> codec;
  codec.add_field("status_code",  required, &R::status_code);
  codec.add_field("body",         required, &R::body);
  codec.add_field("content_type", required, &R::content_type);
  return codec;
}

json::ObjectCodec<TelemetrySandboxRequest> telemetry_sandbox_request_codec() {
  using R = TelemetrySandboxRequest;
  json::ObjectCodec<R> codec;
  codec.add_field("body", required, &R::body);
  return codec;
}

// No `content_type` here, unlike the other answers.
json::ObjectCodec<TelemetrySandboxResponse> telemetry_sandbox_response_codec() {
  using R = TelemetrySandboxResponse;
  json::ObjectCodec<R> codec;
  codec.add_field("status_code", required, &R::status_code);
  codec.add_field("body",        required, &R::body);
  return codec;
}

}  // namespace orvanta::messages
