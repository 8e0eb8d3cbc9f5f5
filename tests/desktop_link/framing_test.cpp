#include "desktop_link/frame_codec.hpp"

#include <gtest/gtest.h>

#include <optional>
#include <string>

#include <asio/co_spawn.hpp>
#include <asio/connect.hpp>
#include <asio/detached.hpp>

#include "desktop_link/error_category.hpp"
#include "tests/support/loopback_peer.hpp"

namespace {

using orvanta::link::DesktopApiError;
using orvanta::link::FrameReadResult;
using orvanta::link::max_frame_payload;
using orvanta::testing::drive_until;
using orvanta::testing::frame;
using orvanta::testing::frame_header;
using orvanta::testing::LoopbackPeer;

// Our socket connected to the peer's, both on the test's own loop.
class Framing : public ::testing::Test {
 protected:
  Framing() : peer(context), socket(context) {
    asio::co_spawn(context, peer.accept(), asio::detached);
    socket.connect(peer.endpoint());
    EXPECT_TRUE(drive_until(context, [&] { return peer.socket().is_open(); }));
  }

  void send(std::string bytes) {
    bool sent = false;
    asio::co_spawn(context, peer.write_raw(std::move(bytes)), [&](std::exception_ptr) { sent = true; });
    EXPECT_TRUE(drive_until(context, [&] { return sent; }));
  }

  std::error_code write(std::string payload) {
    std::optional<std::error_code> written;
    asio::co_spawn(context, orvanta::link::write_frame(socket, std::move(payload)),
                   [&](std::exception_ptr, std::error_code ec) { written = ec; });
    EXPECT_TRUE(drive_until(context, [&] { return written.has_value(); }));
    return written.value_or(std::error_code{});
  }

  FrameReadResult read(std::size_t max_size = max_frame_payload) {
    std::optional<FrameReadResult> result;
    asio::co_spawn(context, orvanta::link::read_frame(socket, max_size),
                   [&](std::exception_ptr, FrameReadResult r) { result = std::move(r); });
    EXPECT_TRUE(drive_until(context, [&] { return result.has_value(); }));
    return result.value_or(FrameReadResult{});
  }

  asio::io_context context;
  LoopbackPeer peer;
  asio::ip::tcp::socket socket;
};

// The writer has no limit of its own: five MiB, above the reader's limit,
// go out in one frame.
TEST_F(Framing, HeaderIsTagThenLittleEndianLength) {
  EXPECT_EQ(write("{}"), DesktopApiError::success);
  std::string bytes(7, '\0');
  EXPECT_EQ(asio::read(peer.socket(), asio::buffer(bytes)), 7u);
  EXPECT_EQ(bytes, std::string("\x1d\x02\x00\x00\x00{}", 7));

  const std::string payload(5 * 1024 * 1024, 'x');
  std::optional<std::string> received;
  asio::co_spawn(context, peer.read_frame(), [&](std::exception_ptr, std::string p) { received = std::move(p); });
  EXPECT_EQ(write(payload), DesktopApiError::success);
  EXPECT_TRUE(drive_until(context, [&] { return received.has_value(); }));
  EXPECT_EQ(*received, payload);
}

// A refused payload stays in the socket: the reader walks into it, and a
// frame that stands at its start is read as the next frame.
TEST_F(Framing, LengthAtTheLimitIsRefusedWithNothingConsumed) {
  asio::co_spawn(context, peer.write_frame(std::string(max_frame_payload - 1, 'a')), asio::detached);
  EXPECT_EQ(read().payload.size(), 4194303u);
  send(frame_header(4194304) + frame("{}"));
  // The peer sends no more: a reader that took the length would wait for
  // the rest of a 4 MiB payload and meet the end instead.
  peer.socket().shutdown(asio::ip::tcp::socket::shutdown_send);
  auto refused = read();
  EXPECT_EQ(refused.ec, DesktopApiError::ipc_message_too_large);
  EXPECT_EQ(refused.payload, "");
  auto next = read();
  EXPECT_EQ(next.ec, DesktopApiError::success);
  EXPECT_EQ(next.payload, "{}");
}

// A stray byte costs one empty read, not the connection; an empty payload
// leaves the stream in step.
TEST_F(Framing, WrongTagAndEmptyPayload) {
  send("x" + frame("") + frame("[]"));
  auto stray = read();
  EXPECT_EQ(stray.ec.value(), 0);
  EXPECT_EQ(stray.payload, "");
  auto empty = read();
  EXPECT_EQ(empty.ec, DesktopApiError::success);
  EXPECT_EQ(empty.payload, "");
  EXPECT_EQ(read().payload, "[]");
}

// The peer closing inside a header or a payload is the end of the stream,
// and the frames before it are read whole.
TEST_F(Framing, PeerClosingInsideAFrameIsEof) {
  send(frame("{}") + "\x1d\x01");
  peer.close();
  EXPECT_EQ(read().payload, "{}");
  EXPECT_EQ(read().ec, asio::error::eof);
}

TEST_F(Framing, PeerClosingInsideThePayloadIsEof) {
  send(frame_header(10) + "abc");
  peer.close();
  auto result = read();
  EXPECT_EQ(result.ec, asio::error::eof);
  EXPECT_EQ(result.payload, "");
}

// A read error comes back as a code, never as an exception.
TEST_F(Framing, LocallyClosedSocketFailsTheRead) {
  socket.close();
  EXPECT_NE(read().ec.value(), 0);
}

}  // namespace
