#include "desktop_link/app_uri.hpp"

#include <gtest/gtest.h>

namespace orvanta::link {
namespace {

using Args = std::vector<std::string>;

TEST(AppUri, AddQueryParameterAppendsWithoutEncoding) {
  EXPECT_EQ(add_query_parameter("orvanta:open", "utm_medium", "desktop_cli"), "orvanta:open?utm_medium=desktop_cli");
  EXPECT_EQ(add_query_parameter("orvanta:x?a=1", "k", "v w"), "orvanta:x?a=1&k=v w");
  EXPECT_EQ(add_query_parameter("orvanta:x?", "k", "v"), "orvanta:x?k=v");
  EXPECT_EQ(add_query_parameter("a?b?c", "k", "v"), "a?b?c&k=v");
}

TEST(AppUri, RemoveQueryParameterDropsEveryPairOfTheKey) {
  struct Case { const char* uri; const char* expected; };
  const Case cases[] = {
      {"orvanta:x", "orvanta:x"},
      {"orvanta:x?utm_medium=a", "orvanta:x"},
      {"orvanta:x?utm_medium=a&b=1&utm_medium=c", "orvanta:x?b=1"},
      {"orvanta:x?b=1&utm_medium", "orvanta:x?b=1"},
      {"orvanta:x?b=1&c=2", "orvanta:x?b=1&c=2"},
      {"orvanta:x?utm_medium_other=1", "orvanta:x?utm_medium_other=1"},
      {"orvanta:x?&b=1", "orvanta:x?&b=1"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(remove_query_parameter(c.uri, "utm_medium"), c.expected) << c.uri;
  }
}

// Retagging a URI and the default URI are seen at work in
// desktop_app_launcher_test.cpp.
TEST(AppUri, WithoutUriArgumentTheDefaultUriIsAdded) {
  Args kept{"--foo"};
  EXPECT_EQ(apply_uri(kept, "desktop_cli", false), "orvanta:open?utm_medium=desktop_cli");
  EXPECT_EQ(kept, (Args{"--foo", "--uri=orvanta:open?utm_medium=desktop_cli"}));
}

TEST(AppUri, LastUriArgumentWinsAndAllAreRemoved) {
  Args args{"--uri=orvanta:track:a", "x", "--uri=orvanta:track:b", "y"};
  EXPECT_EQ(apply_uri(args, "desktop_cli", true), "orvanta:track:b?utm_medium=desktop_cli");
  EXPECT_EQ(args, (Args{"x", "y"}));

  Args rewritten{"--uri=orvanta:track:a", "x", "--uri=orvanta:track:b"};
  apply_uri(rewritten, "m", false);
  EXPECT_EQ(rewritten, (Args{"--uri=orvanta:track:a?utm_medium=m", "x", "--uri=orvanta:track:b?utm_medium=m"}));
}

}  // namespace
}  // namespace orvanta::link
