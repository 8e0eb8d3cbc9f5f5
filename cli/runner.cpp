#include "cli/runner.hpp"

#include <exception>
#include <system_error>

#include "commands/context.hpp"
#include "commands/program.hpp"
#include "commands/system.hpp"
#include "desktop_link/error_category.hpp"

namespace orvanta::cli {

CommandRunner::CommandRunner()
    : CommandRunner(std::make_unique<link::SystemAppLauncher>(std::string(commands::kLauncherName)), stdout,
                    stderr) {}

CommandRunner::CommandRunner(std::unique_ptr<link::DesktopAppLauncher> launcher, std::FILE* out, std::FILE* err)
    : launcher_(std::move(launcher)), out_(out), err_(err) {}

CommandRunner::~CommandRunner() = default;

int CommandRunner::run(const CommandLine& line) {
  try {
    return run_command(line);
  } catch (const std::system_error& e) {
    std::fprintf(err_, "Error: %s\n", e.what());
    return e.code().value();
  } catch (const std::exception& e) {
    std::fprintf(err_, "Error: %s\n", e.what());
    return 1;
  } catch (...) {
    std::fprintf(err_, "Error: unknown exception\n");
    return 1;
  }
}

int CommandRunner::run_command(const CommandLine& line) {
  commands::Context context{*launcher_, [this] { return connect(); },
                            [](const CommandLine&) { return 1; }, out_, err_};
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
  if (!launcher_->is_running()) {
    std::fprintf(err_, "Orvanta desktop client is not running\n");
    return 1;
  }
  if (!connect()) return 1;
  return dispatch(line);
}

bool CommandRunner::connect() {
  // The desktop link is not part of this build yet: every connection fails
  // the way a refused one does.
  std::error_code ec = link::make_error_code(link::DesktopApiError::client_connection_failed);
  std::fprintf(err_, "Failed to connect to Orvanta desktop client: %s\n", ec.message().c_str());
  return false;
}

int CommandRunner::dispatch(const CommandLine&) {
  // Handlers of the connected commands arrive with the desktop link.
  return 1;
}

}  // namespace orvanta::cli
