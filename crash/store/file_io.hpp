#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace orvanta::crash {

// The whole content of the file at `path`, read to its end (which also suits
// the files of /proc, whose size is not known in advance); nullopt when it
// cannot be opened or read, or is a symbolic link that `follow_link` does
// not allow.
std::optional<std::string> read_file(const std::string& path, bool follow_link = false);

// Writes `contents` to a new file `temporary_path` (mode 0600, never through
// a symbolic link), flushes it to the disk and renames it to `path`, so that a reader sees the old file or the whole new one and
// never a part. Returns false, with the temporary file removed, on any
// failure.
bool write_file_atomically(const std::string& temporary_path, const std::string& path,
                           std::string_view contents);

}  // namespace orvanta::crash
