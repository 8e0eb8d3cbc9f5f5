#pragma once

#include <string>

namespace orvanta::crash {

// A random (version 4) UUID in its 36-character text form, lower case. The
// bytes come from the kernel's generator; should that fail, from
// /dev/urandom; and should that fail too, from the clock and the process id,
// which keeps report names distinct but is no longer random.
std::string random_uuid();

}  // namespace orvanta::crash
