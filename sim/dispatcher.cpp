#include "sim/dispatcher.hpp"

#include <ctime>
#include <exception>

#include "messages/operations.hpp"
#include "sim/handlers.hpp"

namespace orvanta::sim {

namespace {

// Operations that answer while nobody is logged in: the connection's own
// requests, subscriptions, and what doesn't concern the user's account.
// clang-format off
template <class Op> inline constexpr bool works_logged_out = false;
template <> inline constexpr bool works_logged_out<m::AuthorizeConnection> = true;
template <> inline constexpr bool works_logged_out<m::LoginStateSubscription> = true;
template <> inline constexpr bool works_logged_out<m::ConnectLogin> = true;
template <> inline constexpr bool works_logged_out<m::TkMessageAuthPolicy> = true;
template <> inline constexpr bool works_logged_out<m::BleStateSubscription> = true;
template <> inline constexpr bool works_logged_out<m::ConnectActiveDeviceSubscription> = true;
template <> inline constexpr bool works_logged_out<m::BrowserNew> = true;
template <> inline constexpr bool works_logged_out<m::BrowserList> = true;
template <> inline constexpr bool works_logged_out<m::BrowserClose> = true;
template <> inline constexpr bool works_logged_out<m::BrowserSnapshot> = true;
template <> inline constexpr bool works_logged_out<m::BrowserNavigate> = true;
template <> inline constexpr bool works_logged_out<m::BrowserClick> = true;
template <> inline constexpr bool works_logged_out<m::BrowserType> = true;
template <> inline constexpr bool works_logged_out<m::BrowserScroll> = true;
template <> inline constexpr bool works_logged_out<m::BrowserEvaluate> = true;
template <> inline constexpr bool works_logged_out<m::PermissionsGrant> = true;
template <> inline constexpr bool works_logged_out<m::PermissionsCurrent> = true;
template <> inline constexpr bool works_logged_out<m::PermissionsSubscribe> = true;
template <> inline constexpr bool works_logged_out<m::PermissionsResolve> = true;
template <> inline constexpr bool works_logged_out<m::ShowToast> = true;
template <> inline constexpr bool works_logged_out<m::CollectLogsSubscription> = true;
// clang-format on

template <class Op>
void run_operation(std::string_view params, Context& context, Outcome& outcome) {
  using Request = typename Op::Request;
  using Response = typename Op::Response;
  Request request;
  try {
    request = json::decode(messages::record_codec<Request>(), params);
  } catch (const json::decode_exception& e) {
    outcome.failure = bad_request("The parameters of " + std::string(Op::name) + " don't fit: " + e.what() +
                                  " at byte " + std::to_string(e.offset()));
    return;
  }
  if (!works_logged_out<Op> && !context.state.account.logged_in) {
    outcome.failure = fail(link::DesktopApiError::not_logged_in, "Nobody is logged in to the desktop client");
    return;
  }
  Answer<Response> answer = handle(Op{}, request, context);
  if (!answer.ok()) {
    outcome.failure = answer.failure();
    return;
  }
  outcome.result = json::encode(messages::record_codec<Response>(), answer.value()).str();
}

}  // namespace

Outcome Dispatcher::run(std::string_view method, std::string_view params) {
  Context context{state_, clock_(), complete_notification_, {}};
  Outcome outcome;
  bool known = false;
  try {
    known = messages::visit_operation(
        method, [&]<class Op>(std::type_identity<Op>) { run_operation<Op>(params, context, outcome); });
  } catch (const std::exception& e) {
    // A handler that trips over the file system, say, fails its request and
    // not the connection.
    outcome.result.reset();
    outcome.failure = fail(link::DesktopApiError::internal_server_error, std::string("Internal error: ") + e.what());
    return outcome;
  }
  if (!known) outcome.failure = fail(link::DesktopApiError::unknown_request, "Unknown method '" + std::string(method) + "'");
  if (outcome.ok()) outcome.notices = std::move(context.notices);
  return outcome;
}

std::string utc_now_text() {
  const std::time_t now = std::time(nullptr);
  std::tm parts{};
  gmtime_r(&now, &parts);
  char text[32];
  std::strftime(text, sizeof text, "%Y-%m-%dT%H:%M:%SZ", &parts);
  return text;
}

}  // namespace orvanta::sim
