#include "desktop_link/io_thread.hpp"

#include <pthread.h>

#include <asio/executor_work_guard.hpp>

namespace orvanta::link {
namespace {

thread_local std::string thread_name;

void name_this_thread(const char* name) {
  thread_name = name;
  // Linux keeps at most 15 bytes of a thread's name; a longer one is refused
  // by the kernel, so shorten rather than lose it.
  char short_name[16] = {};
  thread_name.copy(short_name, sizeof short_name - 1);
  pthread_setname_np(pthread_self(), short_name);
}

asio::awaitable<void> nothing() { co_return; }

}  // namespace

const std::string& current_thread_name() { return thread_name; }

IoThread::IoThread(asio::io_context& context)
    : thread_([&context] {
        name_this_thread(io_thread_name);
        auto guard = asio::make_work_guard(context);
        context.run();
      }) {}

IoThread::~IoThread() {
  thread_.request_stop();
  if (thread_.joinable()) thread_.join();
}

void wait_until_running(asio::io_context& context) { run_and_wait(context, nothing()); }

namespace {

asio::awaitable<void> run_job(std::function<void()> job) {
  job();
  co_return;
}

}  // namespace

void run_job_and_wait(asio::io_context& context, std::function<void()> job) {
  run_and_wait(context, run_job(std::move(job)));
}

}  // namespace orvanta::link
