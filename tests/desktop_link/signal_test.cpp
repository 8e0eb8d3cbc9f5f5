#include "desktop_link/signal.hpp"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using orvanta::link::Connection;
using orvanta::link::ScopedConnection;
using orvanta::link::Signal;
using orvanta::link::SlotPosition;

TEST(Signal, EveryConnectedFunctionIsCalledInPositionOrder) {
  Signal<int> signal;
  std::vector<std::string> calls;
  auto a = signal.connect([&](int v) { calls.push_back("a" + std::to_string(v)); });
  auto b = signal.connect([&](int v) { calls.push_back("b" + std::to_string(v)); });
  auto front = signal.connect([&](int v) { calls.push_back("f" + std::to_string(v)); }, SlotPosition::at_front);
  signal.emit(1);
  EXPECT_EQ(calls, (std::vector<std::string>{"f1", "a1", "b1"}));
}

TEST(Signal, SameFunctionTwiceIsCalledTwice) {
  Signal<bool> signal;
  int calls = 0;
  auto count = [&](bool) { ++calls; };
  auto first = signal.connect(count);
  auto second = signal.connect(count);
  signal.emit(true);
  EXPECT_EQ(calls, 2);
}

TEST(Signal, DisconnectAndScopedConnectionsStopCalls) {
  Signal<> signal;
  int plain = 0;
  int scoped = 0;
  Connection connection = signal.connect([&] { ++plain; });
  {
    ScopedConnection guard = signal.connect([&] { ++scoped; });
    signal.emit();
    EXPECT_TRUE(guard.connection().connected());
  }
  connection.disconnect();
  signal.emit();
  EXPECT_EQ(plain, 1);
  EXPECT_EQ(scoped, 1);
  EXPECT_FALSE(connection.connected());
  EXPECT_EQ(signal.connected_count(), 0u);
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

TEST(Signal, MovedScopedConnectionKeepsTheLink) {
  Signal<> signal;
  int calls = 0;
  ScopedConnection outer;
  {
    ScopedConnection inner = signal.connect([&] { ++calls; });
    outer = std::move(inner);
  }
  signal.emit();
  EXPECT_EQ(calls, 1);
}

}  // namespace
