// Records of the chat methods and of the `chat_subscribe` notification.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "json/json.hpp"

namespace orvanta::messages {

struct ChatParticipant {
  std::string username;
  std::string display_name;
  std::string role;
  bool operator==(const ChatParticipant&) const = default;
};

// Element of ChatReadResponse `messages` and value of `last_message`.
struct ChatMessage {
  std::string id;
  std::string sender;
  std::string text;
  std::optional<std::string> shared_uri;
  bool shared_off_platform = false;
  std::string timestamp;
  std::optional<std::string> envelope_header;
  bool operator==(const ChatMessage&) const = default;
};

struct ChatConversation {
  std::string id;
  std::string type;
  std::string status;
  std::string title;
  std::vector<ChatParticipant> participants;
  std::optional<ChatMessage> last_message;
  std::int32_t unread_count = 0;
  bool operator==(const ChatConversation&) const = default;
};

struct ChatListResponse {
  std::vector<ChatConversation> conversations;
  bool operator==(const ChatListResponse&) const = default;
};

struct ChatReadRequest {
  std::string conversation_id;
  std::optional<std::int32_t> limit;
  std::optional<std::string> before;
  bool operator==(const ChatReadRequest&) const = default;
};

struct ChatReadResponse {
  std::string conversation_id;
  std::vector<ChatMessage> messages;
  bool operator==(const ChatReadResponse&) const = default;
};

struct ChatSendRequest {
  std::string conversation_id;
  std::string text;
  bool send_as_agent = false;
  std::optional<std::string> chat_role;
  std::optional<std::string> envelope_header;
  std::optional<std::string> share_uri;
  bool operator==(const ChatSendRequest&) const = default;
};

struct ChatSendResponse {
  std::string message_id;
  bool operator==(const ChatSendResponse&) const = default;
};

struct ChatAgentContext {
  std::string agent_id;
  std::string role;
  bool operator==(const ChatAgentContext&) const = default;
};

// Parameters of the `chat_subscribe` notification.
struct ChatNotification {
  std::string conversation_id;
  std::string message_id;
  std::string sender;
  std::string text;
  std::string timestamp;
  std::optional<ChatAgentContext> agent_context;
  std::optional<std::string> envelope_header;
  bool operator==(const ChatNotification&) const = default;
};

json::ObjectCodec<ChatParticipant> chat_participant_codec();
json::ObjectCodec<ChatMessage> chat_message_codec();
json::ObjectCodec<ChatConversation> chat_conversation_codec();
json::ObjectCodec<ChatListResponse> chat_list_response_codec();
json::ObjectCodec<ChatReadRequest> chat_read_request_codec();
json::ObjectCodec<ChatReadResponse> chat_read_response_codec();
json::ObjectCodec<ChatSendRequest> chat_send_request_codec();
json::ObjectCodec<ChatSendResponse> chat_send_response_codec();
json::ObjectCodec<ChatAgentContext> chat_agent_context_codec();
json::ObjectCodec<ChatNotification> chat_notification_codec();

}  // namespace orvanta::messages
