#pragma once

// Time limits of the link's waits. Every caller passes `endless_timeout`, so
// no wait of a request ever expires; the deadline saturates at the clock's
// end instead of overflowing.

#include <chrono>

namespace orvanta::link {

inline constexpr std::chrono::nanoseconds endless_timeout = std::chrono::nanoseconds::max();

// now + timeout, or the last representable time point if that would overflow.
inline std::chrono::steady_clock::time_point saturating_deadline(std::chrono::nanoseconds timeout) noexcept {
  using clock = std::chrono::steady_clock;
  const clock::time_point now = clock::now();
  const auto room = std::chrono::duration_cast<std::chrono::nanoseconds>(clock::time_point::max() - now);
  if (timeout >= room) return clock::time_point::max();
  return now + std::chrono::duration_cast<clock::duration>(timeout);
}

}  // namespace orvanta::link
