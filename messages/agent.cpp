#include "messages/agent.hpp"

namespace orvanta::messages {

namespace {
using json::presence::defaulted;
using json::presence::optional;
using json::presence::required;
}  // namespace

json::ObjectCodec<AgentBootstrapResponse> agent_bootstrap_response_codec() {
  using R = AgentBootstrapResponse;
  json::ObjectCodec<R> codec;
  codec.add_field("hierarchy_id", required, &R::hierarchy_id);
  codec.add_field("agent_uri",    optional, &R::agent_uri);
  codec.add_field("agent_name",   optional, &R::agent_name);
  return codec;
}

json::ObjectCodec<AgentOnlineStateRequest> agent_online_state_request_codec() {
  using R = AgentOnlineStateRequest;
  json::ObjectCodec<R> codec;
  codec.add_field("state",     required, &R::state);
  codec.add_field("agent_uri", required, &R::agent_uri);
  return codec;
}

json::ObjectCodec<AgentOnlineStateResponse> agent_online_state_response_codec() {
  using R = AgentOnlineStateResponse;
  json::ObjectCodec<R> codec;
  codec.add_field("state", required, &R::state);
  return codec;
}

json::ObjectCodec<AskRequest> ask_request_codec() {
  using R = AskRequest;
  json::ObjectCodec<R> codec;
  codec.add_field("question", required, &R::question);
  return codec;
}

json::ObjectCodec<AskContent> ask_content_codec() {
  using R = AskContent;
  json::ObjectCodec<R> codec;
  codec.add_field("text", optional, &R::text);
  codec.add_field("uris", required, &R::uris);
  return codec;
}

json::ObjectCodec<AskAction> ask_action_codec() {
  using R = AskAction;
  json::ObjectCodec<R> codec;
  codec.add_field("uri", required, &R::uri);
  return codec;
}

json::ObjectCodec<AskResponse> ask_response_codec() {
  using R = AskResponse;
  json::ObjectCodec<R> codec;
  codec.add_field("contents", required,  &R::contents, json::list_codec(ask_content_codec()));
  codec.add_field("actions",  defaulted, &R::actions,  json::list_codec(ask_action_codec()));
  return codec;
}

json::ObjectCodec<WebSearchRequest> web_search_request_codec() {
  using R = WebSearchRequest;
  json::ObjectCodec<R> codec;
  codec.add_field("input",      required, &R::input);
  codec.add_field("entity_uri", optional, &R::entity_uri);
  return codec;
}

json::ObjectCodec<WebSearchCitation> web_search_citation_codec() {
  using R = WebSearchCitation;
  json::ObjectCodec<R> codec;
  codec.add_field("start_index", required, &R::start_index);
  codec.add_field("end_index",   required, &R::end_index);
  codec.add_field("url",         required, &R::url);
  codec.add_field("title",       required, &R::title);
  return codec;
}

json::ObjectCodec<WebSearchEntity> web_search_entity_codec() {
  using R = WebSearchEntity;
  json::ObjectCodec<R> codec;
  codec.add_field("name", required, &R::name);
  codec.add_field("type", required, &R::type);
  return codec;
}

json::ObjectCodec<WebSearchResponse> web_search_response_codec() {
  using R = WebSearchResponse;
  json::ObjectCodec<R> codec;
  codec.add_field("status",    required, &R::status);
  codec.add_field("text",      required, &R::text);
  codec.add_field("citations", required, &R::citations, json::list_codec(web_search_citation_codec()));
  codec.add_field("entities",  required, &R::entities,  json::list_codec(web_search_entity_codec()));
  return codec;
}

}  // namespace orvanta::messages
