#pragma once

// The bytes around each JSON text on the wire: a tag byte of 29, the payload
// length as an unsigned 32-bit little-endian count, then the payload.
//
// The reader never resynchronises. After a wrong tag the next read takes the
// following byte as a tag; after a refused length the refused payload stays
// in the socket and is walked through one byte per read.

#include <cstddef>
#include <cstdint>
#include <string>
#include <system_error>

#include <asio/awaitable.hpp>
#include <asio/ip/tcp.hpp>

namespace orvanta::link {

inline constexpr std::uint8_t frame_tag = 29;
inline constexpr std::size_t frame_header_size = 5;
// The reader's limit: a length equal to it or above it is refused.
inline constexpr std::size_t max_frame_payload = 0x400000;

struct FrameReadResult {
  std::error_code ec;   // `success` of desktop_api, or the failure
  std::string payload;  // empty unless ec is success
};

// Writes header and payload in one write. The writer has no size limit: we
// trust what we send. Returns `success` of desktop_api or the write's code.
// The socket must outlive the await.
asio::awaitable<std::error_code> write_frame(asio::ip::tcp::socket& socket, std::string payload);

// Reads one frame. A wrong tag is not an error here: it gives success and an
// empty payload, which the classification refuses, so a stray byte costs one
// failed message and not the connection. A length at or above `max_size`
// gives `ipc_message_too_large` before anything is allocated, and leaves the
// payload unread. Read failures come back as their code; never throws a
// read error. The socket must outlive the await.
asio::awaitable<FrameReadResult> read_frame(asio::ip::tcp::socket& socket, std::size_t max_size);

namespace detail {

// Header bytes for a payload of `size` bytes (low 32 bits), written at `out`.
void put_frame_header(char* out, std::size_t size) noexcept;

}  // namespace detail
}  // namespace orvanta::link
