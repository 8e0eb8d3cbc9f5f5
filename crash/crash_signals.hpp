#pragma once

#include "crash/store/simple_dictionary.hpp"

#include <array>
#include <csignal>

namespace orvanta::crash {

// The in-process half of a crash: the fatal-signal handler and the two
// things it reads, the connection to the handler process and the table of
// simple annotations. Both are atomics, so they can change while a signal
// may arrive.

inline constexpr std::array<int, 5> kFatalSignals = {SIGSEGV, SIGBUS, SIGILL, SIGFPE, SIGABRT};

// How long a crashing process waits for the handler to write its report.
inline constexpr int kReportTimeoutMs = 10000;

// Makes `fd` the connection a crash is reported to; -1 for none.
void set_handler_connection(int fd);

// Sets the connection to -1 only when it is still `fd`, for a client that
// ends after another has taken over.
void clear_handler_connection(int fd);

// Registers the table that a crash report carries; nullptr for none. The
// table must stay alive until another one (or nullptr) is registered.
void set_simple_annotations(const SimpleStringDictionary* dictionary);

// Installs the handler for kFatalSignals. On a fatal signal it sends the
// signal, fault address, registers and annotations to the connection, waits
// up to kReportTimeoutMs for the report, restores the default action and
// lets the signal end the process, so the exit status is that of the
// original signal. It runs on an alternate stack (given to the calling
// thread when it has none), so that a stack overflow of that thread is
// reported too. Installing again puts the handler back in front of any
// installed since, a sanitizer's for instance. Returns false when a
// handler cannot be installed.
bool install_crash_signal_handlers();

}  // namespace orvanta::crash
