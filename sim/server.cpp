#include "sim/server.hpp"

#include <cstdio>
#include <exception>

#include <asio/co_spawn.hpp>
#include <asio/experimental/as_tuple.hpp>
#include <asio/ip/address_v4.hpp>
#include <asio/use_awaitable.hpp>

#include "sim/session.hpp"
#include "sim/wire.hpp"

namespace orvanta::sim {

void report_coroutine_end(std::exception_ptr error) {
  if (!error) return;
  try {
    std::rethrow_exception(error);
  } catch (const std::exception& e) {
    std::fprintf(stderr, "orvanta_desktop_sim: connection ended by an exception: %s\n", e.what());
  } catch (...) {
    std::fprintf(stderr, "orvanta_desktop_sim: connection ended by an unknown exception\n");
  }
}

Server::Server(asio::io_context& context, Dispatcher& dispatcher, const FaultPlan& faults, RequestLog* log)
    : context_(context), dispatcher_(dispatcher), faults_(faults), log_(log) {}

std::string Server::listen(const std::vector<std::uint16_t>& ports) {
  const asio::ip::address_v4 loopback = asio::ip::make_address_v4("127.0.0.1");
  for (std::uint16_t port : ports) {
    auto acceptor = std::make_unique<asio::ip::tcp::acceptor>(context_);
    const asio::ip::tcp::endpoint endpoint(loopback, port);
    std::error_code ec;
    acceptor->open(endpoint.protocol(), ec);
    if (!ec) acceptor->set_option(asio::socket_base::reuse_address(true), ec);
    if (!ec) acceptor->bind(endpoint, ec);
    if (!ec) acceptor->listen(asio::socket_base::max_listen_connections, ec);
    if (ec) return "cannot listen on 127.0.0.1:" + std::to_string(port) + ": " + ec.message();
    ports_.push_back(acceptor->local_endpoint().port());
    acceptors_.push_back(std::move(acceptor));
  }
  return {};
}

void Server::start() {
  for (auto& acceptor : acceptors_) {
    asio::co_spawn(context_, accept_loop(acceptor.get()), report_coroutine_end);
  }
}

void Server::stop() {
  for (auto& acceptor : acceptors_) {
    std::error_code ignored;
    acceptor->close(ignored);
  }
  for (auto& weak : sessions_) {
    if (auto session = weak.lock()) session->close();
  }
  sessions_.clear();
}

void Server::deliver(const std::vector<Notice>& notices, Session& caller) {
  for (const Notice& notice : notices) {
    const std::string text = encode_notification(notice.method, notice.params);
    if (!notice.broadcast) {
      caller.send(text);
      continue;
    }
    for (auto& weak : sessions_) {
      auto session = weak.lock();
      if (session && session->subscribed(notice.method)) session->send(text);
    }
  }
}

asio::awaitable<void> Server::accept_loop(asio::ip::tcp::acceptor* acceptor) {
  for (;;) {
    auto [ec, socket] = co_await acceptor->async_accept(asio::experimental::as_tuple(asio::use_awaitable));
    if (!acceptor->is_open()) co_return;
    if (ec) continue;
    // A reply and the notification behind it go out at once, not 40 ms apart.
    socket.set_option(asio::ip::tcp::no_delay(true), ec);
    auto session = std::make_shared<Session>(std::move(socket), *this, ++connections_);
    std::erase_if(sessions_, [](const std::weak_ptr<Session>& s) { return s.expired(); });
    sessions_.push_back(session);
    session->start();
  }
}

}  // namespace orvanta::sim
