#include "crash/handler_launch.hpp"

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <spawn.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <unistd.h>

extern char** environ;

namespace orvanta::crash {
namespace {

// The file actions run in the child in this order; the socket goes to its
// place first, in case the pair landed on 0, 1 or 2 in a program that had
// closed them.
bool set_up_descriptors(posix_spawn_file_actions_t& actions, int child_end) {
  return posix_spawn_file_actions_adddup2(&actions, child_end, kHandlerClientFd) == 0 &&
         posix_spawn_file_actions_addopen(&actions, 0, "/dev/null", O_RDONLY, 0) == 0 &&
         posix_spawn_file_actions_addopen(&actions, 1, "/dev/null", O_WRONLY, 0) == 0 &&
         posix_spawn_file_actions_addopen(&actions, 2, "/dev/null", O_WRONLY, 0) == 0 &&
         posix_spawn_file_actions_addclosefrom_np(&actions, kHandlerClientFd + 1) == 0;
}

// Handlers are reset by exec anyway; an ignored signal or a blocked mask
// would be inherited, and the handler wants neither.
bool set_up_signals(posix_spawnattr_t& attributes) {
  sigset_t none;
  sigset_t all;
  sigemptyset(&none);
  sigfillset(&all);
  return posix_spawnattr_setsigmask(&attributes, &none) == 0 &&
         posix_spawnattr_setsigdefault(&attributes, &all) == 0 &&
         posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF) == 0;
}

pid_t spawn(const HandlerLaunch& launch, int child_end) {
  std::vector<std::string> arguments = handler_command_line(launch, getpid());
  std::vector<char*> argv;
  for (std::string& argument : arguments) argv.push_back(argument.data());
  argv.push_back(nullptr);

  posix_spawn_file_actions_t actions;
  posix_spawnattr_t attributes;
  posix_spawn_file_actions_init(&actions);
  posix_spawnattr_init(&attributes);
  pid_t pid = -1;
  if (!set_up_descriptors(actions, child_end) || !set_up_signals(attributes) ||
      posix_spawn(&pid, launch.handler.c_str(), &actions, &attributes, argv.data(), environ) != 0) {
    pid = -1;
  }
  posix_spawnattr_destroy(&attributes);
  posix_spawn_file_actions_destroy(&actions);
  return pid;
}

}  // namespace

std::vector<std::string> handler_command_line(const HandlerLaunch& launch, pid_t client_pid) {
  std::vector<std::string> line{launch.handler, "--database=" + launch.database,
                                "--metrics-dir=" + launch.metrics_dir, "--url=" + launch.url};
  for (const auto& [key, value] : launch.annotations) {
    line.push_back("--annotation=" + key + "=" + value);
  }
  line.insert(line.end(), launch.arguments.begin(), launch.arguments.end());
  line.push_back("--client-fd=" + std::to_string(kHandlerClientFd));
  line.push_back("--client-pid=" + std::to_string(client_pid));
  return line;
}

std::optional<HandlerConnection> make_handler_connection() {
  int ends[2];
  if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends) != 0) return std::nullopt;
  return HandlerConnection{ends[0], ends[1]};
}

pid_t spawn_handler(const HandlerLaunch& launch, int handler_end) {
  pid_t pid = spawn(launch, handler_end);
  // Where the kernel lets a process be traced only by its ancestors, the
  // handler (our child) needs this to read our threads. Where it does not,
  // the call fails harmlessly.
  if (pid > 0) prctl(PR_SET_PTRACER, pid, 0, 0, 0);
  return pid;
}

}  // namespace orvanta::crash
