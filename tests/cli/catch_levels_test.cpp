#include "cli/catch_levels.hpp"

#include <gtest/gtest.h>

#include <cstdio>
#include <stdexcept>
#include <string>

namespace orvanta::cli {
namespace {

struct Captured {
  int status;
  std::string err;
};

template <class Body>
Captured guarded(Body body) {
  char* buffer = nullptr;
  std::size_t size = 0;
  std::FILE* err = ::open_memstream(&buffer, &size);
  int status = run_guarded(err, body);
  std::fclose(err);
  Captured result{status, std::string(buffer, size)};
  std::free(buffer);
  return result;
}

TEST(CatchLevels, HandlerStatusPassesThrough) {
  EXPECT_EQ(guarded([] { return 0; }).status, 0);
  Captured failed = guarded([] { return 1; });
  EXPECT_EQ(failed.status, 1);
  EXPECT_EQ(failed.err, "");
}

TEST(CatchLevels, SystemErrorExitsWithItsValue) {
  Captured r = guarded([]() -> int { throw std::system_error(7, std::generic_category(), "lost"); });
  EXPECT_EQ(r.status, 7);
  EXPECT_EQ(r.err, "Error: " + std::string(std::system_error(7, std::generic_category(), "lost").what()) + "\n");
  // A subclass of std::system_error is caught at the same level.
  Captured sub = guarded([]() -> int { throw std::ios_base::failure("stream", std::error_code(5, std::generic_category())); });
  EXPECT_EQ(sub.status, 5);
}

TEST(CatchLevels, OtherExceptionsExitWithOne) {
  Captured r = guarded([]() -> int { throw std::runtime_error("decoder gave up"); });
  EXPECT_EQ(r.status, 1);
  EXPECT_EQ(r.err, "Error: decoder gave up\n");
  Captured odd = guarded([]() -> int { throw 42; });
  EXPECT_EQ(odd.status, 1);
  EXPECT_EQ(odd.err, "Error: unknown exception\n");
}

}  // namespace
}  // namespace orvanta::cli
