#pragma once

// Calls operations on the simulator's dispatcher the way the client would:
// the request goes in as the text of its record, the result comes back as
// text and is read with the operation's own result record. A result that
// doesn't decode fails the test, so every call also checks the wire form.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "messages/operations.hpp"
#include "sim/dispatcher.hpp"
#include "sim/fixture.hpp"

namespace orvanta::sim::testing {

namespace m = messages;

template <class Response>
struct Called {
  Response result{};  // as the client decoded it, when answered
  bool answered = false;
  Failure failure;
  std::vector<Notice> notices;
  bool ok() const { return answered; }
};

class HandlerTest : public ::testing::Test {
 protected:
  SimState state = default_state();
  Dispatcher dispatcher{state, [] { return std::string("2031-04-01T12:00:00Z"); }};

  template <class Op>
  Called<typename Op::Response> call(const typename Op::Request& request) {
    const std::string params = json::encode(m::record_codec<typename Op::Request>(), request).str();
    Outcome outcome = dispatcher.run(Op::name, params);
    Called<typename Op::Response> called;
    called.failure = outcome.failure;
    called.notices = outcome.notices;
    if (outcome.ok()) {
      called.answered = json::try_decode(m::record_codec<typename Op::Response>(), *outcome.result, called.result);
      EXPECT_TRUE(called.answered) << Op::name << " answered " << *outcome.result;
    }
    return called;
  }

  template <class Op>
  Called<typename Op::Response> call() {
    return call<Op>(typename Op::Request{});
  }

  // The message of a failed call, with its code checked.
  template <class Response>
  static std::string refusal(const Called<Response>& called, link::DesktopApiError code) {
    EXPECT_FALSE(called.ok());
    EXPECT_EQ(called.failure.code, static_cast<std::int32_t>(code));
    EXPECT_EQ(called.failure.category, "desktop_api");
    return called.failure.message;
  }
};

}  // namespace orvanta::sim::testing
