#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace orvanta::crash {

// The whole content of the file at `path`, read to its end (which also suits
// the files of /proc, whose size is not known in advance); nullopt when it
// cannot be opened or read.
std::optional<std::string> read_file(const std::string& path);

// Writes `contents` to `temporary_path`, flushes it to the disk and renames
// it to `path`, so that a reader sees the old file or the whole new one and
// never a part. Returns false, with the temporary file removed, on any
// failure.
bool write_file_atomically(const std::string& temporary_path, const std::string& path,
                           std::string_view contents);

}  // namespace orvanta::crash
