#include "crash/crash_signals.hpp"

#include "crash/store/crash_message.hpp"

#include <atomic>
#include <cerrno>
#include <cstdint>
#include <poll.h>
#include <sys/mman.h>
#include <sys/socket.h>
#include <ucontext.h>
#include <unistd.h>

namespace orvanta::crash {
namespace {

std::atomic<int> g_connection{-1};
std::atomic<const SimpleStringDictionary*> g_annotations{nullptr};
std::atomic<bool> g_reporting{false};

// Sent in place of the table when none is registered.
const SimpleStringDictionary g_no_annotations{};

// Runs inside the signal handler: plain copies only.
void copy_context(const void* context, CrashContext& out) {
  const auto* uc = static_cast<const ucontext_t*>(context);
#if defined(__x86_64__)
  static_assert(NGREG <= std::tuple_size_v<decltype(out.general)>);
  for (int i = 0; i < NGREG; ++i) {
    out.general[static_cast<std::size_t>(i)] = static_cast<std::uint64_t>(uc->uc_mcontext.gregs[i]);
  }
  if (uc->uc_mcontext.fpregs != nullptr) {
    static_assert(sizeof(*uc->uc_mcontext.fpregs) == std::tuple_size_v<decltype(out.fp)>);
    __builtin_memcpy(out.fp.data(), uc->uc_mcontext.fpregs, out.fp.size());
    out.has_fp = 1;
  }
#else
  (void)uc;
  (void)out;
#endif
}

// Everything below runs inside the signal handler: system calls only.
bool send_all(int fd, const void* data, std::size_t size) {
  const auto* bytes = static_cast<const char*>(data);
  while (size > 0) {
    ssize_t sent = send(fd, bytes, size, MSG_NOSIGNAL);
    if (sent < 0 && errno == EINTR) continue;
    if (sent <= 0) return false;
    bytes += sent;
    size -= static_cast<std::size_t>(sent);
  }
  return true;
}

void wait_for_report(int fd) {
  pollfd watch{fd, POLLIN, 0};
  int ready = 0;
  do {
    ready = poll(&watch, 1, kReportTimeoutMs);
  } while (ready < 0 && errno == EINTR);
  if (ready != 1) return;
  char answer = 0;
  (void)read(fd, &answer, 1);
}

void report(int signal, const siginfo_t* info, const void* context) {
  int fd = g_connection.load();
  if (fd < 0) return;
  CrashMessage message;
  message.tid = static_cast<std::int32_t>(gettid());
  message.signal = signal;
  message.code = info->si_code;
  // si_addr means something only for a fault; a sent signal has a pid there.
  if (info->si_code > 0) message.fault_address = reinterpret_cast<std::uintptr_t>(info->si_addr);
  copy_context(context, message.context);
  const SimpleStringDictionary* annotations = g_annotations.load();
  message.has_annotations = annotations != nullptr ? 1 : 0;
  if (annotations == nullptr) annotations = &g_no_annotations;
  if (send_all(fd, &message, sizeof message) && send_all(fd, annotations, sizeof *annotations)) {
    wait_for_report(fd);
  }
}

void on_fatal_signal(int signal, siginfo_t* info, void* context) {
  // A second thread that crashes while the first reports waits for the
  // first to end the process.
  if (g_reporting.exchange(true)) {
    for (;;) pause();
  }
  report(signal, info, context);

  struct sigaction default_action {};
  default_action.sa_handler = SIG_DFL;
  sigemptyset(&default_action.sa_mask);
  sigaction(signal, &default_action, nullptr);
  // A signal that a process sent (abort() among them) is sent again; it is
  // blocked until this handler returns. A fault recurs by itself when the
  // faulting instruction runs again. Either way the default action ends us.
  if (info->si_code <= 0) tgkill(getpid(), gettid(), signal);
}

bool ensure_alternate_stack() {
  stack_t current{};
  if (sigaltstack(nullptr, &current) == 0 && (current.ss_flags & SS_DISABLE) == 0) return true;
  constexpr std::size_t kSize = 64 * 1024;
  void* memory = mmap(nullptr, kSize, PROT_READ | PROT_WRITE,
                      MAP_PRIVATE | MAP_ANONYMOUS | MAP_STACK, -1, 0);
  if (memory == MAP_FAILED) return false;
  stack_t alternate{};
  alternate.ss_sp = memory;
  alternate.ss_size = kSize;
  if (sigaltstack(&alternate, nullptr) == 0) return true;
  munmap(memory, kSize);
  return false;
}

}  // namespace

void set_handler_connection(int fd) { g_connection.store(fd); }

void clear_handler_connection(int fd) {
  int expected = fd;
  g_connection.compare_exchange_strong(expected, -1);
}

void set_simple_annotations(const SimpleStringDictionary* dictionary) {
  g_annotations.store(dictionary);
}

bool install_crash_signal_handlers() {
  // Without an alternate stack, only a stack overflow goes unreported.
  ensure_alternate_stack();
  struct sigaction action {};
  action.sa_sigaction = on_fatal_signal;
  action.sa_flags = SA_SIGINFO | SA_ONSTACK;
  // While one fatal signal is handled, a second fault in the handler finds
  // its signal blocked, and the kernel ends the process at once instead of
  // entering the handler again.
  sigemptyset(&action.sa_mask);
  for (int signal : kFatalSignals) sigaddset(&action.sa_mask, signal);
  for (int signal : kFatalSignals) {
    if (sigaction(signal, &action, nullptr) != 0) return false;
  }
  return true;
}

}  // namespace orvanta::crash
