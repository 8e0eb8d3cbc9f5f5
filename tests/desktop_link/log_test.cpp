#include "desktop_link/log.hpp"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "desktop_link/client_id.hpp"
#include "desktop_link/request_id.hpp"

namespace {

using orvanta::link::LogRecord;
using orvanta::link::ScopedLogSink;

// Past the 256-byte buffer the line is formatted again on the heap, whole.
// Lines of the usual length are pinned by the link's tests.
TEST(Log, LongLinesAreNotCut) {
  std::string seen;
  ScopedLogSink sink([&](const LogRecord& r) { seen = r.text; });
  const std::string long_text(1000, 'z');
  orvanta::link::log(2, "x%sy", long_text.c_str());
  EXPECT_EQ(seen, "x" + long_text + "y");
  const std::string edge(255, 'e');
  orvanta::link::log(2, "%s", edge.c_str());
  EXPECT_EQ(seen, edge);
}

TEST(RequestId, IsLowerCaseVersionFourUuidText) {
  std::set<std::string> seen;
  for (int i = 0; i < 100; ++i) {
    const std::string id = orvanta::link::new_request_id();
    ASSERT_EQ(id.size(), 36u) << id;
    for (std::size_t k : {8u, 13u, 18u, 23u}) EXPECT_EQ(id[k], '-') << id;
    EXPECT_EQ(id[14], '4') << id;
    EXPECT_NE(std::string("89ab").find(id[19]), std::string::npos) << id;
    for (char c : id) EXPECT_TRUE(c == '-' || (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f')) << id;
    seen.insert(id);
  }
  EXPECT_EQ(seen.size(), 100u);
}

// The identifier is unscrambled at run time; a wrong key stream shows as
// bytes outside printable ASCII.
TEST(ClientId, UnscramblesToPrintableText) {
  EXPECT_EQ(orvanta::link::client_id().size(), 32u);
  for (char c : orvanta::link::client_id()) EXPECT_TRUE(c > ' ' && c < 127);
}

}  // namespace
