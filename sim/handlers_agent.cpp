// Agent, model calls and speech. No model runs here: the answers are canned
// but well formed, and stream requests send their chunks as notifications.
#include "sim/handlers.hpp"

#include "sim/catalogue.hpp"

namespace orvanta::sim {

namespace {

constexpr const char* json_type = "application/json";

// The body of a model call, with the request's length to tell answers apart.
std::string canned_body(std::string_view what, const std::string& body) {
  return std::string(R"({"object":")") + std::string(what) + R"(","model":"sim-echo","input_bytes":)" +
         std::to_string(body.size()) + R"(,"output":"This is the simulator; no model was called."})";
}

template <class Chunk>
std::vector<Chunk> stream_chunks() {
  std::vector<Chunk> chunks;
  for (const char* piece : {"This is ", "the simulator."}) {
    Chunk chunk;
    chunk.data = piece;
    chunk.status_code = 200;
    chunk.content_type = "text/event-stream";
    chunks.push_back(chunk);
  }
  chunks.back().done = true;
  return chunks;
}

}  // namespace

Answer<m::AgentBootstrapResponse> handle(m::AgentBootstrap, const m::EmptyRequest&, Context& context) {
  return m::AgentBootstrapResponse{.hierarchy_id = "hierarchy-" + context.state.account.user.username,
                                   .agent_uri = "orvanta:agent:sim-helper", .agent_name = "Simulator Helper"};
}

Answer<m::AgentOnlineStateResponse> handle(m::AgentOnlineState, const m::AgentOnlineStateRequest& r, Context&) {
  if (r.state != "online" && r.state != "offline") return bad_request("Agent state must be online or offline");
  return m::AgentOnlineStateResponse{.state = r.state};
}

Answer<m::AskResponse> handle(m::Ask, const m::AskRequest& r, Context& context) {
  if (r.question.empty()) return bad_request("Ask a question");
  m::AskResponse response;
  m::AskContent content{.text = "Here is what the library has for: " + r.question, .uris = {}};
  for (const Track& track : context.state.tracks) {
    if (contains_folded(r.question, track.name) || content.uris.size() < 3) content.uris.push_back(track.uri);
  }
  if (!content.uris.empty()) response.actions.push_back(m::AskAction{.uri = content.uris.front()});
  response.contents.push_back(std::move(content));
  return response;
}

Answer<m::WebSearchResponse> handle(m::WebSearch, const m::WebSearchRequest& r, Context&) {
  if (r.input.empty()) return bad_request("Nothing to search for");
  m::WebSearchResponse response{.status = "completed", .text = "No web access in the simulator: " + r.input,
                                .citations = {}, .entities = {}};
  response.citations.push_back(m::WebSearchCitation{0, 2, "https://example.org/search", "Example result"});
  return response;
}

Answer<m::AiCompletionsResponse> handle(m::AiCompletions, const m::AiCompletionsRequest& r, Context&) {
  return m::AiCompletionsResponse{200, canned_body("chat.completion", r.body), json_type};
}

Answer<m::EmptyResponse> handle(m::AiCompletionsStream, const m::AiCompletionsStreamRequest&, Context& context) {
  for (const auto& chunk : stream_chunks<m::AiCompletionsStreamChunk>()) {
    context.tell_caller<m::notification::AiCompletionsStream>(chunk);
  }
  return m::EmptyResponse{};
}

Answer<m::AiImagesResponse> handle(m::AiImages, const m::AiImagesRequest& r, Context&) {
  return m::AiImagesResponse{200, canned_body("image", r.body), json_type};
}

Answer<m::TtsSynthesizeResponse> handle(m::TtsSynthesize, const m::TtsSynthesizeRequest& r, Context&) {
  if (r.text.empty()) return bad_request("Nothing to say");
  if (r.output_path.empty()) return bad_request("Give an output path for the audio");
  // About a tenth of a second per character, as a slow reader speaks.
  return m::TtsSynthesizeResponse{.url = "file://" + r.output_path, .output_path = r.output_path,
                                  .duration_ms = static_cast<std::int64_t>(r.text.size()) * 100};
}

Answer<m::TtsVoicesResponse> handle(m::TtsVoices, const m::EmptyRequest&, Context&) {
  m::TtsVoicesResponse response{.default_voice_id = "sim-fern", .aliases = {"default"}, .voices = {}};
  response.voices.push_back(m::TtsVoice{"sim-fern", "Fern", "sim", "mp3", "en-GB", {"en", "English"},
                                        {"female", "Female"}, {"gb", "British"}, "Hello from the simulator."});
  response.voices.push_back(m::TtsVoice{"sim-tor", "Tor", "sim", "mp3", "sv-SE", {"sv", "Swedish"},
                                        {"male", "Male"}, {"se", "Swedish"}, "Hej från simulatorn."});
  return response;
}

Answer<m::AiMessagesResponse> handle(m::AiMessages, const m::AiMessagesRequest& r, Context&) {
  return m::AiMessagesResponse{200, canned_body("message", r.body), json_type};
}

Answer<m::EmptyResponse> handle(m::AiMessagesStream, const m::AiMessagesStreamRequest&, Context& context) {
  for (const auto& chunk : stream_chunks<m::AiMessagesStreamChunk>()) {
    context.tell_caller<m::notification::AiMessagesStream>(chunk);
  }
  return m::EmptyResponse{};
}

Answer<m::TelemetrySandboxResponse> handle(m::TelemetrySandbox, const m::TelemetrySandboxRequest&, Context&) {
  return m::TelemetrySandboxResponse{.status_code = 204, .body = ""};
}

}  // namespace orvanta::sim
