// The notification half of PartnerApiClient: decoding each known method's
// `params` with its record and emitting it on the matching signal.

#include "desktop_link/partner_api_client.hpp"

#include <optional>
#include <utility>

#include "desktop_link/log.hpp"
#include "messages/operations.hpp"

namespace orvanta::link {
namespace {

// Decodes `params` as the record of N; absent `params` fail.
template <class N>
std::optional<typename N::Params> decode_params(const NotificationMessage& message) {
  typename N::Params value{};
  if (!messages::decode_notification_params<N>(message.params, value)) return std::nullopt;
  return value;
}

const std::error_code bad_message = std::make_error_code(std::errc::bad_message);

}  // namespace

PartnerApiTransport::NotificationHandler PartnerApiClient::notification_dispatcher() {
  return [weak = std::weak_ptr<PartnerApiClient*>(lifetime_)](NotificationMessage message) {
    if (auto client = weak.lock()) (*client)->on_notification(std::move(message));
  };
}

void PartnerApiClient::on_notification(NotificationMessage message) {
  namespace n = messages::notification;
  const std::string_view method = message.method;
  if (method == n::LoginStateSubscription::name) return on_login_notification(message);
  if (method == n::BleStateSubscription::name) return on_ble_notification(message);
  if (method == n::ConnectActiveDeviceSubscription::name) return on_active_device_notification(message);
  if (method == n::ChatSubscribe::name) return emit_stream_notification<n::ChatSubscribe>(message, chat_signal_);
  if (method == n::PermissionsSubscribe::name) {
    return emit_stream_notification<n::PermissionsSubscribe>(message, permission_signal_);
  }
  if (method == n::CollectLogsSubscription::name) {
    return emit_stream_notification<n::CollectLogsSubscription>(message, collect_logs_signal_);
  }
  if (method == n::AiCompletionsStream::name) {
    return emit_stream_notification<n::AiCompletionsStream>(message, ai_completions_signal_);
  }
  if (method == n::AiMessagesStream::name) {
    return emit_stream_notification<n::AiMessagesStream>(message, ai_messages_signal_);
  }
}

// Stored and emitted every time, also for a value we already had.
void PartnerApiClient::on_login_notification(const NotificationMessage& message) {
  auto params = decode_params<messages::notification::LoginStateSubscription>(message);
  if (!params) {
    log(log_level_failure, "Partner API - Failed to decode login state notification: %s",
        bad_message.message().c_str());
    error_signal_.emit(bad_message, std::string("notification"));
    return;
  }
  const bool value = params->logged_in;
  log(log_level_state, "PartnerApiClient - Login state changed: %s", value ? "true" : "false");
  logged_in_.store(value);
  login_state_signal_.emit(value);
}

// Unlike the login state, an unchanged value is filtered out.
void PartnerApiClient::on_ble_notification(const NotificationMessage& message) {
  auto params = decode_params<messages::notification::BleStateSubscription>(message);
  if (!params) {
    log(log_level_failure, "Partner API - Failed to decode BLE state notification: %s",
        bad_message.message().c_str());
    error_signal_.emit(bad_message, std::string("notification"));
    return;
  }
  const bool value = params->broadcasting;
  if (value == broadcasting_.load()) return;
  log(log_level_state, "PartnerApiClient - BLE broadcasting state changed: %s", value ? "true" : "false");
  broadcasting_.store(value);
  ble_state_signal_.emit(value);
}

void PartnerApiClient::on_active_device_notification(const NotificationMessage& message) {
  auto params = decode_params<messages::notification::ConnectActiveDeviceSubscription>(message);
  if (!params) {
    error_signal_.emit(bad_message, std::string("notification"));
    return;
  }
  active_device_signal_.emit(params->active_device_id);
}

// The streams started by an operation: a notification without `params` is
// ignored, one whose `params` don't decode is an error of "notification".
template <class N, class Record>
void PartnerApiClient::emit_stream_notification(const NotificationMessage& message, const Signal<Record>& signal) {
  if (!message.params) return;
  auto params = decode_params<N>(message);
  if (!params) {
    error_signal_.emit(bad_message, std::string("notification"));
    return;
  }
  signal.emit(*params);
}

}  // namespace orvanta::link
