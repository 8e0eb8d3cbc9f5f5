#include "crash/store/report_metadata.hpp"

#include <gtest/gtest.h>

namespace orvanta::crash {
namespace {

// Annotations come from the program and its environment, so any text must
// come back as it went in; the escapes keep one annotation to one line.
TEST(ReportMetadata, WritesOneEscapedLinePerAnnotationAndReadsItBack) {
  ReportMetadata metadata{{{"a=b", "line\nnext\ttab\\ \x01"}, {"product", "orvanta"}}, "bp-1"};
  const std::string text = format_metadata(metadata);
  EXPECT_EQ(text,
            "annotation a\\=b=line\\nnext\\ttab\\\\ \\x01\n"
            "annotation product=orvanta\n"
            "server_report_id bp-1\n");
  EXPECT_EQ(parse_metadata(text), metadata);
}

TEST(ReportMetadata, RefusesDamagedText) {
  for (const char* text : {"annotation novalue\n", "annotation k=\\q\n", "something else\n"}) {
    EXPECT_EQ(parse_metadata(text), std::nullopt) << text;
  }
}

}  // namespace
}  // namespace orvanta::crash
