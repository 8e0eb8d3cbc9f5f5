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

TEST_F(Framing, HeaderIsTagThenLittleEndianLength) {
  std::optional<std::error_code> written;
  asio::co_spawn(context, orvanta::link::write_frame(socket, "{}"),
                 [&](std::exception_ptr, std::error_code ec) { written = ec; });
  EXPECT_TRUE(drive_until(context, [&] { return written.has_value(); }));
  std::string bytes(7, '\0');
  std::size_t got = asio::read(peer.socket(), asio::buffer(bytes));
  EXPECT_EQ(got, 7u);
  EXPECT_EQ(*written, DesktopApiError::success);
  EXPECT_EQ(bytes, std::string("\x1d\x02\x00\x00\x00{}", 7));
}

TEST_F(Framing, FiveMebibytesAreWrittenInOneFrame) {
  const std::string payload(5 * 1024 * 1024, 'x');
  std::optional<std::error_code> written;
  std::optional<std::string> received;
  asio::co_spawn(context, orvanta::link::write_frame(socket, payload),
                 [&](std::exception_ptr, std::error_code ec) { written = ec; });
  asio::co_spawn(context, peer.read_frame(), [&](std::exception_ptr, std::string p) { received = std::move(p); });
  EXPECT_TRUE(drive_until(context, [&] { return written && received; }));
  EXPECT_EQ(*written, DesktopApiError::success);
  EXPECT_EQ(received->size(), payload.size());
  EXPECT_EQ(*received, payload);
}

TEST_F(Framing, LargestPayloadUnderTheLimitIsDelivered) {
  const std::string payload(max_frame_payload - 1, 'a');
  asio::co_spawn(context, peer.write_frame(payload), asio::detached);
  auto result = read();
  EXPECT_EQ(result.ec, DesktopApiError::success);
  EXPECT_EQ(result.payload.size(), 4194303u);
}

// The refused payload stays in the socket: the reader walks into it, and a
// frame that stands at its start is read as the next frame.
TEST_F(Framing, LengthAtTheLimitIsRefusedWithNothingConsumed) {
  send(frame_header(4194304) + frame("{}"));
  auto refused = read();
  EXPECT_EQ(refused.ec, DesktopApiError::ipc_message_too_large);
  EXPECT_EQ(refused.ec.message(), "IPC message exceeds size limit");
  EXPECT_EQ(refused.payload, "");
  auto next = read();
  EXPECT_EQ(next.ec, DesktopApiError::success);
  EXPECT_EQ(next.payload, "{}");
}

TEST_F(Framing, LimitIsTheCallersArgument) {
  send(frame("12345") + frame("1234"));
  EXPECT_EQ(read(5).ec, DesktopApiError::ipc_message_too_large);
  // The refused five bytes are walked through as tags, one read each.
  for (int i = 0; i < 5; ++i) {
    auto stray = read(5);
    EXPECT_EQ(stray.ec.value(), 0) << i;
    EXPECT_EQ(stray.payload, "") << i;
  }
  EXPECT_EQ(read(5).payload, "1234");
}

TEST_F(Framing, EmptyPayloadLeavesTheStreamInStep) {
  send(frame("") + frame("[]"));
  auto empty = read();
  EXPECT_EQ(empty.ec, DesktopApiError::success);
  EXPECT_EQ(empty.payload, "");
  EXPECT_EQ(read().payload, "[]");
}

// A stray byte costs one empty read, not the connection.
TEST_F(Framing, WrongTagIsSkippedOneByteAtATime) {
  send("x" + frame("{}"));
  auto stray = read();
  EXPECT_EQ(stray.ec.value(), 0);
  EXPECT_EQ(stray.payload, "");
  auto next = read();
  EXPECT_EQ(next.ec, DesktopApiError::success);
  EXPECT_EQ(next.payload, "{}");
}

TEST_F(Framing, PeerClosingInsideAFrameIsEof) {
  send(frame_header(10) + "abc");
  peer.close();
  auto result = read();
  EXPECT_EQ(result.ec, asio::error::eof);
  EXPECT_EQ(result.payload, "");
}

TEST_F(Framing, PeerClosingInsideTheHeaderOrBetweenFramesIsEof) {
  send(frame("{}") + "\x1d\x01");
  peer.close();
  EXPECT_EQ(read().payload, "{}");
  EXPECT_EQ(read().ec, asio::error::eof);
}

TEST_F(Framing, LocallyClosedSocketFailsTheRead) {
  socket.close();
  auto result = read();
  EXPECT_NE(result.ec.value(), 0);
  EXPECT_NE(result.ec, DesktopApiError::success);
}

}  // namespace
