#pragma once

#include <chrono>
#include <cstdio>
#include <functional>
#include <optional>
#include <string>
#include <utility>

#include <asio/awaitable.hpp>
#include <asio/io_context.hpp>

#include "desktop_link/desktop_app_launcher.hpp"
#include "desktop_link/io_thread.hpp"
#include "desktop_link/partner_api.hpp"
#include "json/json.hpp"

namespace orvanta::commands {

// What a handler gets from the runner: the client and the IO context that
// runs its operations, the application control, the streams to print on,
// and the connect step for the handlers that connect by themselves.
class Context {
 public:
  Context(link::PartnerApi& api, asio::io_context& io, link::DesktopAppLauncher& launcher,
          std::function<bool()> connect, std::FILE* out_stream, std::FILE* err_stream)
      : api_(api), io_(io), launcher_(launcher), connect_(std::move(connect)), out(out_stream), err(err_stream) {}

  link::PartnerApi& api() { return api_; }
  link::DesktopAppLauncher& launcher() { return launcher_; }

  // Runs one operation of the client on the IO thread and blocks until it
  // has finished. An exception of the operation is rethrown here.
  template <class T>
  T run_and_wait(asio::awaitable<T> operation) {
    return link::run_and_wait(io_, std::move(operation));
  }

  // As run_and_wait, but gives up at `deadline` and returns nothing; the
  // operation is left running.
  template <class T>
  std::optional<T> run_and_wait_until(asio::awaitable<T> operation, std::chrono::steady_clock::time_point deadline) {
    return link::run_and_wait_until(io_, std::move(operation), deadline);
  }

  // Connects and authorizes; prints its own failure line and returns false.
  bool connect() { return connect_(); }

  // Prints `record` as one compact JSON line.
  template <class Codec, class Record>
  void print_json(const Codec& codec, const Record& record) {
    json::EncodedText text = json::encode(codec, record);
    std::fwrite(text.data(), 1, text.view().size(), out);
    std::fputc('\n', out);
  }

 private:
  link::PartnerApi& api_;
  asio::io_context& io_;
  link::DesktopAppLauncher& launcher_;
  std::function<bool()> connect_;

 public:
  std::FILE* out;
  std::FILE* err;
};

}  // namespace orvanta::commands
