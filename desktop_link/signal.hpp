#pragma once

// Signal<Args...>: a list of connected functions. connect() returns a
// Connection that can cut the link; a ScopedConnection cuts it when it is
// destroyed. emit() takes a snapshot of the list and calls each function that
// is still connected, in turn, on the emitting thread; a function may connect
// or disconnect others while it runs.
//
// Listeners are added from the main thread while the IO thread emits, so the
// list itself sits behind a mutex; the calls are made outside it.

#include <atomic>
#include <functional>
#include <memory>
#include <mutex>
#include <utility>
#include <vector>

namespace orvanta::link {

namespace detail {

struct SlotState {
  std::atomic<bool> connected{true};
};

}  // namespace detail

// Where connect() puts a new function: before or after those already there.
enum class SlotPosition : int { at_front = 0, at_back = 1 };

class Connection {
 public:
  Connection() = default;
  explicit Connection(std::weak_ptr<detail::SlotState> state) : state_(std::move(state)) {}

  // The function is not called by any emission that starts afterwards.
  void disconnect() const noexcept {
    if (auto state = state_.lock()) state->connected.store(false);
  }
  bool connected() const noexcept {
    auto state = state_.lock();
    return state && state->connected.load();
  }

 private:
  std::weak_ptr<detail::SlotState> state_;
};

// Disconnects when destroyed or reassigned. Move-only.
class ScopedConnection {
 public:
  ScopedConnection() = default;
  ScopedConnection(Connection connection) : connection_(std::move(connection)) {}  // NOLINT: implicit on purpose
  ~ScopedConnection() { connection_.disconnect(); }
  ScopedConnection(ScopedConnection&& other) noexcept : connection_(std::exchange(other.connection_, {})) {}
  ScopedConnection& operator=(ScopedConnection&& other) noexcept {
    if (this != &other) {
      connection_.disconnect();
      connection_ = std::exchange(other.connection_, {});
    }
    return *this;
  }
  ScopedConnection(const ScopedConnection&) = delete;
  ScopedConnection& operator=(const ScopedConnection&) = delete;

  const Connection& connection() const noexcept { return connection_; }
  // Gives the link up without cutting it.
  Connection release() noexcept { return std::exchange(connection_, {}); }

 private:
  Connection connection_;
};

template <class... Args>
class Signal {
 public:
  using Function = std::function<void(Args...)>;

  Connection connect(Function function, SlotPosition position = SlotPosition::at_back) {
    auto slot = std::make_shared<Slot>(std::move(function));
    std::lock_guard lock(mutex_);
    std::erase_if(slots_, [](const auto& s) { return !s->state->connected.load(); });
    if (position == SlotPosition::at_front) {
      slots_.insert(slots_.begin(), slot);
    } else {
      slots_.push_back(slot);
    }
    return Connection(slot->state);
  }

  void emit(const Args&... args) const {
    std::vector<std::shared_ptr<Slot>> snapshot;
    {
      std::lock_guard lock(mutex_);
      snapshot = slots_;
    }
    for (const auto& slot : snapshot) {
      if (slot->state->connected.load()) slot->function(args...);
    }
  }

  std::size_t connected_count() const {
    std::lock_guard lock(mutex_);
    std::size_t count = 0;
    for (const auto& slot : slots_) count += slot->state->connected.load() ? 1 : 0;
    return count;
  }

 private:
  struct Slot {
    explicit Slot(Function f) : function(std::move(f)), state(std::make_shared<detail::SlotState>()) {}
    Function function;
    std::shared_ptr<detail::SlotState> state;
  };

  mutable std::mutex mutex_;
  std::vector<std::shared_ptr<Slot>> slots_;
};

}  // namespace orvanta::link
