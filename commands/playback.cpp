#include "commands/playback.hpp"

#include <cmath>
#include <cstdlib>
#include <string>

#include "commands/devices.hpp"
#include "commands/program.hpp"
#include "messages/record_codecs.hpp"

namespace orvanta::commands {
namespace {

// Runs an operation that answers with nothing of interest; on failure prints
// "<what>: <message>" and returns 1.
int run_simple(Context& context, link::Await<messages::EmptyResponse> operation, const char* failure) {
  std::error_code ec = context.run_and_wait(std::move(operation));
  if (ec) return context.fail("%s: %s\n", failure, ec.message().c_str());
  return 0;
}

// What `status --format json` prints. By the time a handler runs, the
// desktop client is known to be running.
struct Status {
  bool running = true;
  bool logged_in = false;
};

json::ObjectCodec<Status> status_codec() {
  json::ObjectCodec<Status> codec;
  codec.add_field("running",   json::presence::required, &Status::running);
  codec.add_field("logged_in", json::presence::required, &Status::logged_in);
  return codec;
}

// The recogniser has validated these texts; the handlers convert them the
// C way on an owned copy.
int to_int(std::string_view text) { return std::atoi(std::string(text).c_str()); }
double to_double(std::string_view text) { return std::atof(std::string(text).c_str()); }

}  // namespace

int status(const cli::CommandLine& line, Context& context) {
  const bool logged_in = context.api().logged_in();
  if (line.json_output()) {
    context.print_json(status_codec(), Status{true, logged_in});
  } else {
    std::fprintf(context.out, "Orvanta desktop client is running\n");
    std::fprintf(context.out, "Logged in: %s\n", logged_in ? "Yes" : "No");
  }
  return 0;
}

int me(Context& context) {
  link::Result<messages::MeResponse> user = context.run_and_wait(context.api().me());
  if (!user) return context.fail("Failed to get user info: %s\n", user.error().message().c_str());
  // The profile is JSON in text mode too.
  context.print_json(messages::record_codec<messages::MeResponse>(), *user);
  return 0;
}

int play(const cli::CommandLine& line, Context& context) {
  if (const auto& device = line.device()) {
    int transferred = transfer_to_named_device(*device, context);
    if (transferred != 0) return transferred;
    if (line.argument().empty()) return resume(context);
  }
  return run_simple(context,
                    context.api().playback_play(std::string(line.argument()), std::string(kProgramType),
                                                line.attribution(), line.agentic_product_type()),
                    "Failed to play");
}

int pause(Context& context) { return run_simple(context, context.api().playback_pause(), "Failed to pause"); }

int resume(Context& context) { return run_simple(context, context.api().playback_resume(), "Failed to resume"); }

int next(Context& context) { return run_simple(context, context.api().playback_next(), "Failed to skip to next"); }

int previous(Context& context) {
  return run_simple(context, context.api().playback_previous(), "Failed to go to previous");
}

int seek(const cli::CommandLine& line, Context& context) {
  messages::PlaybackSeekRequest request;
  request.position_ms = to_int(line.argument());
  request.is_relative = line.relative();
  return run_simple(context, context.api().playback_seek(std::move(request)), "Failed to seek");
}

int shuffle(std::string_view argument, Context& context) {
  const bool on = argument != "off";
  if (run_simple(context, context.api().playback_shuffle(on), "Failed to set shuffle") != 0) return 1;
  std::fprintf(context.out, "Shuffle %s\n", on ? "on" : "off");
  return 0;
}

int repeat(std::string_view argument, Context& context) {
  if (argument.empty()) return context.fail("Usage: repeat off|context|track\n");
  std::string mode(argument);
  if (run_simple(context, context.api().playback_repeat(mode), "Failed to set repeat") != 0) return 1;
  std::fprintf(context.out, "Repeat: %s\n", mode.c_str());
  return 0;
}

int speed(std::string_view argument, Context& context) {
  // Hundredths, halves away from zero: 1.5 goes out as 150.
  const auto hundredths = static_cast<std::int32_t>(std::lround(to_double(argument) * 100.0));
  if (run_simple(context, context.api().playback_speed(hundredths), "Failed to set speed") != 0) return 1;
  std::fprintf(context.out, "Speed: %.2fx\n", hundredths / 100.0);
  return 0;
}

int volume(std::string_view argument, Context& context) {
  // The level goes out as entered, 0.0 to 1.0; the desktop client scales it.
  const double level = to_double(argument);
  if (run_simple(context, context.api().playback_volume(level), "Failed to set volume") != 0) return 1;
  std::fprintf(context.out, "Volume: %.2f\n", level);
  return 0;
}

}  // namespace orvanta::commands
