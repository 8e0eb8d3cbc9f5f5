#pragma once

#include "crash/handler/crash_report.hpp"
#include "crash/handler/handler_options.hpp"
#include "crash/store/crash_message.hpp"
#include "crash/store/simple_dictionary.hpp"

#include <string>

namespace orvanta::crash {

// Gathers the report of a crash of the client process `options.client_pid`,
// which waits in its signal handler while this runs: the message's signal
// and registers, the handler's annotations, the client's dictionary, and
// the crashing thread's stack located in the client's maps. A part that
// cannot be read is left out and named in the report's notes; this never
// fails as a whole.
CrashReport capture_crash(const HandlerOptions& options, const std::string& client_id,
                          const CrashMessage& message,
                          const SimpleStringDictionary& dictionary);

}  // namespace orvanta::crash
