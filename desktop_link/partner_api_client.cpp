#include "desktop_link/partner_api_client.hpp"

#include <utility>

#include <asio/error.hpp>

#include "desktop_link/error_category.hpp"
#include "desktop_link/log.hpp"
#include "desktop_link/request_id.hpp"
#include "desktop_link/typed_call.hpp"

namespace orvanta::link {

PartnerApiClient::PartnerApiClient(std::string client_id, std::string name, std::string version,
                                   asio::io_context& context, std::shared_ptr<PartnerApiTransport> transport,
                                   ConnectSettings settings)
    : client_id_(std::move(client_id)),
      name_(std::move(name)),
      version_(std::move(version)),
      io_context_(&context),
      settings_(std::move(settings)),
      transport_(std::move(transport)) {
  if (transport_) {
    connection_state_.store(state_connected);
    transport_error_connection_ = transport_->error_signal.connect(
        [this](std::error_code ec) { error_signal_.emit(ec, std::string("connection")); });
  }
}

PartnerApiClient::~PartnerApiClient() { disconnect(); }

std::uint8_t PartnerApiClient::connection_state() const { return connection_state_.load(); }
bool PartnerApiClient::logged_in() const { return logged_in_.load(); }
bool PartnerApiClient::broadcasting() const { return broadcasting_.load(); }

// Each state change is logged before it is stored and emitted after.
void PartnerApiClient::set_state(std::uint8_t state) {
  log(log_level_state, "PartnerApiClient - Connection state changed: %d", static_cast<int>(state));
  connection_state_.store(state);
  connection_state_signal_.emit(state);
}

void PartnerApiClient::fall_to_disconnected() {
  if (connection_state_.load() == state_disconnected) return;
  logged_in_.store(false);
  set_state(state_disconnected);
}

asio::awaitable<std::error_code> PartnerApiClient::connect() {
  if (connection_state_.load() == state_connected) co_return make_error_code(DesktopApiError::success);
  if (auto earlier = connect_canceller_.lock()) earlier->cancel();
  if (connection_state_.load() != state_connecting) set_state(state_connecting);

  auto transport = std::make_shared<PartnerApiTransport>(*io_context_, settings_);
  ScopedConnection state_connection = transport->connection_signal.connect([this](bool connected) {
    if (!connected) fall_to_disconnected();
  });
  ScopedConnection error_connection = transport->error_signal.connect(
      [this](std::error_code ec) { error_signal_.emit(ec, std::string("connection")); });
  auto canceller = std::make_shared<ConnectCanceller>();
  connect_canceller_ = canceller;

  auto connected = co_await transport->connect(client_id_, name_, version_, notification_dispatcher(), canceller);
  if (connected.value() != 0) {
    fall_to_disconnected();
    co_return normalize_error(connected, "connect");
  }

  // The one request that skips the state check: the state is not 2 yet.
  auto subscribed = co_await typed_call<messages::LoginStateSubscription>(transport, {}, new_request_id());
  if (!subscribed) {
    log(log_level_failure, "Partner API - Failed to subscribe to login state: %s",
        subscribed.error().message().c_str());
    transport->disconnect();
    co_return normalize_error(subscribed.error(), "subscribe_to_login_state");
  }

  transport_state_connection_ = std::move(state_connection);
  transport_error_connection_ = std::move(error_connection);
  std::swap(transport_, transport);
  if (transport) transport->disconnect();
  if (connection_state_.load() != state_connected) set_state(state_connected);
  co_return make_error_code(DesktopApiError::success);
}

void PartnerApiClient::disconnect() {
  if (connection_state() == state_disconnected) return;
  if (auto attempt = connect_canceller_.lock()) attempt->cancel();
  if (transport_) {
    transport_->disconnect();
    transport_.reset();
  }
  fall_to_disconnected();
}

std::error_code PartnerApiClient::normalize_error(std::error_code ec, std::string_view operation) {
  if (ec.value() != 0 && ec != make_error_code(DesktopApiError::cancelled)) {
    error_signal_.emit(ec, std::string(operation));
  }
  return fold_error(ec, asio::system_category());
}

Connection PartnerApiClient::on_error(ErrorListener listener) {
  return error_signal_.connect(std::move(listener), SlotPosition::at_back);
}
Connection PartnerApiClient::on_connection_state(ConnectionStateListener listener) {
  return connection_state_signal_.connect(std::move(listener), SlotPosition::at_back);
}
Connection PartnerApiClient::on_login_state(BoolListener listener) {
  return login_state_signal_.connect(std::move(listener), SlotPosition::at_back);
}
Connection PartnerApiClient::on_ble_state(BoolListener listener) {
  return ble_state_signal_.connect(std::move(listener), SlotPosition::at_back);
}
Connection PartnerApiClient::on_active_device(ActiveDeviceListener listener) {
  return active_device_signal_.connect(std::move(listener), SlotPosition::at_back);
}
Connection PartnerApiClient::on_ai_completions_stream(RecordListener<messages::AiCompletionsStreamChunk> listener) {
  return ai_completions_signal_.connect(std::move(listener), SlotPosition::at_back);
}
Connection PartnerApiClient::on_ai_messages_stream(RecordListener<messages::AiMessagesStreamChunk> listener) {
  return ai_messages_signal_.connect(std::move(listener), SlotPosition::at_back);
}
Connection PartnerApiClient::on_chat(RecordListener<messages::ChatNotification> listener) {
  return chat_signal_.connect(std::move(listener), SlotPosition::at_back);
}
Connection PartnerApiClient::on_permission_request(RecordListener<messages::PermissionRequest> listener) {
  return permission_signal_.connect(std::move(listener), SlotPosition::at_back);
}
Connection PartnerApiClient::on_collect_logs(RecordListener<messages::CollectLogsNotification> listener) {
  return collect_logs_signal_.connect(std::move(listener), SlotPosition::at_back);
}

}  // namespace orvanta::link
