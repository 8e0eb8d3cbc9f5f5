#include "sim/session.hpp"

#include <chrono>
#include <cstring>
#include <utility>

#include <asio/co_spawn.hpp>
#include <asio/redirect_error.hpp>
#include <asio/use_awaitable.hpp>
#include <asio/write.hpp>

#include "desktop_link/deadline.hpp"
#include "desktop_link/frame_codec.hpp"
#include "messages/operations.hpp"
#include "sim/server.hpp"
#include "sim/wire.hpp"

namespace orvanta::sim {

namespace {

bool is_hello(std::string_view method) { return method == messages::AuthorizeConnection::name; }

// The bytes of a fault that goes on the wire before the answer.
std::string garbage_bytes(GarbageKind kind) {
  if (kind == GarbageKind::stray_byte) return std::string(1, '\0');
  // A header announcing exactly the reader's limit, which it refuses; no
  // payload follows, so the next byte the reader sees begins the answer.
  std::string header(link::frame_header_size, '\0');
  link::detail::put_frame_header(header.data(), link::max_frame_payload);
  return header;
}

}  // namespace

Session::Session(asio::ip::tcp::socket socket, Server& server, std::uint32_t number)
    : socket_(std::move(socket)),
      server_(server),
      delay_timer_(socket_.get_executor()),
      outbox_(static_cast<asio::io_context&>(socket_.get_executor().context())),
      number_(number) {}

void Session::start() {
  asio::co_spawn(socket_.get_executor(), read_loop(), report_coroutine_end);
  asio::co_spawn(socket_.get_executor(), write_loop(), report_coroutine_end);
}

void Session::close() {
  if (closing_ && !socket_.is_open()) return;
  closing_ = true;
  std::error_code ignored;
  socket_.shutdown(asio::ip::tcp::socket::shutdown_both, ignored);
  socket_.close(ignored);
  delay_timer_.cancel();
  static_cast<void>(outbox_.clear());
}

void Session::send(std::string payload) { push(Outgoing{Outgoing::Kind::frame, std::move(payload)}); }

void Session::push(Outgoing item) {
  if (closing_) return;
  // A failed wake-up leaves the item queued; the writer finds it at its next turn.
  static_cast<void>(outbox_.push(std::move(item)));
}

asio::awaitable<void> Session::read_loop() {
  auto self = shared_from_this();
  while (!closing_ && !draining_) {
    link::FrameReadResult frame = co_await link::read_frame(socket_, link::max_frame_payload);
    if (frame.ec.value() != 0) break;
    // A stray byte or an empty frame carries no request; the next byte is
    // read as a tag, as the client's reader does.
    if (frame.payload.empty()) continue;
    std::optional<messages::RequestMessage> request = decode_request(frame.payload);
    if (!request) {
      send(encode_error(std::nullopt, fail(link::DesktopApiError::invalid_request,
                                           "The message is not a Partner API request")));
      continue;
    }
    if (RequestLog* log = server_.log()) log->record(request->method, request->params.view(), number_);
    co_await answer(std::move(*request));
  }
  // When draining, the writer closes the socket once the last answer is out.
  if (!draining_) close();
}

asio::awaitable<void> Session::write_loop() {
  auto self = shared_from_this();
  // close() may have run while a write was in flight, before this loop came
  // back to wait; its wake-up is then gone, so the flag is looked at first.
  while (!closing_) {
    link::Result<Outgoing> item = co_await outbox_.pop(link::endless_timeout);
    if (!item) co_return;  // cleared by close()
    std::error_code ec;
    switch (item->kind) {
      case Outgoing::Kind::frame: {
        ec = co_await link::write_frame(socket_, std::move(item->bytes));
        break;
      }
      case Outgoing::Kind::raw: {
        auto written = co_await asio::async_write(socket_, asio::buffer(item->bytes),
                                                  asio::redirect_error(asio::use_awaitable, ec));
        static_cast<void>(written);
        break;
      }
      case Outgoing::Kind::close:
        close();
        co_return;
    }
    if (ec.value() != 0) {
      close();
      co_return;
    }
  }
}

asio::awaitable<void> Session::answer(messages::RequestMessage request) {
  const FaultPlan& faults = server_.faults();
  const std::string& method = request.method;
  if (faults.hangs(method) || (is_hello(method) && faults.silent_hello)) co_return;
  if (auto delay = faults.delay_for(method)) {
    delay_timer_.expires_after(*delay);
    std::error_code ec;
    co_await delay_timer_.async_wait(asio::redirect_error(asio::use_awaitable, ec));
    if (closing_) co_return;
  }
  if (auto garbage = faults.garbage_for(method)) push(Outgoing{Outgoing::Kind::raw, garbage_bytes(*garbage)});
  Reply reply = reply_to(request);
  send(std::move(reply.text));
  server_.deliver(reply.notices, *this);
  if (faults.close_after && ++answered_ >= *faults.close_after) {
    push(Outgoing{Outgoing::Kind::close, {}});
    draining_ = true;
  }
}

Session::Reply Session::reply_to(const messages::RequestMessage& request) {
  const FaultPlan& faults = server_.faults();
  const std::string& method = request.method;
  std::optional<std::string> id = request.id;
  if (faults.answers_with_wrong_id(method)) id = id.value_or("") + "-not-yours";
  if (is_hello(method) && server_.spoils_this_hello()) return spoiled_hello(*faults.spoil_first_hello, id);
  if (is_hello(method) && faults.reject_hello) {
    return {encode_error(id, fail(link::DesktopApiError::unauthorized_request,
                                  "This desktop client does not accept connections from the CLI")), {}};
  }
  if (!authorized_ && !is_hello(method)) {
    return {encode_error(id, fail(link::DesktopApiError::unauthorized_request,
                                  "Send authorize_connection before " + method)), {}};
  }
  if (const Failure* failure = faults.failure_for(method)) return {encode_error(id, *failure), {}};
  if (const std::string* result = faults.answer_for(method)) return {encode_result(id, *result), {}};
  Outcome outcome = server_.dispatcher().run(method, request.params.view());
  if (!outcome.ok()) return {encode_error(id, outcome.failure), {}};
  if (is_hello(method)) authorized_ = true;
  // A successful call of a subscribing method subscribes this connection.
  messages::visit_notification(method, [&](auto) { subscriptions_.emplace(method); });
  return {encode_result(id, *outcome.result), std::move(outcome.notices)};
}

// A first hello answered as a confused desktop client might answer it. The
// connection stays unauthorized.
Session::Reply Session::spoiled_hello(HelloSpoil spoil, const std::optional<std::string>& id) {
  switch (spoil) {
    case HelloSpoil::reject:
      return {encode_error(id, fail(link::DesktopApiError::unauthorized_request, "Not now, try again")), {}};
    case HelloSpoil::garbled:
      return {encode_result(id, R"({"orvanta_app_version":17})"), {}};
    case HelloSpoil::bad_completion:
      return {encode_result(id, R"({"orvanta_app_version":"1.2.58.411","sends_complete_notification":true})"),
              {Notice{"authorize_connection", "[]", false}}};
  }
  return {};
}

}  // namespace orvanta::sim
