#pragma once

#include <string>
#include <string_view>

namespace orvanta::crash {

// The values that `main` puts into CrashReporterConfig on Linux.

// The directory of the running program (/proc/self/exe), where the build
// and the installation put crashpad_handler beside orvanta_cli. Empty when
// it cannot be read.
std::string default_handler_dir();

// $XDG_DATA_HOME/com.orvanta.client when XDG_DATA_HOME is an absolute
// path, else $HOME/.local/share/com.orvanta.client when HOME is an absolute
// path to an existing directory. Empty otherwise; the reporter then does
// not start, rather than writing below the working directory or making a
// home directory.
std::string default_data_dir();

// The upload endpoint this build was configured with (the CMake cache
// variable ORVANTA_CRASH_UPLOAD_URL); empty by default, which keeps uploads
// disabled.
std::string build_upload_url();

// The platform the program was built for, as the `platform` annotation
// names it: "linuxx64", "linuxarm64", ...
std::string_view build_platform();

}  // namespace orvanta::crash
