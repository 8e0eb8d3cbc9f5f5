#pragma once

// The rules that `playlist` and `folder` commands share with the library
// batch: each holds the steps and the checks, and leaves the words of a
// failure to its caller.

#include <cstdint>
#include <string>
#include <vector>

#include "commands/context.hpp"

namespace orvanta::commands {

// A `--image-file` or `image_file`: the desktop client reads the cover from
// a path of its own, so a relative path is made absolute against our
// working directory. Only its existence is checked, not its type or size; a
// failure of the file system other than "not found" throws.
struct CoverImage {
  std::string path;
  bool exists = false;
};
CoverImage find_cover_image(const std::string& image_file);

// Moving URIs into a folder: a destination other than `root` must be a
// folder of the recursive list (the `root` member of the answer is not
// searched), then one request per URI, so that a failure can say how far
// the move got; the moves that went through stay.
struct FolderMove {
  enum class Stage : std::uint8_t { done, listing_failed, destination_missing, move_failed };
  Stage stage = Stage::done;
  // The sum of the desktop client's own counts, which may be 0 or more than
  // 1 per URI.
  std::int32_t moved = 0;
  // The message of the request that failed.
  std::string error;
};
inline constexpr const char* root_folder = "root";
FolderMove move_to_folder(const std::vector<std::string>& uris, const std::string& destination, Context& context);

}  // namespace orvanta::commands
