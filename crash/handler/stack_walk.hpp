#pragma once

#include "crash/handler/process_maps.hpp"
#include "crash/handler/process_memory.hpp"
#include "crash/store/crash_message.hpp"

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace orvanta::crash {

// How a frame was found, from most to least trustworthy.
enum class FrameTrust {
  context,        // the program counter of the signal context
  frame_pointer,  // a return address in the chain of saved frame pointers
  scan,           // a stack word (or link register) that looks like a return address
};

std::string_view trust_name(FrameTrust trust);

struct StackFrame {
  std::uint64_t address = 0;  // the crashing pc for frame 0, return addresses after it
  FrameTrust trust = FrameTrust::context;
  bool operator==(const StackFrame&) const = default;
};

inline constexpr std::size_t kMaxFrames = 64;
inline constexpr std::size_t kScanBytes = 16 * 1024;

// Whether `address` looks like a return address: it points into executable
// memory and the instruction before it is a call. Where the processor is
// not known, pointing into executable memory is enough.
bool is_return_address(const std::vector<Mapping>& maps, const MemoryReader& memory,
                       std::uint64_t address);

// The crashing thread's stack, innermost first; frame 0 is the context's pc.
//
// A function that crashed before setting up its frame, a leaf compiled
// without one among them, still has its return address on top of the
// stack (x86-64) or in the link register (arm64); when that looks like a
// return address it becomes frame 1. Then the frame-pointer chain
// ([fp] = caller's fp, [fp + 8] = return address) is followed as long as
// each frame lies further up the same stack mapping and each return address
// looks like one. Code built without frame pointers breaks that chain at
// once; then the first kScanBytes above the stack pointer are scanned for
// words that look like return addresses instead. At most kMaxFrames.
std::vector<StackFrame> walk_stack(const CrashRegisters& registers,
                                   const std::vector<Mapping>& maps, const MemoryReader& memory);

}  // namespace orvanta::crash
