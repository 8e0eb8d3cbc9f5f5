#include "crash/start_parameters.hpp"

#include "crash/defaults.hpp"

namespace orvanta::crash {

std::map<std::string, std::string> handler_annotations(const CrashReporterConfig& config,
                                                       const char* build_id) {
  std::map<std::string, std::string> annotations;
  annotations["format"] = "minidump";
  annotations["platform"] = build_platform();
  annotations["product"] = config.product;
  annotations["version"] = config.version;
  annotations["ptype"] = config.ptype;
  if (!config.app_variant.empty()) annotations["app_variant"] = config.app_variant;
  if (build_id != nullptr) annotations["tc_build_id"] = build_id;
  for (const auto& [key, value] : config.annotations) annotations.insert_or_assign(key, value);
  return annotations;
}

std::vector<std::string> handler_arguments(const CrashReporterConfig& config) {
  std::vector<std::string> arguments;
  if (!config.rate_limit) arguments.push_back("--no-rate-limit");
  arguments.insert(arguments.end(), config.arguments.begin(), config.arguments.end());
  return arguments;
}

}  // namespace orvanta::crash
