#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace orvanta::crash {

// What a report's dump does not hold: its annotations, which are also the
// fields of its upload, and what the upload server answered.
struct ReportMetadata {
  std::map<std::string, std::string> annotations;
  std::string server_report_id;  // empty until uploaded
  bool operator==(const ReportMetadata&) const = default;
};

// One "annotation KEY=VALUE" line per annotation, then "server_report_id ID"
// when there is one. A backslash, a control character and, in keys, '=' are
// escaped as "\\", "\n", "\t", "\r", "\xHH" and "\=", so every text reads
// back as it was.
std::string format_metadata(const ReportMetadata& metadata);

// The metadata of such a text; nullopt for a line it does not know.
std::optional<ReportMetadata> parse_metadata(std::string_view text);

}  // namespace orvanta::crash
