#pragma once

// The three standard streams, as a careful Unix program treats them.

namespace orvanta::platform {

// Opens /dev/null on each of descriptors 0, 1 and 2 that is closed, so that
// no descriptor the program opens later (a pipe, a socket, a file) takes
// one of their numbers and is read or written as if it were a standard
// stream. Call first thing in main.
void ensure_standard_descriptors() noexcept;

// Flushes stdout and tells whether everything written to it went out. On a
// failure, one line on stderr says why and the result is false: a command
// whose output was lost did not succeed.
bool stdout_written() noexcept;

}  // namespace orvanta::platform
