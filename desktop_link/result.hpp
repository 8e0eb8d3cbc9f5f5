#pragma once

// Result<T>: what an operation of the link yields, either a failure code or a
// T. A code of value 0 in any category is success. For EmptyResponse there is
// nothing to carry but the code, and the result converts to it:
//
//   std::error_code ec = run_and_wait(context, api.playback_pause());
//   Result<MeResponse> me = run_and_wait(context, api.me());
//   if (!me) ... me.error().message() ...; else ... me->... ;

#include <cassert>
#include <optional>
#include <system_error>
#include <utility>

namespace orvanta::messages {
struct EmptyResponse;
}

namespace orvanta::link {

template <class T>
class [[nodiscard]] Result {
 public:
  // No value, and `operation_canceled`: what asio keeps beside an exception
  // that ended the coroutine.
  Result() : ec_(std::make_error_code(std::errc::operation_canceled)) {}
  Result(T value) : value_(std::move(value)) {}  // NOLINT: implicit on purpose
  // A failure. A peer may send an error reply of value 0; such a result has
  // no value and a zero code.
  Result(std::error_code ec) : ec_(ec) {}  // NOLINT: implicit on purpose

  bool has_value() const noexcept { return value_.has_value(); }
  explicit operator bool() const noexcept { return has_value(); }

  // A zero code when a value is held.
  std::error_code error() const noexcept { return ec_; }

  T& value() & {
    assert(has_value());
    return *value_;
  }
  const T& value() const& {
    assert(has_value());
    return *value_;
  }
  T&& value() && {
    assert(has_value());
    return std::move(*value_);
  }
  T& operator*() & { return value(); }
  const T& operator*() const& { return value(); }
  T* operator->() { return &value(); }
  const T* operator->() const { return &value(); }

 private:
  std::optional<T> value_;
  std::error_code ec_;
};

template <>
class [[nodiscard]] Result<messages::EmptyResponse> {
 public:
  Result() = default;
  Result(std::error_code ec) : ec_(ec) {}  // NOLINT: implicit on purpose

  bool has_value() const noexcept { return ec_.value() == 0; }
  explicit operator bool() const noexcept { return has_value(); }
  std::error_code error() const noexcept { return ec_; }
  operator std::error_code() const noexcept { return ec_; }  // NOLINT: implicit on purpose

 private:
  std::error_code ec_;
};

}  // namespace orvanta::link
