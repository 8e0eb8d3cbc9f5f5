#pragma once

#include <string>

namespace orvanta::platform {

// The resolved path of the running program (/proc/self/exe); empty when the
// link cannot be read.
std::string executable_path();

// The directory that holds the running program; empty when unknown.
std::string executable_dir();

// ${XDG_DATA_HOME}, or ${HOME}/.local/share when it is unset or empty; empty
// when neither variable gives a path.
std::string data_home();

// The part of `path` before its last '/', "/" for a top-level entry, and
// empty for a path without a '/'.
std::string parent_directory(const std::string& path);

// The part of `path` behind its last '/'.
std::string last_component(const std::string& path);

}  // namespace orvanta::platform
