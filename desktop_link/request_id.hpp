#pragma once

#include <string>

namespace orvanta::link {

// A fresh request id: a version-4 random UUID as 36 lower-case characters
// with dashes. One generator, made at first use and seeded from the system's
// entropy, serves the process; ids are made on the IO thread only.
// Throws std::system_error when no entropy source can be opened.
std::string new_request_id();

}  // namespace orvanta::link
