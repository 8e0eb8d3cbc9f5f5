// Chat: conversations, their messages, sending, and the subscription.
#include "sim/handlers.hpp"

#include <algorithm>

namespace orvanta::sim {

namespace {

ChatThread* find_thread(SimState& state, std::string_view id) {
  for (ChatThread& thread : state.chats) {
    if (thread.conversation.id == id) return &thread;
  }
  return nullptr;
}

Failure no_conversation(std::string_view id) { return bad_request("No conversation " + std::string(id)); }

}  // namespace

Answer<m::ChatListResponse> handle(m::ChatList, const m::EmptyRequest&, Context& context) {
  m::ChatListResponse response;
  for (const ChatThread& thread : context.state.chats) {
    m::ChatConversation conversation = thread.conversation;
    if (!thread.messages.empty()) conversation.last_message = thread.messages.back();
    response.conversations.push_back(std::move(conversation));
  }
  return response;
}

Answer<m::ChatReadResponse> handle(m::ChatRead, const m::ChatReadRequest& r, Context& context) {
  ChatThread* thread = find_thread(context.state, r.conversation_id);
  if (thread == nullptr) return no_conversation(r.conversation_id);
  auto end = thread->messages.end();
  if (r.before) {
    end = std::find_if(thread->messages.begin(), thread->messages.end(),
                       [&](const m::ChatMessage& message) { return message.id == *r.before; });
  }
  const auto available = end - thread->messages.begin();
  const auto count = std::min<std::ptrdiff_t>(available, std::max(r.limit.value_or(50), 0));
  thread->conversation.unread_count = 0;
  return m::ChatReadResponse{.conversation_id = r.conversation_id,
                             .messages = std::vector<m::ChatMessage>(end - count, end)};
}

Answer<m::ChatSendResponse> handle(m::ChatSend, const m::ChatSendRequest& r, Context& context) {
  ChatThread* thread = find_thread(context.state, r.conversation_id);
  if (thread == nullptr) return no_conversation(r.conversation_id);
  if (r.text.empty() && !r.share_uri) return bad_request("A message needs text or a shared URI");
  m::ChatMessage message{.id = context.new_id("msg-sim"), .sender = context.state.account.user.username,
                         .text = r.text, .shared_uri = r.share_uri, .shared_off_platform = false,
                         .timestamp = context.now, .envelope_header = r.envelope_header};
  thread->messages.push_back(message);
  m::ChatNotification notice{.conversation_id = r.conversation_id, .message_id = message.id, .sender = message.sender,
                             .text = message.text, .timestamp = message.timestamp, .agent_context = std::nullopt,
                             .envelope_header = r.envelope_header};
  if (r.send_as_agent) notice.agent_context = m::ChatAgentContext{"sim-helper", r.chat_role.value_or("assistant")};
  context.broadcast<m::notification::ChatSubscribe>(notice);
  return m::ChatSendResponse{.message_id = message.id};
}

Answer<m::EmptyResponse> handle(m::ChatSubscribe, const m::EmptyRequest&, Context&) { return m::EmptyResponse{}; }

}  // namespace orvanta::sim
