#pragma once

// Reading a file that a client or a user names: only a regular file, and only
// up to a size that no real state or timeline comes near, so that /dev/zero,
// a FIFO or a huge file costs a refusal instead of the simulator's memory.

#include <cstddef>
#include <string>

namespace orvanta::sim {

inline constexpr std::size_t file_size_limit = std::size_t{16} << 20;

enum class FileRead { ok, unreadable, not_regular, too_large };

// Fills `text` with the whole file at `path` when the result is `ok`.
FileRead read_bounded_file(const std::string& path, std::string& text);

// " is not a regular file", " is larger than 16 MiB", or "" for the others:
// the words behind the file's name in a refusal.
std::string file_read_reason(FileRead result);

}  // namespace orvanta::sim
