// Records of the agent methods: bootstrap, online state, ask and web search.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "json/json.hpp"

namespace orvanta::messages {

struct AgentBootstrapResponse {
  std::string hierarchy_id;
  std::optional<std::string> agent_uri;
  std::optional<std::string> agent_name;
  bool operator==(const AgentBootstrapResponse&) const = default;
};

struct AgentOnlineStateRequest {
  std::string state;
  std::string agent_uri;
  bool operator==(const AgentOnlineStateRequest&) const = default;
};

struct AgentOnlineStateResponse {
  std::string state;
  bool operator==(const AgentOnlineStateResponse&) const = default;
};

struct AskRequest {
  std::string question;
  bool operator==(const AskRequest&) const = default;
};

struct AskContent {
  std::optional<std::string> text;
  std::vector<std::string> uris;
  bool operator==(const AskContent&) const = default;
};

struct AskAction {
  std::string uri;
  bool operator==(const AskAction&) const = default;
};

struct AskResponse {
  std::vector<AskContent> contents;
  std::vector<AskAction> actions;
  bool operator==(const AskResponse&) const = default;
};

struct WebSearchRequest {
  std::string input;
  std::optional<std::string> entity_uri;
  bool operator==(const WebSearchRequest&) const = default;
};

struct WebSearchCitation {
  std::int32_t start_index = 0;
  std::int32_t end_index = 0;
  std::string url;
  std::string title;
  bool operator==(const WebSearchCitation&) const = default;
};

struct WebSearchEntity {
  std::string name;
  std::string type;
  bool operator==(const WebSearchEntity&) const = default;
};

struct WebSearchResponse {
  std::string status;
  std::string text;
  std::vector<WebSearchCitation> citations;
  std::vector<WebSearchEntity> entities;
  bool operator==(const WebSearchResponse&) const = default;
};

json::ObjectCodec<AgentBootstrapResponse> agent_bootstrap_response_codec();
json::ObjectCodec<AgentOnlineStateRequest> agent_online_state_request_codec();
json::ObjectCodec<AgentOnlineStateResponse> agent_online_state_response_codec();
json::ObjectCodec<AskRequest> ask_request_codec();
json::ObjectCodec<AskContent> ask_content_codec();
json::ObjectCodec<AskAction> ask_action_codec();
json::ObjectCodec<AskResponse> ask_response_codec();
json::ObjectCodec<WebSearchRequest> web_search_request_codec();
json::ObjectCodec<WebSearchCitation> web_search_citation_codec();
json::ObjectCodec<WebSearchEntity> web_search_entity_codec();
json::ObjectCodec<WebSearchResponse> web_search_response_codec();

}  // namespace orvanta::messages
