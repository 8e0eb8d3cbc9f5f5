#pragma once

// Misbehaviour on request, for tests and for people hardening their scripts.
// Per method: fail with a code, answer with a result of one's own, answer
// late, never answer, answer with the wrong id, or put garbage on the wire
// before the answer. Per connection:
// drop it after N requests, refuse the hello, or ignore the hello. Once:
// spoil the first hello that arrives, in one of the ways a confused desktop
// client might, and answer every later one well.

#include <chrono>
#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>

#include "sim/answer.hpp"

namespace orvanta::sim {

enum class GarbageKind {
  stray_byte,        // one byte that is not a frame tag, then the answer
  oversized_length,  // a header announcing 4 MiB with no payload, then the answer
};

// How the first hello is spoiled.
enum class HelloSpoil {
  reject,          // an error reply
  garbled,         // a reply whose result does not decode
  bad_completion,  // a completing notification whose params are not an object
};

struct FaultPlan {
  std::map<std::string, Failure, std::less<>> fail;
  std::map<std::string, std::string, std::less<>> answer;  // a result given as it stands; the state is left alone
  std::map<std::string, std::chrono::milliseconds, std::less<>> delay;
  std::set<std::string, std::less<>> hang;
  std::set<std::string, std::less<>> wrong_id;
  std::map<std::string, GarbageKind, std::less<>> garbage;
  std::optional<std::uint32_t> close_after;  // requests answered before the connection drops
  bool reject_hello = false;
  bool silent_hello = false;
  std::optional<HelloSpoil> spoil_first_hello;

  const Failure* failure_for(std::string_view method) const;
  const std::string* answer_for(std::string_view method) const;
  std::optional<std::chrono::milliseconds> delay_for(std::string_view method) const;
  std::optional<GarbageKind> garbage_for(std::string_view method) const;
  bool hangs(std::string_view method) const { return hang.find(method) != hang.end(); }
  bool answers_with_wrong_id(std::string_view method) const { return wrong_id.find(method) != wrong_id.end(); }
};

// Each adds the value of one flag to the plan and returns an empty string,
// or the reason the value is refused. METHOD must be a wire method of the
// catalogue (the connection's own two included).
std::string add_fail(FaultPlan& plan, std::string_view value);     // METHOD=CODE[:CATEGORY]
std::string add_answer(FaultPlan& plan, std::string_view value);   // METHOD=JSON
std::string add_delay(FaultPlan& plan, std::string_view value);    // METHOD=MS
std::string add_hang(FaultPlan& plan, std::string_view value);     // METHOD
std::string add_wrong_id(FaultPlan& plan, std::string_view value); // METHOD
std::string add_garbage(FaultPlan& plan, std::string_view value);  // METHOD[=stray|oversize]
std::string add_spoiled_hello(FaultPlan& plan, std::string_view value);  // reject|garbled|bad-completion

// The words of an injected failure: the category's own message for the code.
std::string injected_message(std::int32_t code, std::string_view category);

}  // namespace orvanta::sim
