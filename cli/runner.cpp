#include "cli/runner.hpp"

#include <chrono>
#include <string>
#include <system_error>
#include <thread>

#include "cli/catch_levels.hpp"
#include "commands/dispatch.hpp"
#include "commands/program.hpp"
#include "commands/system.hpp"
#include "desktop_link/client_id.hpp"
#include "desktop_link/partner_api_client.hpp"

namespace orvanta::cli {
namespace {

asio::awaitable<bool> finished(asio::awaitable<void> operation) {
  co_await std::move(operation);
  co_return true;
}

}  // namespace

// The handlers' view of the runner: operations run on the IO thread, the
// main thread waits for them.
class CommandRunner::RunContext final : public commands::Context {
 public:
  explicit RunContext(CommandRunner& runner) : Context(runner.in_, runner.out_, runner.err_), runner_(runner) {}

  link::PartnerApi& api() override { return *runner_.client_; }
  link::DesktopAppLauncher& launcher() override { return *runner_.launcher_; }
  bool connect() override { return runner_.connect(); }
  void pause(std::chrono::milliseconds length) override { runner_.pause(length); }

 protected:
  void run(asio::awaitable<void> operation) override { link::run_and_wait(runner_.context_, std::move(operation)); }

  bool run_within(asio::awaitable<void> operation, std::chrono::milliseconds limit) override {
    const auto deadline = std::chrono::steady_clock::now() + runner_.timing_.wait_limit.value_or(limit);
    return link::run_and_wait_until(runner_.context_, finished(std::move(operation)), deadline).has_value();
  }

 private:
  CommandRunner& runner_;
};

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
                             std::FILE* out, std::FILE* err, Timing timing, std::FILE* in)
    : io_thread_(context_),
      launcher_(make_launcher()),
      client_(make_client(context_)),
      out_(out),
      err_(err),
      timing_(timing),
      in_(in) {
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
  RunContext context(*this);
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
  return commands::dispatch_command(line, context);
}

bool CommandRunner::connect() {
  std::error_code ec = link::run_and_wait(context_, client_->connect());
  if (ec) {
    std::fprintf(err_, "Failed to connect to Orvanta desktop client: %s\n", ec.message().c_str());
    return false;
  }
  // Lets the first login notification arrive before any handler asks.
  pause(std::chrono::milliseconds(100));
  return true;
}

void CommandRunner::pause(std::chrono::milliseconds length) const {
  std::this_thread::sleep_for(timing_.pause_length.value_or(length));
}

}  // namespace orvanta::cli
