// orvanta_desktop_sim: the desktop client's side of the Partner API, with an
// in-memory state, for trying, testing and demonstrating orvanta_cli.
#include <sys/prctl.h>

#include <csignal>
#include <cstdio>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include <asio/io_context.hpp>
#include <asio/signal_set.hpp>

#include "sim/dispatcher.hpp"
#include "sim/fixture.hpp"
#include "sim/options.hpp"
#include "sim/ready_file.hpp"
#include "sim/request_log.hpp"
#include "sim/server.hpp"

namespace {

using namespace orvanta::sim;

// The name the CLI looks for when it asks whether the desktop client runs.
constexpr const char* process_name = "Orvanta";

int refuse(const std::string& reason, int status) {
  std::fprintf(stderr, "orvanta_desktop_sim: %s\n", reason.c_str());
  return status;
}

int serve(const SimOptions& options, SimState& state, RequestLog& log) {
  asio::io_context context;
  Dispatcher dispatcher(state);
  dispatcher.set_complete_notification(options.complete_notification);
  Server server(context, dispatcher, options.faults, options.log_file.empty() ? nullptr : &log);
  if (std::string refusal = server.listen(options.ports); !refusal.empty()) return refuse(refusal, 1);
  if (options.name_process) ::prctl(PR_SET_NAME, process_name, 0, 0, 0);

  asio::signal_set signals(context, SIGINT, SIGTERM);
  signals.async_wait([&server](const std::error_code&, int) { server.stop(); });
  server.start();
  for (std::uint16_t port : server.ports()) {
    std::fprintf(stderr, "orvanta_desktop_sim: listening on 127.0.0.1:%u\n", static_cast<unsigned>(port));
  }
  if (!options.ready_file.empty()) {
    if (std::string refusal = write_ready_file(options.ready_file, server.ports()); !refusal.empty()) {
      return refuse(refusal, 1);
    }
  }
  context.run();
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  std::vector<std::string_view> args(argv + 1, argv + argc);
  auto parsed = parse_options(args);
  if (auto* refusal = std::get_if<std::string>(&parsed)) return refuse(*refusal + "\n\n" + std::string(usage_text()), 2);
  const SimOptions& options = std::get<SimOptions>(parsed);
  if (options.help) {
    std::fputs(usage_text().data(), stdout);
    return 0;
  }
  auto loaded = initial_state(options);
  if (auto* refusal = std::get_if<std::string>(&loaded)) return refuse(*refusal, 1);
  SimState& state = std::get<SimState>(loaded);
  RequestLog log;
  if (!options.log_file.empty() && !log.open(options.log_file, options.log_connections)) {
    return refuse("cannot open the request log " + options.log_file, 1);
  }
  if (int status = serve(options, state, log); status != 0) return status;
  if (!options.dump_state_file.empty()) {
    if (std::string refusal = write_state_file(options.dump_state_file, state); !refusal.empty()) {
      return refuse(refusal, 1);
    }
  }
  return 0;
}
