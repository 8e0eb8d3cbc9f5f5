#include "messages/chat.hpp"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "record_check.hpp"

namespace orvanta::messages {
namespace {

using test::runner;
using test::WireCase;

constexpr std::string_view kMessage =
    R"({"id":"m1","sender":"u1","text":"hi","shared_uri":"orvanta:track:1","shared_off_platform":false,)"
    R"("timestamp":"2024-01-01T00:00:00Z","envelope_header":"h1"})";
constexpr std::string_view kBareMessage =
    R"({"id":"m2","sender":"u2","text":"yo","shared_off_platform":true,"timestamp":"2024-01-01T00:01:00Z"})";
constexpr std::string_view kParticipant = R"({"username":"u1","display_name":"Ann","role":"owner"})";
constexpr std::string_view kNotification =
    R"({"conversation_id":"c1","message_id":"m3","sender":"u2","text":"hey","timestamp":"2024-01-01T00:02:00Z",)"
    R"("agent_context":{"agent_id":"a1","role":"assistant"},"envelope_header":"h2"})";

TEST(ChatRecords, WireTable) {
  const std::string message(kMessage), bare(kBareMessage), participant(kParticipant);
  const std::string conversation = R"({"id":"c1","type":"direct","status":"active","title":"Ann","participants":[)" +
                                   participant + R"(],"last_message":)" + message + R"(,"unread_count":3})";
  const std::string list = R"({"conversations":[)" + conversation + "]}";
  const std::string read = R"({"conversation_id":"c1","messages":[)" + message + "," + bare + "]}";
  const WireCase cases[] = {
      {"ChatConversation", runner(chat_conversation_codec), conversation, "participants unread_count"},
      {"ChatListResponse", runner(chat_list_response_codec), list, "conversations"},
      {"ChatReadRequest", runner(chat_read_request_codec), R"({"conversation_id":"c1","limit":20,"before":"m9"})"},
      {"ChatReadResponse", runner(chat_read_response_codec), read, "messages"},
      {"ChatSendRequest", runner(chat_send_request_codec),
       R"({"conversation_id":"c1","text":"hi","send_as_agent":false,"chat_role":"assistant",)"
       R"("envelope_header":"h1","share_uri":"orvanta:track:1"})"},
      {"ChatSendResponse", runner(chat_send_response_codec), R"({"message_id":"m2"})", "message_id"},
  };
  test::check_wire_table(cases);
  // Records made of many strings: each value must land under its own key.
  test::check_record(chat_message_codec, {"m1", "u1", "hi", "orvanta:track:1", false, "2024-01-01T00:00:00Z", "h1"},
                     kMessage, "shared_off_platform timestamp");
  test::check_record(chat_notification_codec,
                     {"c1", "m3", "u2", "hey", "2024-01-01T00:02:00Z", ChatAgentContext{"a1", "assistant"}, "h2"},
                     kNotification, "message_id sender");
}

}  // namespace
}  // namespace orvanta::messages
