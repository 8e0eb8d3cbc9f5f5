#include "desktop_link/frame_codec.hpp"

#include <cstring>
#include <memory>
#include <utility>

#include <asio/buffer.hpp>
#include <asio/read.hpp>
#include <asio/redirect_error.hpp>
#include <asio/use_awaitable.hpp>
#include <asio/write.hpp>

#include "desktop_link/error_category.hpp"

namespace orvanta::link {

namespace detail {

void put_frame_header(char* out, std::size_t size) noexcept {
  // A plain store in the machine's order, which is little-endian on every
  // machine we run on; there is no network-order conversion on this wire.
  const auto length = static_cast<std::uint32_t>(size);
  out[0] = static_cast<char>(frame_tag);
  std::memcpy(out + 1, &length, sizeof length);
}

}  // namespace detail

asio::awaitable<std::error_code> write_frame(asio::ip::tcp::socket& socket, std::string payload) {
  const std::size_t n = static_cast<std::uint32_t>(payload.size());
  // One buffer, so that header and payload are never two writes.
  auto buffer = std::make_unique_for_overwrite<char[]>(n + frame_header_size);
  detail::put_frame_header(buffer.get(), n);
  std::memcpy(buffer.get() + frame_header_size, payload.data(), n);

  std::error_code ec;
  auto written = co_await asio::async_write(socket, asio::buffer(buffer.get(), n + frame_header_size),
                                            asio::redirect_error(asio::use_awaitable, ec));
  static_cast<void>(written);
  if (ec) co_return ec;
  co_return make_error_code(DesktopApiError::success);
}

asio::awaitable<FrameReadResult> read_frame(asio::ip::tcp::socket& socket, std::size_t max_size) {
  std::error_code ec;
  unsigned char tag = 0;
  auto tag_read = co_await asio::async_read(socket, asio::buffer(&tag, 1),
                                            asio::redirect_error(asio::use_awaitable, ec));
  static_cast<void>(tag_read);
  if (ec) co_return FrameReadResult{ec, {}};
  if (tag != frame_tag) co_return FrameReadResult{ec, {}};

  std::uint32_t length = 0;
  auto length_read = co_await asio::async_read(socket, asio::buffer(&length, sizeof length),
                                               asio::redirect_error(asio::use_awaitable, ec));
  static_cast<void>(length_read);
  if (ec) co_return FrameReadResult{ec, {}};
  // Checked before allocating, so a hostile length costs nothing.
  if (max_size <= length) co_return FrameReadResult{make_error_code(DesktopApiError::ipc_message_too_large), {}};

  std::string payload(length, '\0');
  auto payload_read = co_await asio::async_read(socket, asio::buffer(payload.data(), payload.size()),
                                                asio::redirect_error(asio::use_awaitable, ec));
  static_cast<void>(payload_read);
  if (ec) co_return FrameReadResult{ec, {}};
  co_return FrameReadResult{make_error_code(DesktopApiError::success), std::move(payload)};
}

}  // namespace orvanta::link
