// libFuzzer target: bytes as they come off the desktop client's socket. The
// input is written into one end of a stream socket pair in pieces whose sizes
// come from its first byte, then that end is shut; the other end is read
// with read_frame until it fails, and every payload is classified. Each
// frame must come out as a plain walk of the bytes says it should: a wrong
// tag gives an empty payload, a length at or above the limit is refused
// with its payload left in the stream, and a short frame ends at the end of
// the stream.
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <asio/co_spawn.hpp>
#include <asio/detached.hpp>
#include <asio/io_context.hpp>
#include <asio/ip/tcp.hpp>
#include <asio/use_awaitable.hpp>
#include <asio/write.hpp>

#include "desktop_link/error_category.hpp"
#include "desktop_link/frame_codec.hpp"
#include "desktop_link/incoming_message.hpp"
#include "fuzz/fuzz_property.hpp"

namespace {

using orvanta::fuzz::check;

using orvanta::link::frame_tag;
using orvanta::link::FrameReadResult;

// What read_frame should give for each frame of `bytes`, read in order.
// std::nullopt stands for the failure at the end of the stream.
struct Expected {
  bool too_large = false;
  std::string payload;
};

std::vector<std::optional<Expected>> walk(std::string_view bytes, std::size_t max_size) {
  std::vector<std::optional<Expected>> frames;
  std::size_t at = 0;
  for (;;) {
    if (at == bytes.size()) break;
    const auto tag = static_cast<std::uint8_t>(bytes[at++]);
    if (tag != frame_tag) {
      frames.push_back(Expected{});
      continue;
    }
    if (bytes.size() - at < 4) break;
    std::uint32_t length = 0;
    std::memcpy(&length, bytes.data() + at, 4);
    at += 4;
    if (length >= max_size) {
      frames.push_back(Expected{true, {}});
      continue;
    }
    if (bytes.size() - at < length) break;
    frames.push_back(Expected{false, std::string(bytes.substr(at, length))});
    at += length;
  }
  frames.push_back(std::nullopt);
  return frames;
}


asio::awaitable<void> write_in_pieces(asio::ip::tcp::socket& socket, std::string_view bytes, unsigned seed) {
  std::size_t at = 0;
  while (at < bytes.size()) {
    seed = seed * 1103515245u + 12345u;
    const std::size_t piece = std::min<std::size_t>(bytes.size() - at, 1 + (seed >> 16) % 64);
    co_await asio::async_write(socket, asio::buffer(bytes.data() + at, piece), asio::use_awaitable);
    at += piece;
  }
  socket.shutdown(asio::ip::tcp::socket::shutdown_send);
}

asio::awaitable<void> read_all(asio::ip::tcp::socket& socket, std::vector<FrameReadResult>& out,
                               std::size_t max_size) {
  for (;;) {
    auto frame = co_await orvanta::link::read_frame(socket, max_size);
    // Success is a value of 0 in whichever category: a wrong tag leaves
    // the code as it came from the read.
    const bool failed = frame.ec.value() != 0 &&
                        frame.ec != make_error_code(orvanta::link::DesktopApiError::ipc_message_too_large);
    out.push_back(std::move(frame));
    if (failed) co_return;
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const unsigned seed = data[0];
  const std::string_view bytes(reinterpret_cast<const char*>(data) + 1, size - 1);
  // A small limit as well as the real one, so that refusals are reached
  // without megabytes of input.
  const std::size_t max_size = (seed & 1) != 0 ? orvanta::link::max_frame_payload : 64;

  int fds[2];
  if (::socketpair(AF_UNIX, SOCK_STREAM, 0, fds) != 0) std::abort();
  static asio::io_context io;
  io.restart();
  asio::ip::tcp::socket writer(io);
  asio::ip::tcp::socket reader(io);
  writer.assign(asio::ip::tcp::v4(), fds[0]);
  reader.assign(asio::ip::tcp::v4(), fds[1]);

  std::vector<FrameReadResult> frames;
  asio::co_spawn(io, write_in_pieces(writer, bytes, seed), asio::detached);
  asio::co_spawn(io, read_all(reader, frames, max_size), asio::detached);
  io.run();

  const auto expected = walk(bytes, max_size);
  check(frames.size() == expected.size(), "as many frames as the walk finds");
  for (std::size_t i = 0; i < frames.size(); ++i) {
    const auto& got = frames[i];
    const auto& want = expected[i];
    if (!want) {
      check(got.ec == asio::error::eof, "the stream ends with end-of-file");
      check(got.payload.empty(), "a failed read has no payload");
      continue;
    }
    if (want->too_large) {
      check(got.ec == make_error_code(orvanta::link::DesktopApiError::ipc_message_too_large),
            "a length at the limit or above is refused");
      continue;
    }
    check(got.ec.value() == 0, "a whole frame, or a wrong tag, reads without failure");
    check(got.payload == want->payload, "the payload is the frame's bytes");
    const auto message = orvanta::link::classify_message(got.payload.data(), got.payload.size());
    if (got.payload.empty()) check(!message, "an empty text is no message");
  }
  return 0;
}
