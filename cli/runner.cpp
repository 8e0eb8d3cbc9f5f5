#include "cli/runner.hpp"

#include <chrono>
#include <string>
#include <system_error>
#include <thread>

#include "cli/catch_levels.hpp"
#include "cli/dispatch.hpp"
#include "commands/program.hpp"
#include "commands/system.hpp"
#include "desktop_link/client_id.hpp"
#include "desktop_link/partner_api_client.hpp"

namespace orvanta::cli {

CommandRunner::CommandRunner() : CommandRunner(stdout, stderr) {}

CommandRunner::CommandRunner(std::FILE* out, std::FILE* err)
    : CommandRunner([] { return std::make_unique<link::SystemAppLauncher>(std::string(commands::kLauncherName)); },
                    [](asio::io_context& context) {
                      return std::make_unique<link::PartnerApiClient>(
                          link::client_id(), std::string(commands::kClientDisplayName),
                          std::string(commands::kVersion), context);
                    },
                    out, err) {}

CommandRunner::CommandRunner(const LauncherFactory& make_launcher, const ClientFactory& make_client,
                             std::FILE* out, std::FILE* err)
    : io_thread_(context_), launcher_(make_launcher()), client_(make_client(context_)), out_(out), err_(err) {
  link::wait_until_running(context_);
}

CommandRunner::~CommandRunner() {
  if (client_->connection_state() != link::state_disconnected) {
    link::run_job_and_wait(context_, [this] { client_->disconnect(); });
  }
  context_.stop();
  client_.reset();
  launcher_.reset();
}

int CommandRunner::run(const CommandLine& line) {
  commands::Context context(*client_, context_, *launcher_, [this] { return connect(); }, out_, err_);
  return run_guarded(err_, [&] { return run_command(line, context); });
}

int CommandRunner::run_command(const CommandLine& line, commands::Context& context) {
  switch (line.command()) {
    case CommandId::Open:
      return commands::open(line, context);
    case CommandId::Navigate:
      return commands::navigate(line, context);
    case CommandId::Version:
      return commands::version(line, context);
    default:
      break;
  }
  // The desktop client is never started for a command: it must be running.
  if (!launcher_->is_running()) {
    std::fprintf(err_, "Orvanta desktop client is not running\n");
    return 1;
  }
  if (!connect()) return 1;
  return dispatch_command(line, context);
}

bool CommandRunner::connect() {
  std::error_code ec = link::run_and_wait(context_, client_->connect());
  if (ec) {
    std::fprintf(err_, "Failed to connect to Orvanta desktop client: %s\n", ec.message().c_str());
    return false;
  }
  // Lets the first login notification arrive before any handler asks.
  std::this_thread::sleep_for(std::chrono::nanoseconds(100'000'000));
  return true;
}

}  // namespace orvanta::cli
