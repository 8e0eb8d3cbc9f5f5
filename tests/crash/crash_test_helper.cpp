// A stand-in for orvanta_cli in the crash tests: it starts the crash
// reporter as main does, says on stdout what a test needs to know, and then
// does what its mode says, crashing on purpose in most of them.
//
//   crash_test_helper HANDLER_DIR MODE
//
// run      start, report, exit 0
// hold     start, report, close stdout and stderr, exit 0 at end of stdin
// restart  start, kill the handler, wait for its replacement, then as segv
// segv bus ill fpe abort   start, report, die of that signal
// thread   start, report, die of SIGSEGV on a second thread while the
//          first waits for it
//
// It is built with frame pointers and without sibling calls, so that the
// stack of a crash is the one written here.

#include "crash/crash_reporter.hpp"
#include "crash/defaults.hpp"

#include <chrono>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string_view>
#include <sys/mman.h>
#include <sys/resource.h>
#include <thread>
#include <unistd.h>

namespace {

using orvanta::crash::CrashReporter;

#define ORVANTA_UNCHECKED \
  __attribute__((noinline, no_sanitize("address"), no_sanitize("undefined")))

volatile std::uintptr_t g_fault_address = 0x10;
volatile int g_zero = 0;

ORVANTA_UNCHECKED void write_to_fault_address() {
  *reinterpret_cast<volatile int*>(g_fault_address) = 1;
}

ORVANTA_UNCHECKED void crash_by_segv() {
  write_to_fault_address();
  std::puts("survived");
}

ORVANTA_UNCHECKED void crash_by_bus() {
  int fd = memfd_create("crash_test_helper", 0);
  if (fd < 0 || ftruncate(fd, 4096) != 0) std::abort();
  void* page = mmap(nullptr, 4096, PROT_READ | PROT_WRITE, MAP_SHARED, fd, 0);
  if (page == MAP_FAILED || ftruncate(fd, 0) != 0) std::abort();
  *static_cast<volatile char*>(page) = 1;  // the page no longer has a file behind it
  std::puts("survived");
}

ORVANTA_UNCHECKED void crash_by_ill() {
#if defined(__x86_64__)
  __builtin_trap();  // ud2
#else
  std::raise(SIGILL);
#endif
}

ORVANTA_UNCHECKED void crash_by_fpe() {
#if defined(__x86_64__)
  int dividend = 1;
  int divisor = g_zero;
  asm volatile("cltd\n\tidivl %[divisor]" : "+a"(dividend) : [divisor] "r"(divisor) : "edx", "cc");
#else
  std::raise(SIGFPE);
#endif
}

ORVANTA_UNCHECKED void crash_by_abort() { std::abort(); }

ORVANTA_UNCHECKED void crash_on_second_thread() {
  std::thread([] { write_to_fault_address(); }).join();
}

bool start_reporter(const char* handler_dir) {
  orvanta::crash::CrashReporterConfig config;
  config.handler_dir = handler_dir;
  config.data_dir = orvanta::crash::default_data_dir();
  config.product = "orvanta";
  config.version = "1.2.93.667";
  config.ptype = "orvanta_cli";
  // The tests point uploads at their own endpoint.
  const char* url = std::getenv("ORVANTA_TEST_UPLOAD_URL");
  config.upload_url = url != nullptr ? url : orvanta::crash::build_upload_url();
  config.rate_limit = true;
  return CrashReporter::instance().start(config);
}

// The handler is spawned just after the start returns, and the watcher
// restarts a dead one after a pause; this waits for a handler other than
// `old_pid`.
pid_t handler_other_than(pid_t old_pid) {
  auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(30);
  while (std::chrono::steady_clock::now() < deadline) {
    pid_t pid = CrashReporter::instance().handler_pid();
    if (pid > 0 && pid != old_pid) return pid;
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
  return -1;
}

void hold_until_end_of_input() {
  close(STDOUT_FILENO);
  close(STDERR_FILENO);
  char buffer[64];
  while (read(STDIN_FILENO, buffer, sizeof buffer) > 0) {
  }
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) return 64;
  rlimit no_core{0, 0};
  setrlimit(RLIMIT_CORE, &no_core);  // a test must not leave core files behind
  std::string_view mode = argv[2];
  bool started = start_reporter(argv[1]);
  std::printf("started %d\nhandler %d\npid %d\n", started ? 1 : 0,
              static_cast<int>(started ? handler_other_than(-1) : -1),
              static_cast<int>(getpid()));
  if (mode == "restart") {
    pid_t handler = CrashReporter::instance().handler_pid();
    kill(handler, SIGKILL);
    std::printf("replacement %d\n", static_cast<int>(handler_other_than(handler)));
    mode = "segv";
  }
  std::fflush(stdout);
  if (mode == "run") return 0;
  if (mode == "hold") {
    hold_until_end_of_input();
    return 0;
  }
  if (mode == "segv") crash_by_segv();
  if (mode == "bus") crash_by_bus();
  if (mode == "ill") crash_by_ill();
  if (mode == "fpe") crash_by_fpe();
  if (mode == "abort") crash_by_abort();
  if (mode == "thread") crash_on_second_thread();
  return 65;
}
