#include "sim/faults.hpp"

#include <charconv>
#include <limits>

#include "json/json.hpp"
#include "messages/operations.hpp"

namespace orvanta::sim {

namespace {

bool is_method(std::string_view name) {
  return messages::visit_operation(name, [](auto) {});
}

std::string unknown_method(std::string_view name) {
  return "'" + std::string(name) + "' is not a method of the Partner API";
}

template <class Int>
bool parse_int(std::string_view text, Int& out) {
  if (text.empty()) return false;
  const char* end = text.data() + text.size();
  auto [stop, ec] = std::from_chars(text.data(), end, out);
  return ec == std::errc() && stop == end;
}

// Splits "METHOD=REST"; false when there is no '=' or no method.
bool split_pair(std::string_view value, std::string_view& method, std::string_view& rest) {
  const auto eq = value.find('=');
  if (eq == std::string_view::npos || eq == 0) return false;
  method = value.substr(0, eq);
  rest = value.substr(eq + 1);
  return true;
}

}  // namespace

const Failure* FaultPlan::failure_for(std::string_view method) const {
  auto it = fail.find(method);
  return it == fail.end() ? nullptr : &it->second;
}

const std::string* FaultPlan::answer_for(std::string_view method) const {
  auto it = answer.find(method);
  return it == answer.end() ? nullptr : &it->second;
}

std::optional<std::chrono::milliseconds> FaultPlan::delay_for(std::string_view method) const {
  auto it = delay.find(method);
  if (it == delay.end()) return std::nullopt;
  return it->second;
}

std::optional<GarbageKind> FaultPlan::garbage_for(std::string_view method) const {
  auto it = garbage.find(method);
  if (it == garbage.end()) return std::nullopt;
  return it->second;
}

std::string injected_message(std::int32_t code, std::string_view category) {
  if (category == link::desktop_api_category().name()) {
    return "injected failure: " + link::desktop_api_category().message(code);
  }
  if (category == link::failure_source_category().name()) {
    return "injected failure: " + link::failure_source_category().message(code);
  }
  return "injected failure";
}

std::string add_fail(FaultPlan& plan, std::string_view value) {
  std::string_view method;
  std::string_view rest;
  if (!split_pair(value, method, rest)) return "--fail takes METHOD=CODE[:CATEGORY], not '" + std::string(value) + "'";
  if (!is_method(method)) return unknown_method(method);
  const auto colon = rest.find(':');
  std::string_view code_text = rest.substr(0, colon);
  std::string category = colon == std::string_view::npos ? desktop_api_category_name : std::string(rest.substr(colon + 1));
  std::int32_t code = 0;
  if (!parse_int(code_text, code)) return "--fail needs a whole number as CODE, not '" + std::string(code_text) + "'";
  if (code == 0) return "--fail needs a CODE other than 0, which means success";
  plan.fail[std::string(method)] = Failure{code, category, injected_message(code, category)};
  return {};
}

std::string add_answer(FaultPlan& plan, std::string_view value) {
  std::string_view method;
  std::string_view result;
  if (!split_pair(value, method, result)) return "--answer takes METHOD=JSON, not '" + std::string(value) + "'";
  if (!is_method(method)) return unknown_method(method);
  json::RawJsonValue checked;
  if (!json::try_decode(json::raw_value_codec(), result, checked)) {
    return "--answer needs one JSON value after '" + std::string(method) + "=', not '" + std::string(result) + "'";
  }
  plan.answer[std::string(method)] = std::string(result);
  return {};
}

std::string add_delay(FaultPlan& plan, std::string_view value) {
  std::string_view method;
  std::string_view rest;
  if (!split_pair(value, method, rest)) return "--delay takes METHOD=MS, not '" + std::string(value) + "'";
  if (!is_method(method)) return unknown_method(method);
  std::uint32_t ms = 0;
  if (!parse_int(rest, ms)) return "--delay needs milliseconds as a whole number, not '" + std::string(rest) + "'";
  plan.delay[std::string(method)] = std::chrono::milliseconds(ms);
  return {};
}

std::string add_hang(FaultPlan& plan, std::string_view value) {
  if (!is_method(value)) return unknown_method(value);
  plan.hang.emplace(value);
  return {};
}

std::string add_wrong_id(FaultPlan& plan, std::string_view value) {
  if (!is_method(value)) return unknown_method(value);
  plan.wrong_id.emplace(value);
  return {};
}

std::string add_garbage(FaultPlan& plan, std::string_view value) {
  std::string_view method = value;
  std::string_view kind = "stray";
  if (value.find('=') != std::string_view::npos && !split_pair(value, method, kind)) {
    return "--garbage-frame takes METHOD[=stray|oversize], not '" + std::string(value) + "'";
  }
  if (!is_method(method)) return unknown_method(method);
  if (kind == "stray") {
    plan.garbage[std::string(method)] = GarbageKind::stray_byte;
  } else if (kind == "oversize") {
    plan.garbage[std::string(method)] = GarbageKind::oversized_length;
  } else {
    return "--garbage-frame takes stray or oversize, not '" + std::string(kind) + "'";
  }
  return {};
}

std::string add_spoiled_hello(FaultPlan& plan, std::string_view value) {
  if (value == "reject") {
    plan.spoil_first_hello = HelloSpoil::reject;
  } else if (value == "garbled") {
    plan.spoil_first_hello = HelloSpoil::garbled;
  } else if (value == "bad-completion") {
    plan.spoil_first_hello = HelloSpoil::bad_completion;
  } else {
    return "--spoil-first-hello takes reject, garbled or bad-completion, not '" + std::string(value) + "'";
  }
  return {};
}

}  // namespace orvanta::sim
