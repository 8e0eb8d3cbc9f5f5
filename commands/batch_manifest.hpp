// The records of `library batch`: the manifest it reads, the line it prints
// for each op and its closing summary.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "json/json.hpp"

namespace orvanta::commands {

// One entry of `ops`. Only `op` is needed to decode; what an op needs beyond
// it is checked when the op runs. The lists are empty when absent.
struct BatchOp {
  std::string op{};
  std::vector<std::string> uris{};
  std::vector<std::string> track_uris{};
  std::vector<std::int32_t> positions{};
  std::optional<std::string> playlist_uri{};
  std::optional<std::string> folder_uri{};
  std::optional<std::string> destination_folder_uri{};
  std::optional<std::string> parent_folder_uri{};
  std::optional<std::string> name{};
  std::optional<std::string> description{};
  std::optional<std::string> image_file{};
  std::optional<bool> is_public{};
  std::optional<std::int32_t> position{};
  std::optional<bool> keep_contents{};
  bool operator==(const BatchOp&) const = default;
};

struct BatchManifest {
  bool stop_on_error = false;
  std::vector<BatchOp> ops{};
  bool operator==(const BatchManifest&) const = default;
};

// What a successful op produced; each op fills only its own fields.
struct BatchOpPayload {
  std::optional<std::int32_t> count{};
  std::optional<std::map<std::string, bool>> contains{};
  std::optional<std::vector<std::string>> failed{};
  std::optional<std::string> uri{};
  std::optional<std::string> name{};
  std::optional<std::string> snapshot_id{};
  std::optional<std::int32_t> added{};
  std::optional<std::int32_t> removed{};
  std::optional<std::int32_t> moved{};
  bool operator==(const BatchOpPayload&) const = default;
};

// The line of one op: `result` on success, `error` on failure, and
// `skipped` with `error` for an op that was not run.
struct BatchOpResult {
  std::uint32_t index = 0;
  std::string op{};
  bool ok = false;
  std::optional<bool> skipped{};
  std::optional<std::string> error{};
  std::optional<BatchOpPayload> result{};
  bool operator==(const BatchOpResult&) const = default;
};

struct BatchSummary {
  bool summary = true;
  std::int32_t total = 0;
  std::int32_t ok = 0;
  std::int32_t failed = 0;
  std::int32_t skipped = 0;
  bool operator==(const BatchSummary&) const = default;
};

json::ObjectCodec<BatchOp> batch_op_codec();
json::ObjectCodec<BatchManifest> batch_manifest_codec();
json::ObjectCodec<BatchOpPayload> batch_op_payload_codec();
json::ObjectCodec<BatchOpResult> batch_op_result_codec();
json::ObjectCodec<BatchSummary> batch_summary_codec();

}  // namespace orvanta::commands
