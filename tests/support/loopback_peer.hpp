#pragma once

// A fake desktop client for link tests: a listener on 127.0.0.1 port 0 and
// one accepted connection, driven by coroutines on the test's own
// io_context. Frames are read and written by hand here, independently of the
// link's own framing code, so a test compares what the link sent with bytes
// written from the wire table.

#include <cstdint>
#include <cstring>
#include <functional>
#include <string>
#include <string_view>
#include <utility>

#include <asio/awaitable.hpp>
#include <asio/buffer.hpp>
#include <asio/io_context.hpp>
#include <asio/ip/tcp.hpp>
#include <asio/read.hpp>
#include <asio/use_awaitable.hpp>
#include <asio/write.hpp>

namespace orvanta::testing {

// A frame header that announces `length` bytes.
inline std::string frame_header(std::uint32_t length) {
  std::string bytes(5, '\0');
  bytes[0] = '\x1d';
  std::memcpy(bytes.data() + 1, &length, 4);
  return bytes;
}

// The bytes of one frame around `payload`.
inline std::string frame(std::string_view payload) {
  return frame_header(static_cast<std::uint32_t>(payload.size())).append(payload);
}

class LoopbackPeer {
 public:
  explicit LoopbackPeer(asio::io_context& context)
      : acceptor_(context, asio::ip::tcp::endpoint(asio::ip::make_address_v4("127.0.0.1"), 0)), socket_(context) {}

  asio::ip::tcp::endpoint endpoint() const { return acceptor_.local_endpoint(); }
  std::uint16_t port() const { return endpoint().port(); }

  // Accepts the next connection; a former one is closed first.
  asio::awaitable<void> accept() {
    if (socket_.is_open()) socket_.close();
    socket_ = co_await acceptor_.async_accept(asio::use_awaitable);
    // Small frames in a row must not wait for the other side's delayed ACK.
    socket_.set_option(asio::ip::tcp::no_delay(true));
  }

  // The payload of the next frame. Throws std::system_error on a read
  // failure and std::runtime_error on a wrong tag.
  asio::awaitable<std::string> read_frame() {
    char header[5];
    std::size_t n = co_await asio::async_read(socket_, asio::buffer(header, 5), asio::use_awaitable);
    static_cast<void>(n);
    if (header[0] != '\x1d') throw std::runtime_error("peer: wrong tag");
    std::uint32_t length = 0;
    std::memcpy(&length, header + 1, 4);
    std::string payload(length, '\0');
    n = co_await asio::async_read(socket_, asio::buffer(payload), asio::use_awaitable);
    co_return payload;
  }

  asio::awaitable<void> write_frame(std::string payload) {
    auto bytes = frame(payload);
    co_await write_raw(std::move(bytes));
  }

  asio::awaitable<void> write_raw(std::string bytes) {
    std::size_t n = co_await asio::async_write(socket_, asio::buffer(bytes), asio::use_awaitable);
    static_cast<void>(n);
  }

  void close() {
    if (socket_.is_open()) socket_.close();
  }

  asio::ip::tcp::socket& socket() { return socket_; }

 private:
  asio::ip::tcp::acceptor acceptor_;
  asio::ip::tcp::socket socket_;
};

// Runs handlers one at a time until `done` says so, or the context runs out
// of work. Returns whether `done` was reached. A context that stopped for
// lack of work earlier is restarted, so this can be called again and again.
inline bool drive_until(asio::io_context& context, const std::function<bool()>& done) {
  while (!done()) {
    if (context.stopped()) context.restart();
    if (context.run_one() == 0) return done();
  }
  return true;
}

}  // namespace orvanta::testing
