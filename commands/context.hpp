#pragma once

#include <chrono>
#include <cstdio>
#include <memory>
#include <optional>
#include <utility>

#include <asio/awaitable.hpp>

#include "desktop_link/desktop_app_launcher.hpp"
#include "desktop_link/partner_api.hpp"
#include "json/json.hpp"

namespace orvanta::commands {

// What a handler gets from the runner: the client, the application control,
// a way to run the client's operations to their end, the connect step for
// the handlers that connect by themselves, and the streams. The
// IO context and its thread stay behind it, in the runner.
class Context {
 public:
  Context(std::FILE* in_stream, std::FILE* out_stream, std::FILE* err_stream)
      : in(in_stream), out(out_stream), err(err_stream) {}
  virtual ~Context() = default;
  Context(const Context&) = delete;
  Context& operator=(const Context&) = delete;

  virtual link::PartnerApi& api() = 0;
  virtual link::DesktopAppLauncher& launcher() = 0;

  // Connects and authorizes; prints its own failure line and returns false.
  virtual bool connect() = 0;

  // Runs one operation of the client on the IO thread and blocks until it
  // has finished. An exception of the operation is rethrown here.
  template <class T>
  T run_and_wait(asio::awaitable<T> operation) {
    auto slot = std::make_shared<std::optional<T>>();
    run(keep(std::move(operation), slot));
    return std::move(**slot);
  }

  // As run_and_wait, but gives up after `limit` and returns nothing; the
  // operation is left running.
  template <class T>
  std::optional<T> run_within(asio::awaitable<T> operation, std::chrono::milliseconds limit) {
    auto slot = std::make_shared<std::optional<T>>();
    if (!run_within(keep(std::move(operation), slot), limit)) return std::nullopt;
    return std::move(*slot);
  }

  // Waits `length` on the calling thread: the fixed pauses of the commands
  // (between the looks at a transfer, after a launch).
  virtual void pause(std::chrono::milliseconds length) = 0;

  // Prints a failure line on stderr and returns the status 1:
  //   if (!added) return context.fail("playlist add failed: %s\n", message);
  __attribute__((format(printf, 2, 3))) int fail(const char* format, ...);

  // Prints `record` as one compact JSON line.
  template <class Codec, class Record>
  void print_json(const Codec& codec, const Record& record) {
    json::EncodedText text = json::encode(codec, record);
    std::fwrite(text.data(), 1, text.view().size(), out);
    std::fputc('\n', out);
  }

  std::FILE* in;
  std::FILE* out;
  std::FILE* err;

 protected:
  // Runs `operation` to its end on the IO thread; rethrows its exception.
  virtual void run(asio::awaitable<void> operation) = 0;
  // As run, but returns false once `limit` has passed without an end.
  virtual bool run_within(asio::awaitable<void> operation, std::chrono::milliseconds limit) = 0;

 private:
  // The slot is shared: an operation abandoned by run_within may end after
  // the caller has gone.
  template <class T>
  static asio::awaitable<void> keep(asio::awaitable<T> operation, std::shared_ptr<std::optional<T>> slot) {
    slot->emplace(co_await std::move(operation));
  }
};

}  // namespace orvanta::commands
