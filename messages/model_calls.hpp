// Records of the model calls: completions, messages, images and the
// telemetry sandbox. Every `body` is an opaque string that we pass on unread;
// the non-stream results have the shape of an HTTP answer.
#pragma once

#include <cstdint>
#include <string>

#include "json/json.hpp"

namespace orvanta::messages {

struct AiCompletionsRequest {
  std::string body;
  bool operator==(const AiCompletionsRequest&) const = default;
};

struct AiCompletionsResponse {
  std::int32_t status_code = 0;
  std::string body;
  std::string content_type;
  bool operator==(const AiCompletionsResponse&) const = default;
};

struct AiCompletionsStreamRequest {
  std::string body;
  bool operator==(const AiCompletionsStreamRequest&) const = default;
};

// Parameters of the `ai_completions_stream` notification.
struct AiCompletionsStreamChunk {
  std::string data;
  bool done = false;
  bool error = false;
  std::string error_msg;
  std::int32_t status_code = 0;
  std::string content_type;
  bool operator==(const AiCompletionsStreamChunk&) const = default;
};

struct AiMessagesRequest {
  std::string body;
  bool operator==(const AiMessagesRequest&) const = default;
};

struct AiMessagesResponse {
  std::int32_t status_code = 0;
  std::string body;
  std::string content_type;
  bool operator==(const AiMessagesResponse&) const = default;
};

struct AiMessagesStreamRequest {
  std::string body;
  bool operator==(const AiMessagesStreamRequest&) const = default;
};

// Parameters of the `ai_messages_stream` notification; same keys as
// AiCompletionsStreamChunk.
struct AiMessagesStreamChunk {
  std::string data;
  bool done = false;
  bool error = false;
  std::string error_msg;
  std::int32_t status_code = 0;
  std::string content_type;
  bool operator==(const AiMessagesStreamChunk&) const = default;
};

struct AiImagesRequest {
  std::string body;
  bool operator==(const AiImagesRequest&) const = default;
};

struct AiImagesResponse {
  std::int32_t status_code = 0;
  std::string body;
  std::string content_type;
  bool operator==(const AiImagesResponse&) const = default;
};

struct TelemetrySandboxRequest {
  std::string body;
  bool operator==(const TelemetrySandboxRequest&) const = default;
};

// The one HTTP-shaped answer without `content_type`.
struct TelemetrySandboxResponse {
  std::int32_t status_code = 0;
  std::string body;
  bool operator==(const TelemetrySandboxResponse&) const = default;
};

json::ObjectCodec<AiCompletionsRequest> ai_completions_request_codec();
json::ObjectCodec<AiCompletionsResponse> ai_completions_response_codec();
json::ObjectCodec<AiCompletionsStreamRequest> ai_completions_stream_request_codec();
json::ObjectCodec<AiCompletionsStreamChunk> ai_completions_stream_chunk_codec();
json::ObjectCodec<AiMessagesRequest> ai_messages_request_codec();
json::ObjectCodec<AiMessagesResponse> ai_messages_response_codec();
json::ObjectCodec<AiMessagesStreamRequest> ai_messages_stream_request_codec();
json::ObjectCodec<AiMessagesStreamChunk> ai_messages_stream_chunk_codec();
json::ObjectCodec<AiImagesRequest> ai_images_request_codec();
json::ObjectCodec<AiImagesResponse> ai_images_response_codec();
json::ObjectCodec<TelemetrySandboxRequest> telemetry_sandbox_request_codec();
json::ObjectCodec<TelemetrySandboxResponse> telemetry_sandbox_response_codec();

}  // namespace orvanta::messages
