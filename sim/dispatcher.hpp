#pragma once

// Runs one request against the state: finds the operation by its wire name
// in the catalogue, reads the parameters with the operation's request
// record, calls its handler and writes the result with its result record.

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "sim/answer.hpp"
#include "sim/context.hpp"
#include "sim/state.hpp"

namespace orvanta::sim {

struct Outcome {
  std::optional<std::string> result;  // the result's JSON text, on success
  Failure failure;                    // otherwise
  std::vector<Notice> notices;        // to send once the reply is out
  bool ok() const noexcept { return result.has_value(); }
};

class Dispatcher {
 public:
  using Clock = std::function<std::string()>;

  explicit Dispatcher(SimState& state, Clock clock = utc_now_text) : state_(state), clock_(std::move(clock)) {}

  // Whether the hello promises a completing notification.
  void set_complete_notification(bool on) noexcept { complete_notification_ = on; }

  // A method the catalogue doesn't know gives `unknown_request`, parameters
  // that don't fit the request record `bad_request`, and an operation that
  // needs a user while nobody is logged in `not_logged_in`; an exception
  // inside a handler becomes `internal_server_error`. Never throws.
  Outcome run(std::string_view method, std::string_view params);

  SimState& state() noexcept { return state_; }

 private:
  SimState& state_;
  Clock clock_;
  bool complete_notification_ = false;
};

}  // namespace orvanta::sim
