#include "desktop_link/signal.hpp"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using orvanta::link::Connection;
using orvanta::link::ScopedConnection;
using orvanta::link::Signal;
using orvanta::link::SlotPosition;

// The same function connected twice is called twice.
TEST(Signal, EveryConnectedFunctionIsCalledInPositionOrder) {
  Signal<int> signal;
  std::vector<std::string> calls;
  const auto a = [&](int v) { calls.push_back("a" + std::to_string(v)); };
  auto first = signal.connect(a);
  auto b = signal.connect([&](int v) { calls.push_back("b" + std::to_string(v)); });
  auto again = signal.connect(a);
  auto front = signal.connect([&](int v) { calls.push_back("f" + std::to_string(v)); }, SlotPosition::at_front);
  signal.emit(1);
  EXPECT_EQ(calls, (std::vector<std::string>{"f1", "a1", "b1", "a1"}));
}

// A moved ScopedConnection keeps the link; the moved-from one cuts nothing.
TEST(Signal, DisconnectAndScopedConnectionsStopCalls) {
  Signal<> signal;
  int plain = 0;
  int scoped = 0;
  int moved = 0;
  Connection connection = signal.connect([&] { ++plain; });
  ScopedConnection outer;
  {
    ScopedConnection guard = signal.connect([&] { ++scoped; });
    ScopedConnection inner = signal.connect([&] { ++moved; });
    outer = std::move(inner);
    signal.emit();
  }
  connection.disconnect();
  signal.emit();
  EXPECT_EQ(plain, 1);
  EXPECT_EQ(scoped, 1);
  EXPECT_EQ(moved, 2);
  EXPECT_FALSE(connection.connected());
  EXPECT_EQ(signal.connected_count(), 1u);
}

// Emission runs on a snapshot: a function added during an emission is not
// called by it, and one cut during it is not called any more.
TEST(Signal, EmissionWorksOnASnapshot) {
  Signal<> signal;
  std::vector<std::string> calls;
  Connection later;
  Connection second;
  auto first = signal.connect([&] {
    calls.push_back("first");
    second.disconnect();
    later = signal.connect([&] { calls.push_back("later"); });
  });
  second = signal.connect([&] { calls.push_back("second"); });
  signal.emit();
  EXPECT_EQ(calls, (std::vector<std::string>{"first"}));
}

}  // namespace
