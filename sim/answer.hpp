#pragma once

// What a handler gives back: the result record, or a failure with the code
// and the words the desktop client would send in the wire error object.

#include <cassert>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>

#include "desktop_link/error_category.hpp"

namespace orvanta::sim {

inline constexpr const char* desktop_api_category_name = "desktop_api";

struct Failure {
  std::int32_t code = 0;
  std::string category = desktop_api_category_name;
  std::string message;
};

// A `desktop_api` failure with a message for a person.
inline Failure fail(link::DesktopApiError code, std::string message) {
  return Failure{static_cast<std::int32_t>(code), desktop_api_category_name, std::move(message)};
}

inline Failure bad_request(std::string message) {
  return fail(link::DesktopApiError::bad_request, std::move(message));
}

template <class R>
class Answer {
 public:
  Answer(R value) : value_(std::move(value)) {}            // NOLINT: implicit on purpose
  Answer(Failure failure) : failure_(std::move(failure)) {}  // NOLINT: implicit on purpose

  bool ok() const noexcept { return value_.has_value(); }
  const R& value() const {
    assert(ok());
    return *value_;
  }
  const Failure& failure() const noexcept { return failure_; }

 private:
  std::optional<R> value_;
  Failure failure_;
};

}  // namespace orvanta::sim
