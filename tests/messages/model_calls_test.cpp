#include "messages/model_calls.hpp"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "record_check.hpp"

namespace orvanta::messages {
namespace {

using test::runner;
using test::WireCase;

// A body is JSON text of its own, carried as an escaped string and never
// looked into.
constexpr std::string_view kAnswer =
    R"({"status_code":200,"body":"{\"id\":\"r1\"}","content_type":"application/json"})";
constexpr std::string_view kChunk =
    R"({"data":"Hel","done":false,"error":true,"error_msg":"boom","status_code":500,"content_type":"text/plain"})";
constexpr std::string_view kLastChunk =
    R"({"data":"","done":true,"error":false,"error_msg":"","status_code":0,"content_type":""})";

TEST(ModelCallRecords, WireTable) {
  const WireCase cases[] = {
      {"AiCompletionsResponse", runner(ai_completions_response_codec), kAnswer, "content_type"},
      {"AiCompletionsStreamChunk/last", runner(ai_completions_stream_chunk_codec), kLastChunk, "data done error",
       "error_msg status_code content_type"},
      {"AiMessagesResponse", runner(ai_messages_response_codec), kAnswer, "status_code"},
      {"AiMessagesStreamChunk/last", runner(ai_messages_stream_chunk_codec), kLastChunk, "data done error",
       "error_msg status_code content_type"},
      {"AiImagesResponse", runner(ai_images_response_codec), kAnswer, "body"},
      {"TelemetrySandboxResponse", runner(telemetry_sandbox_response_codec),
       R"({"status_code":204,"body":""})", "status_code"},
  };
  test::check_wire_table(cases);
}

TEST(ModelCallRecords, FilledChunkEncodesAsTheTable) {
  const AiCompletionsStreamChunk chunk{"Hel", false, true, "boom", 500, "text/plain"};
  test::check_record(ai_completions_stream_chunk_codec, chunk, kChunk);
  const AiMessagesStreamChunk same{"Hel", false, true, "boom", 500, "text/plain"};
  test::check_record(ai_messages_stream_chunk_codec, same, kChunk);
}

}  // namespace
}  // namespace orvanta::messages
