#include "crash/start_parameters.hpp"

#include <gtest/gtest.h>

namespace orvanta::crash {
namespace {

using Annotations = std::map<std::string, std::string>;
using Arguments = std::vector<std::string>;

CrashReporterConfig program_config() {
  CrashReporterConfig config;
  config.product = "orvanta";
  config.version = "1.2.93.667";
  config.ptype = "orvanta_cli";
  return config;
}

// The fixed five reach every report in crash_process_test.cpp.
// TEAMCITY_BUILD_ID counts when it is set, even to nothing; the extra pairs
// come last and so win over the fixed ones.
TEST(HandlerAnnotations, AddTheVariantTheBuildIdAndTheExtraPairs) {
  auto config = program_config();
  config.app_variant = "beta";
  config.annotations = {{"channel", "edge"}, {"product", "orvanta-lab"}};
  Annotations annotations = handler_annotations(config, "4711");
  EXPECT_EQ(annotations.size(), 8u);
  EXPECT_EQ(annotations["app_variant"], "beta");
  EXPECT_EQ(annotations["tc_build_id"], "4711");
  EXPECT_EQ(annotations["channel"], "edge");
  EXPECT_EQ(annotations["product"], "orvanta-lab");
  EXPECT_EQ(handler_annotations(program_config(), "").count("tc_build_id"), 1u);
}

// Off, it comes first; that reaches the handler in crash_reporter_test.cpp.
TEST(HandlerArguments, NoRateLimitOnlyWhenRateLimitingIsOff) {
  auto config = program_config();
  config.arguments = {"--a"};
  EXPECT_EQ(handler_arguments(config), Arguments{"--a"});
}

}  // namespace
}  // namespace orvanta::crash
