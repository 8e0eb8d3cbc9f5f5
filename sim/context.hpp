#pragma once

// What a handler works with: the state, the time of the request, fresh ids,
// and the notifications that go out once the reply has been written.

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "json/json.hpp"
#include "messages/operations.hpp"
#include "sim/state.hpp"

namespace orvanta::sim {

// A notification waiting for the reply to go out first. A broadcast goes to
// every connection subscribed to `method`; otherwise only to the caller.
struct Notice {
  std::string method;
  std::string params;  // JSON text
  bool broadcast = false;
};

struct Context {
  SimState& state;
  std::string now;                    // the request's time, ISO 8601 in UTC
  bool complete_notification = false; // the hello promises a completing notification
  std::vector<Notice> notices;

  // Queues `params` for every subscriber of notification N.
  template <class N>
  void broadcast(const typename N::Params& params) {
    notices.push_back(Notice{std::string(N::name), encode_params<N>(params), true});
  }

  // Queues `params` for the caller only.
  template <class N>
  void tell_caller(const typename N::Params& params) {
    notices.push_back(Notice{std::string(N::name), encode_params<N>(params), false});
  }

  // A new id, unique within the state: `prefix` and a running number.
  std::string new_id(std::string_view prefix) {
    return std::string(prefix) + std::to_string(state.next_id++);
  }

 private:
  template <class N>
  static std::string encode_params(const typename N::Params& params) {
    return json::encode(messages::record_codec<typename N::Params>(), params).str();
  }
};

// The present time as "YYYY-MM-DDTHH:MM:SSZ".
std::string utc_now_text();

}  // namespace orvanta::sim
