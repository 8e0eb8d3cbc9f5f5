#pragma once

#include "crash/handler/crash_report.hpp"

#include <string>
#include <string_view>

namespace orvanta::crash {

// The name of a fatal signal ("SIGSEGV"), or "SIG?" for any other.
std::string_view signal_name(int signal);

// The text of a report file: a first line "orvanta crash report 1", then one
// "field value" line per fact in a fixed order, and a last line "end", so a
// report that lacks its last line is known to be cut short. Keys and
// values are escaped: a backslash, a control character and, in keys, '='
// become "\\", "\n", "\t", "\r", "\xHH" and "\=".
std::string format_report(const CrashReport& report);

}  // namespace orvanta::crash
