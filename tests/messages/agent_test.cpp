#include "messages/agent.hpp"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "record_check.hpp"

namespace orvanta::messages {
namespace {

using test::runner;
using test::WireCase;

TEST(AgentRecords, WireTable) {
  const std::string citation = R"({"start_index":4,"end_index":12,"url":"https://example.org/a","title":"A"})";
  const std::string entity = R"({"name":"Miles","type":"artist"})";
  const std::string search =
      R"({"status":"ok","text":"Cool jazz","citations":[)" + citation + R"(],"entities":[)" + entity + "]}";
  const WireCase cases[] = {
      {"AgentBootstrapResponse", runner(agent_bootstrap_response_codec),
       R"({"hierarchy_id":"h1","agent_uri":"orvanta:agent:a1","agent_name":"Helper"})", "hierarchy_id"},
      {"AgentOnlineStateRequest", runner(agent_online_state_request_codec),
       R"({"state":"online","agent_uri":"orvanta:agent:a1"})"},
      {"AgentOnlineStateResponse", runner(agent_online_state_response_codec), R"({"state":"online"})", "state"},
      {"AskResponse", runner(ask_response_codec),
       R"({"contents":[{"text":"Here","uris":["orvanta:track:1"]},{"uris":[]}],"actions":[]})", "contents", "actions"},
      {"AskResponse/actions", runner(ask_response_codec),
       R"({"contents":[],"actions":[{"uri":"orvanta:playlist:p1"},{"uri":"orvanta:album:b2"}]})", "contents"},
      {"WebSearchRequest", runner(web_search_request_codec), R"({"input":"jazz","entity_uri":"orvanta:artist:a1"})"},
      {"WebSearchResponse", runner(web_search_response_codec), search, "citations entities"},
  };
  test::check_wire_table(cases);
  test::check_record(web_search_citation_codec, {4, 12, "https://example.org/a", "A"}, citation, "end_index");
}

}  // namespace
}  // namespace orvanta::messages
