#pragma once

#include <cstddef>
#include <cstdint>
#include <sys/types.h>

namespace orvanta::crash {

// Reads the memory of a process; the seam that lets the stack walk be
// tested on made-up memory.
class MemoryReader {
 public:
  virtual ~MemoryReader() = default;
  // Copies `size` bytes at `address` into `buffer`. Returns false when any
  // of them cannot be read.
  virtual bool read(std::uint64_t address, void* buffer, std::size_t size) const = 0;
};

// The memory of a live process through /proc/<pid>/mem. The handler may
// read its client because the client is its parent and has named it as its
// tracer; an unmapped address only fails the read, it never harms either
// process.
class ProcessMemory final : public MemoryReader {
 public:
  explicit ProcessMemory(pid_t pid);
  ~ProcessMemory() override;
  ProcessMemory(const ProcessMemory&) = delete;
  ProcessMemory& operator=(const ProcessMemory&) = delete;

  // 0 when the memory file is open, else the errno of the failed open.
  int open_error() const { return open_error_; }

  bool read(std::uint64_t address, void* buffer, std::size_t size) const override;

 private:
  int fd_ = -1;
  int open_error_ = 0;
};

}  // namespace orvanta::crash
