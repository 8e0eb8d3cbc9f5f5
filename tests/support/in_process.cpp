#include "tests/support/in_process.hpp"

#include <cstdio>
#include <filesystem>
#include <optional>
#include <sstream>
#include <stdexcept>
#include <string_view>
#include <thread>
#include <variant>

#include <asio/io_context.hpp>
#include <asio/post.hpp>

#include "cli/recognizer.hpp"
#include "cli/runner.hpp"
#include "commands/program.hpp"
#include "desktop_link/client_id.hpp"
#include "desktop_link/partner_api_client.hpp"
#include "sim/dispatcher.hpp"
#include "sim/fixture.hpp"
#include "sim/options.hpp"
#include "sim/request_log.hpp"
#include "sim/server.hpp"

namespace orvanta::testing {
namespace {

Sim* current_sim = nullptr;

sim::SimOptions options_of(const std::string& directory, const std::vector<std::string>& flags) {
  std::vector<std::string> words{"--port", "0", "--log", directory + "/requests.jsonl"};
  words.insert(words.end(), flags.begin(), flags.end());
  const std::vector<std::string_view> views(words.begin(), words.end());
  auto parsed = sim::parse_options(views);
  if (auto* refusal = std::get_if<std::string>(&parsed)) throw std::runtime_error(*refusal);
  return std::get<sim::SimOptions>(std::move(parsed));
}

sim::SimState state_of(const sim::SimOptions& options) {
  auto loaded = sim::initial_state(options);
  if (auto* refusal = std::get_if<std::string>(&loaded)) throw std::runtime_error(*refusal);
  return std::get<sim::SimState>(std::move(loaded));
}

// The desktop client runs: it is the simulator of this process.
class RunningApp final : public link::DesktopAppLauncher {
 public:
  void launch(std::vector<std::string> /*args*/) override {}
  bool is_running() override { return true; }
  bool is_installed() override { return true; }
};

struct File {
  std::FILE* file = std::tmpfile();
  File() {
    if (file == nullptr) throw std::runtime_error("tmpfile failed");
  }
  ~File() { std::fclose(file); }
  File(const File&) = delete;
  File& operator=(const File&) = delete;
};

}  // namespace

struct Sim::State {
  explicit State(const std::vector<std::string>& flags)
      : directory(make_temporary_directory()),
        options(options_of(directory, flags)),
        world(state_of(options)),
        dispatcher(world),
        server(context, dispatcher, options.faults, &log) {
    if (!log.open(options.log_file, options.log_connections)) throw std::runtime_error("cannot open the request log");
    dispatcher.set_complete_notification(options.complete_notification);
    if (std::string refusal = server.listen(options.ports); !refusal.empty()) throw std::runtime_error(refusal);
    server.start();
    thread = std::thread([this] { context.run(); });
  }

  ~State() {
    asio::post(context, [this] { server.stop(); });
    thread.join();
    std::error_code ignored;
    std::filesystem::remove_all(directory, ignored);
  }

  std::string directory;
  sim::SimOptions options;
  sim::SimState world;
  sim::RequestLog log;
  asio::io_context context;
  sim::Dispatcher dispatcher;
  sim::Server server;
  std::thread thread;
  std::optional<std::chrono::milliseconds> wait_limit;
  std::optional<std::chrono::milliseconds> pause_length = std::chrono::milliseconds(1);
};

Sim::Sim(std::vector<std::string> flags) : state_(std::make_unique<State>(flags)) { current_sim = this; }

Sim::~Sim() {
  if (current_sim == this) current_sim = nullptr;
}

Sim& Sim::current() {
  if (current_sim == nullptr) throw std::logic_error("run_command needs a Sim");
  return *current_sim;
}

std::uint16_t Sim::port() const { return state_->server.ports().front(); }
const std::string& Sim::directory() const { return state_->directory; }
std::vector<std::string> Sim::requests() const { return lines_of_file(state_->options.log_file); }
std::vector<std::string> Sim::methods() const { return methods_of(requests()); }

void Sim::shorten_waits(std::chrono::milliseconds limit) { state_->wait_limit = limit; }
std::optional<std::chrono::milliseconds> Sim::wait_limit() const { return state_->wait_limit; }
void Sim::set_pauses(std::optional<std::chrono::milliseconds> length) { state_->pause_length = length; }
std::optional<std::chrono::milliseconds> Sim::pause_length() const { return state_->pause_length; }

ProcessResult run_command(const std::vector<std::string>& args, const std::string& input) {
  std::vector<std::string> words{"orvanta_cli"};
  words.insert(words.end(), args.begin(), args.end());
  std::vector<const char*> argv;
  for (const std::string& word : words) argv.push_back(word.c_str());
  argv.push_back(nullptr);
  const cli::CommandLine line = cli::parse_command_line(static_cast<int>(words.size()), argv.data());
  if (line.help_requested() || line.command() == cli::CommandId::None) return run_cli(args);

  Sim& sim = Sim::current();
  link::ConnectSettings settings;
  settings.ports = {sim.port()};
  // The link's schedule, shortened: a refused hello fails in 300 ms, not 5 s.
  settings.retry_window_ms = 300;
  settings.retry_pause_ms = 20;
  cli::CommandRunner::Timing timing;
  timing.wait_limit = sim.wait_limit();
  timing.pause_length = sim.pause_length();

  File in;
  File out;
  File err;
  std::fwrite(input.data(), 1, input.size(), in.file);
  std::rewind(in.file);
  ProcessResult result;
  {
    cli::CommandRunner runner([] { return std::make_unique<RunningApp>(); },
                              [&settings](asio::io_context& context) {
                                return std::make_unique<link::PartnerApiClient>(
                                    link::client_id(), std::string(commands::kClientDisplayName),
                                    std::string(commands::kVersion), context, nullptr, settings);
                              },
                              out.file, err.file, timing, in.file);
    result.status = runner.run(line);
  }
  result.out = contents_of(out.file);
  result.err = contents_of(err.file);
  return result;
}

}  // namespace orvanta::testing
