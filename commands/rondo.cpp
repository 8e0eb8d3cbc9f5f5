#include "commands/rondo.hpp"

#include <string>

#include "messages/record_codecs.hpp"

namespace orvanta::commands {
namespace {

using messages::RondoStatusResponse;

// An inactive session is an answer, not a failure.
constexpr const char* kNoSession = "No active Rondo session\n";

const char* on_off(bool on) { return on ? "on" : "off"; }

void print_participant(Context& context, const messages::RondoMember& member) {
  std::fprintf(context.out, "  %s", member.display_name.c_str());
  if (!member.username.empty()) std::fprintf(context.out, " (%s)", member.username.c_str());
  if (member.is_current_user) std::fprintf(context.out, " [you]");
  std::fprintf(context.out, "\n");
}

void print_permissions(Context& context, bool queue_only_mode, bool volume_control_enabled) {
  std::fprintf(context.out, "Queue-only mode: %s\n", on_off(queue_only_mode));
  std::fprintf(context.out, "Volume control: %s\n", on_off(volume_control_enabled));
}

// Runs an operation that answers with nothing of interest; on success prints
// `done`, on failure "<failure>: <message>" and returns 1.
int run_simple(Context& context, link::Await<messages::EmptyResponse> operation, const char* done,
               const char* failure) {
  std::error_code ec = context.run_and_wait(std::move(operation));
  if (ec) return context.fail("%s: %s\n", failure, ec.message().c_str());
  std::fprintf(context.out, "%s", done);
  return 0;
}

int update_permissions(const cli::CommandLine& line, Context& context) {
  messages::RondoPermissionsRequest request;
  request.queue_only_mode = line.queue_only();
  request.volume_control = line.volume_control();
  link::Result<messages::RondoPermissionsResponse> updated =
      context.run_and_wait(context.api().rondo_permissions(std::move(request)));
  if (!updated) return context.fail("Failed to update Rondo permissions: %s\n", updated.error().message().c_str());
  // The update reports in text, also under --format json.
  print_permissions(context, updated->queue_only_mode, updated->volume_control_enabled);
  return 0;
}

}  // namespace

int rondo_status(const cli::CommandLine& line, Context& context) {
  link::Result<RondoStatusResponse> rondo = context.run_and_wait(context.api().rondo_status());
  if (!rondo) return context.fail("Failed to get Rondo status: %s\n", rondo.error().message().c_str());
  // JSON carries `active` itself, so an inactive session is printed as it is.
  if (line.json_output()) {
    context.print_json(messages::record_codec<RondoStatusResponse>(), *rondo);
    return 0;
  }
  if (!rondo->active) {
    std::fprintf(context.out, "%s", kNoSession);
    return 0;
  }
  std::fprintf(context.out, "Rondo Session: %s\n", rondo->session_id.c_str());
  std::fprintf(context.out, "Role: %s\n", rondo->is_session_owner ? "Host" : "Participant");
  std::fprintf(context.out, "Members: %d\n", static_cast<int>(rondo->member_count));
  print_permissions(context, rondo->queue_only_mode, rondo->volume_control_enabled);
  if (!rondo->members.empty()) {
    std::fprintf(context.out, "\nParticipants:\n");
    for (const auto& member : rondo->members) print_participant(context, member);
  }
  return 0;
}

int rondo_create(Context& context) {
  messages::RondoCreateRequest request;
  request.activate = true;
  link::Result<RondoStatusResponse> created = context.run_and_wait(context.api().rondo_create(std::move(request)));
  if (!created) return context.fail("Failed to create Rondo: %s\n", created.error().message().c_str());
  std::fprintf(context.out, "Rondo created: %s\n", created->session_id.c_str());
  return 0;
}

int rondo_leave(Context& context) {
  return run_simple(context, context.api().rondo_leave(), "Left Rondo session\n", "Failed to leave Rondo");
}

int rondo_end(Context& context) {
  return run_simple(context, context.api().rondo_end(), "Rondo session ended\n", "Failed to end Rondo");
}

int rondo_members(const cli::CommandLine& line, Context& context) {
  link::Result<RondoStatusResponse> rondo = context.run_and_wait(context.api().rondo_status());
  if (!rondo) return context.fail("Failed to get Rondo members: %s\n", rondo.error().message().c_str());
  // Unlike `rondo status`, an inactive session is the sentence in JSON mode too.
  if (!rondo->active) {
    std::fprintf(context.out, "%s", kNoSession);
    return 0;
  }
  if (line.json_output()) {
    context.print_json(messages::record_codec<RondoStatusResponse>(), *rondo);
    return 0;
  }
  // The heading counts what the session reports, which may differ from the list.
  std::fprintf(context.out, "Rondo members (%d):\n", static_cast<int>(rondo->member_count));
  for (const auto& member : rondo->members) print_participant(context, member);
  return 0;
}

int rondo_kick(std::string_view argument, Context& context) {
  std::string member_id(argument);
  link::Result<RondoStatusResponse> kicked = context.run_and_wait(context.api().rondo_kick(member_id));
  if (!kicked) return context.fail("Failed to kick member: %s\n", kicked.error().message().c_str());
  std::fprintf(context.out, "Kicked %s from Rondo\n", member_id.c_str());
  return 0;
}

int rondo_permissions(const cli::CommandLine& line, Context& context) {
  if (line.queue_only() || line.volume_control()) return update_permissions(line, context);

  link::Result<RondoStatusResponse> rondo = context.run_and_wait(context.api().rondo_status());
  if (!rondo) return context.fail("Failed to get Rondo permissions: %s\n", rondo.error().message().c_str());
  if (!rondo->active) {
    std::fprintf(context.out, "%s", kNoSession);
    return 0;
  }
  if (line.json_output()) {
    // The two flags in the form the permission update answers with.
    messages::RondoPermissionsResponse permissions;
    permissions.queue_only_mode = rondo->queue_only_mode;
    permissions.volume_control_enabled = rondo->volume_control_enabled;
    context.print_json(messages::record_codec<messages::RondoPermissionsResponse>(), permissions);
    return 0;
  }
  print_permissions(context, rondo->queue_only_mode, rondo->volume_control_enabled);
  return 0;
}

}  // namespace orvanta::commands
