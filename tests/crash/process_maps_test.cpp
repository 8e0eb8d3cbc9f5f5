#include "crash/handler/process_maps.hpp"

#include <gtest/gtest.h>

namespace orvanta::crash {
namespace {

const std::vector<Mapping> kMaps = parse_maps(
    "1000-2000 r-xp 00000000 08:01 11 /opt/orvanta/orvanta_cli\n"
    "6000-7000 r--p 00000000 08:01 22 /usr/lib/libc.so.6\n"
    "7000-8000 r-xp 00001000 08:01 22 /usr/lib/libc.so.6\n"
    "10000-20000 rw-p 00000000 00:00 0 [stack]\n");

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

}  // namespace
}  // namespace orvanta::crash
