#include "messages/chat.hpp"

namespace orvanta::messages {

namespace {
using json::presence::defaulted;
using json::presence::optional;
using json::presence::required;
}  // namespace

json::ObjectCodec<ChatParticipant> chat_participant_codec() {
  using R = ChatParticipant;
  json::ObjectCodec<R> codec;
  codec.add_field("username",     required, &R::username);
  codec.add_field("display_name", required, &R::display_name);
  codec.add_field("role",         required, &R::role);
  return codec;
}

json::ObjectCodec<ChatMessage> chat_message_codec() {
  using R = ChatMessage;
  json::ObjectCodec<R> codec;
  codec.add_field("id",                  required, &R::id);
  codec.add_field("sender",              required, &R::sender);
  codec.add_field("text",                required, &R::text);
  codec.add_field("shared_uri",          optional, &R::shared_uri);
  codec.add_field("shared_off_platform", required, &R::shared_off_platform);
  codec.add_field("timestamp",           required, &R::timestamp);
  codec.add_field("envelope_header",     optional, &R::envelope_header);
  return codec;
}

json::ObjectCodec<ChatConversation> chat_conversation_codec() {
  using R = ChatConversation;
  json::ObjectCodec<R> codec;
  codec.add_field("id",           required, &R::id);
  codec.add_field("type",         required, &R::type);
  codec.add_field("status",       required, &R::status);
  codec.add_field("title",        required, &R::title);
  codec.add_field("participants", required, &R::participants, json::list_codec(chat_participant_codec()));
  codec.add_field("last_message", optional, &R::last_message, chat_message_codec());
  codec.add_field("unread_count", required, &R::unread_count);
  return codec;
}

json::ObjectCodec<ChatListResponse> chat_list_response_codec() {
  using R = ChatListResponse;
  json::ObjectCodec<R> codec;
  codec.add_field("conversations", required, &R::conversations, json::list_codec(chat_conversation_codec()));
  return codec;
}

json::ObjectCodec<ChatReadRequest> chat_read_request_codec() {
  using R = ChatReadRequest;
  json::ObjectCodec<R> codec;
  codec.add_field("conversation_id", required, &R::conversation_id);
  codec.add_field("limit",           optional, &R::limit);
  codec.add_field("before",          optional, &R::before);
  return codec;
}

json::ObjectCodec<ChatReadResponse> chat_read_response_codec() {
  using R = ChatReadResponse;
  json::ObjectCodec<R> codec;
  codec.add_field("conversation_id", required, &R::conversation_id);
  codec.add_field("messages",        required, &R::messages, json::list_codec(chat_message_codec()));
  return codec;
}

json::ObjectCodec<ChatSendRequest> chat_send_request_codec() {
  using R = ChatSendRequest;
  json::ObjectCodec<R> codec;
  codec.add_field("conversation_id", required,  &R::conversation_id);
  codec.add_field("text",            required,  &R::text);
  codec.add_field("send_as_agent",   defaulted, &R::send_as_agent);
  codec.add_field("chat_role",       optional,  &R::chat_role);
  codec.add_field("envelope_header", optional,  &R::envelope_header);
  codec.add_field("share_uri",       optional,  &R::share_uri);
  return codec;
}

json::ObjectCodec<ChatSendResponse> chat_send_response_codec() {
  using R = ChatSendResponse;
  json::ObjectCodec<R> codec;
  codec.add_field("message_id", required, &R::message_id);
  return codec;
}

json::ObjectCodec<ChatAgentContext> chat_agent_context_codec() {
  using R = ChatAgentContext;
  json::ObjectCodec<R> codec;
  codec.add_field("agent_id", required, &R::agent_id);
  codec.add_field("role",     required, &R::role);
  return codec;
}

json::ObjectCodec<ChatNotification> chat_notification_codec() {
  using R = ChatNotification;
  json::ObjectCodec<R> codec;
  codec.add_field("conversation_id", required, &R::conversation_id);
  codec.add_field("message_id",      required, &R::message_id);
  codec.add_field("sender",          required, &R::sender);
  codec.add_field("text",            required, &R::text);
  codec.add_field("timestamp",       required, &R::timestamp);
  codec.add_field("agent_context",   optional, &R::agent_context, chat_agent_context_codec());
  codec.add_field("envelope_header", optional, &R::envelope_header);
  return codec;
}

}  // namespace orvanta::messages
