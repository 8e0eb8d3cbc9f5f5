// The wire methods of PartnerApi that no command sends, and those whose
// parameters no command test looks at, each with the right method name and
// the parameters its argument form builds. The other methods are sent, and
// their parameters compared, by the command tests in tests/commands.

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "tests/desktop_link/link_fixture.hpp"

namespace {

using orvanta::link::DesktopApiError;
using orvanta::link::PartnerApi;
using orvanta::link::Result;
using orvanta::testing::LinkTest;
namespace messages = orvanta::messages;

template <class T>
asio::awaitable<std::error_code> code_of(asio::awaitable<Result<T>> operation) {
  auto result = co_await std::move(operation);
  co_return result.error();
}

struct Row {
  std::string_view method;
  std::function<asio::awaitable<std::error_code>(PartnerApi&)> call;
  std::string params;  // what the peer must receive; empty: not looked at
};

// A default record's bytes are the codec's, pinned by the record tests;
// here only the parameters an argument form builds are compared.
template <class Op>
Row row(std::function<asio::awaitable<std::error_code>(PartnerApi&)> call, std::string params = {}) {
  return {Op::name, std::move(call), std::move(params)};
}

// ROW(Op, call) sends a default record; ROW_WITH(Op, params, call) the
// given parameters.
#define ROW(Op, ...) row<messages::Op>([](PartnerApi& a) { return code_of(a.__VA_ARGS__); })
#define ROW_WITH(Op, params, ...) row<messages::Op>([](PartnerApi& a) { return code_of(a.__VA_ARGS__); }, params)

std::vector<Row> operations_no_command_test_pins() {
  return {
      ROW_WITH(ConnectLogin, R"({"source":"pull_notification"})",
               connect_login(messages::LoginSource::pull_notification)),
      ROW(GetUsernameHash, get_username_hash()),
      ROW(TkMessageAuthPolicy, tk_message_auth_policy()),
      ROW_WITH(PlaybackPlay, R"({"context":"orvanta:album:1","referrer":"ref","agentic_product_type":"agent"})",
               playback_play("orvanta:album:1", "ref", std::nullopt, "agent")),
      ROW_WITH(PlaybackShuffle, R"({"shuffle":true})", playback_shuffle(true)),
      ROW_WITH(PlaybackRepeat, R"({"repeat":"track"})", playback_repeat("track")),
      ROW(BleStateSubscription, ble_state_subscription()),
      ROW(ConnectActiveDeviceSubscription, connect_active_device_subscription()),
      ROW(AgentBootstrap, agent_bootstrap()),
      ROW(AgentOnlineState, agent_online_state({})),
      ROW_WITH(Ask, R"({"question":"why?"})", ask("why?")),
      ROW(WebSearch, web_search({})),
      ROW_WITH(AiCompletions, R"({"body":"b1"})", ai_completions("b1")),
      ROW_WITH(AiCompletionsStream, R"({"body":"b2"})", ai_completions_stream("b2")),
      ROW_WITH(AiImages, R"({"body":"b3"})", ai_images("b3")),
      ROW(TtsSynthesize, tts_synthesize({})),
      ROW(TtsVoices, tts_voices()),
      ROW_WITH(AiMessages, R"({"body":"b4"})", ai_messages("b4")),
      ROW_WITH(AiMessagesStream, R"({"body":"b5"})", ai_messages_stream("b5")),
      ROW_WITH(TelemetrySandbox, R"({"body":"b6"})", telemetry_sandbox("b6")),
      ROW_WITH(PodShowsDelete, R"({"id":"s1"})", pod_shows_delete("s1")),
      ROW_WITH(PodEpisodesStatus, R"({"id":"e1"})", pod_episodes_status("e1")),
      ROW_WITH(PodEpisodesDelete, R"({"id":"e2"})", pod_episodes_delete("e2")),
      ROW_WITH(ConnectTransfer, R"({"device_id":"d1"})", connect_transfer("d1")),
      ROW_WITH(ConnectDeviceInfo, R"({"device_id":"d3"})", connect_device_info("d3")),
      ROW(ChatList, chat_list()),
      ROW(ChatRead, chat_read({})),
      ROW(ChatSend, chat_send({})),
      ROW(ChatSubscribe, chat_subscribe()),
      ROW(BrowserNew, browser_new({})),
      ROW(BrowserList, browser_list()),
      ROW(BrowserClose, browser_close({})),
      ROW(BrowserSnapshot, browser_snapshot({})),
      ROW(BrowserNavigate, browser_navigate({})),
      ROW(BrowserClick, browser_click({})),
      ROW(BrowserType, browser_type({})),
      ROW(BrowserScroll, browser_scroll({})),
      ROW(BrowserEvaluate, browser_evaluate({})),
      ROW(PermissionsGrant, permissions_grant({})),
      ROW(PermissionsCurrent, permissions_current()),
      ROW(PermissionsSubscribe, permissions_subscribe()),
      ROW(PermissionsResolve, permissions_resolve({})),
      ROW(ShowToast, show_toast({})),
      ROW(CollectLogsSubscription, collect_logs_subscription()),
  };
}

#undef ROW
#undef ROW_WITH

using Operations = LinkTest;

// The peer refuses each method with "method not yet implemented", which the
// client hands back as it is.
TEST_F(Operations, SendTheirMethodAndParameters) {
  connect_client();
  const auto rows = operations_no_command_test_pins();
  for (auto& r : rows) {
    respond([](const std::string& id) { return orvanta::testing::error_reply(id, 15, "desktop_api"); });
    EXPECT_EQ(await(r.call(*client)), DesktopApiError::method_not_yet_implemented) << r.method;
    ASSERT_FALSE(seen.empty()) << r.method;
    EXPECT_EQ(seen.back().method, r.method);
    if (!r.params.empty()) {
      EXPECT_EQ(seen.back().params, r.params) << r.method;
    }
  }
  EXPECT_EQ(errors.size(), rows.size());
}

}  // namespace
