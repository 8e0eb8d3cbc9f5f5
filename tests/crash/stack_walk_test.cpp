#include "crash/handler/stack_walk.hpp"

#include <gtest/gtest.h>

#include <cstring>
#include <map>

namespace orvanta::crash {
namespace {

// Memory made of the bytes a test puts there and of zeros in the stack;
// anything else fails to read, as an unmapped address does in
// /proc/<pid>/mem.
class FakeMemory final : public MemoryReader {
 public:
  static constexpr std::uint64_t kStackStart = 0x10000;
  static constexpr std::uint64_t kStackEnd = 0x20000;

  void put(std::uint64_t address, std::uint64_t word) {
    for (unsigned i = 0; i < 8; ++i) {
      bytes_[address + i] = static_cast<std::uint8_t>(word >> (8 * i));
    }
  }
  // Puts a call instruction right before `return_address`.
  void put_call_before(std::uint64_t return_address) {
#if defined(__aarch64__)
    put(return_address - 8, std::uint64_t{0x94000000} << 32);  // bl
#else
    put(return_address - 8, std::uint64_t{0xe8} << 24);  // call rel32 at -5
#endif
  }
  bool read(std::uint64_t address, void* buffer, std::size_t size) const override {
    auto* out = static_cast<std::uint8_t*>(buffer);
    for (std::size_t i = 0; i < size; ++i) {
      auto it = bytes_.find(address + i);
      if (it != bytes_.end()) {
        out[i] = it->second;
      } else if (address + i >= kStackStart && address + i < kStackEnd) {
        out[i] = 0;
      } else {
        return false;
      }
    }
    return true;
  }

 private:
  std::map<std::uint64_t, std::uint8_t> bytes_;
};

const std::vector<Mapping> kMaps = parse_maps(
    "1000-2000 r-xp 00000000 08:01 11 /opt/orvanta/orvanta_cli\n"
    "6000-7000 r--p 00000000 08:01 22 /usr/lib/libc.so.6\n"
    "7000-8000 r-xp 00001000 08:01 22 /usr/lib/libc.so.6\n"
    "10000-20000 rw-p 00000000 00:00 0 [stack]\n");

constexpr std::uint64_t kSp = 0x10100;

using Frames = std::vector<StackFrame>;
constexpr auto kContext = FrameTrust::context;
constexpr auto kChain = FrameTrust::frame_pointer;
constexpr auto kScan = FrameTrust::scan;

TEST(ProcessMaps, ReadsPathsWithBlanksAndSkipsBrokenLines) {
  auto maps = parse_maps(
      "55d0c0000000-55d0c0001000 r-xp 00002000 08:01 1234     /opt/my app/orvanta_cli\n"
      "not a mapping\n"
      "7ffd00000000-7ffd00021000 rw-p 00000000 00:00 0 \n");
  ASSERT_EQ(maps.size(), 2u);
  EXPECT_EQ(maps[0].start, 0x55d0c0000000u);
  EXPECT_EQ(maps[0].offset, 0x2000u);
  EXPECT_EQ(maps[0].inode, 1234u);
  EXPECT_TRUE(maps[0].executable());
  EXPECT_EQ(maps[0].path, "/opt/my app/orvanta_cli");
  EXPECT_EQ(maps[1].path, "");
  EXPECT_FALSE(maps[1].executable());
}

// The offset is counted from the module's lowest mapping, its load base,
// not from the mapping that holds the address.
TEST(ProcessMaps, LocatesAnAddressFromItsModulesLoadBase) {
  EXPECT_EQ(locate_module(kMaps, 0x7123), (ModuleLocation{"/usr/lib/libc.so.6", 0x1123}));
  EXPECT_EQ(locate_module(kMaps, 0x1010), (ModuleLocation{"/opt/orvanta/orvanta_cli", 0x10}));
  EXPECT_EQ(locate_module(kMaps, 0x3000), std::nullopt);
}

TEST(StackWalk, FollowsTheFramePointerChainUpTheStack) {
  FakeMemory memory;
  memory.put(0x10200, 0x10300);  // saved fp
  memory.put(0x10208, 0x1234);   // return address
  // [0x10300] stays 0: the outermost frame
  memory.put(0x10308, 0x7100);
  memory.put_call_before(0x1234);
  memory.put_call_before(0x7100);
  EXPECT_EQ(walk_stack({0x1100, kSp, 0x10200, 0}, kMaps, memory),
            (Frames{{0x1100, kContext}, {0x1234, kChain}, {0x7100, kChain}}));
}

// A corrupt chain must end the walk, not loop or wander off the stack.
TEST(StackWalk, StopsAtAFrameThatIsNotFurtherUpOrNotAfterACall) {
  FakeMemory memory;
  memory.put(0x10200, 0x10200);  // points at itself
  memory.put(0x10208, 0x1234);
  memory.put_call_before(0x1234);
  EXPECT_EQ(walk_stack({0x1100, kSp, 0x10200, 0}, kMaps, memory).size(), 2u);

  memory.put(0x10208, 0x1300);  // code, but no call before it
  memory.put(kSp + 8, 0x1234);  // so the scan finds this one instead
  EXPECT_EQ(walk_stack({0x1100, kSp, 0x10200, 0}, kMaps, memory),
            (Frames{{0x1100, kContext}, {0x1234, kScan}}));
}

// A function that crashed before setting up its frame still has its
// return address on the stack top (or in the link register); the chain
// then goes on from the caller's frame.
TEST(StackWalk, TakesAFramelessFunctionsCallerFromTheStackTop) {
  FakeMemory memory;
  memory.put(kSp, 0x1500);
  memory.put(0x10208, 0x7100);
  memory.put_call_before(0x1500);
  memory.put_call_before(0x7100);
  EXPECT_EQ(walk_stack({0x1100, kSp, 0x10200, 0x1500}, kMaps, memory),
            (Frames{{0x1100, kContext}, {0x1500, kScan}, {0x7100, kChain}}));
}

TEST(StackWalk, ScansForReturnAddressesWithoutFramePointers) {
  FakeMemory memory;
  memory.put(kSp + 0x10, 0x1234);
  memory.put(kSp + 0x20, 0x1300);  // no call before: a function pointer, say
  memory.put(kSp + 0x30, 0x9999);  // not code
  memory.put(kSp + kScanBytes, 0x7100);  // beyond the scanned part
  memory.put_call_before(0x1234);
  memory.put_call_before(0x7100);
  EXPECT_EQ(walk_stack({0x1100, kSp, 0, 0}, kMaps, memory),
            (Frames{{0x1100, kContext}, {0x1234, kScan}}));
}

TEST(StackWalk, KeepsOnlyThePcWhenTheStackPointerIsOffTheMaps) {
  FakeMemory memory;
  EXPECT_EQ(walk_stack({0x1100, 0x90000, 0x90010, 0}, kMaps, memory), (Frames{{0x1100, kContext}}));
}

}  // namespace
}  // namespace orvanta::crash
