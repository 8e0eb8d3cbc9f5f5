#include "crash/handler/report_format.hpp"

#include <gtest/gtest.h>

#include <csignal>

namespace orvanta::crash {
namespace {

TEST(ReportFormat, WritesEveryFactInItsOrderAndEscapesTexts) {
  CrashReport report;
  report.uuid = "u";
  report.client_id = "c";
  report.time = 1700000000;
  report.pid = 20;
  report.tid = 21;
  report.signal = SIGSEGV;
  report.code = 1;
  report.fault_address = 0x10;
  report.registers = {0x1100, 0x10100, 0x10200, 0};
  report.annotations = {{"a=b", "line\none"}, {"product", "orvanta"}};
  report.simple_annotations = {{"application_is_quitting", "back\\slash\x01"}};
  report.frames = {
      {{0x1100, FrameTrust::context}, ModuleLocation{"/opt/my app/orvanta_cli", 0x100}},
      {{0x5, FrameTrust::scan}, std::nullopt}};
  report.modules = {Mapping{0x1000, 0x2000, "r-xp", 0, 11, "/opt/my app/orvanta_cli"}};
  report.notes = {"memory unreadable: Permission denied"};
  EXPECT_EQ(format_report(report),
            "orvanta crash report 1\n"
            "uuid u\n"
            "client_id c\n"
            "time 1700000000\n"
            "pid 20\n"
            "tid 21\n"
            "signal 11 SIGSEGV\n"
            "code 1\n"
            "fault_address 0x0000000000000010\n"
            "register pc 0x0000000000001100\n"
            "register sp 0x0000000000010100\n"
            "register fp 0x0000000000010200\n"
            "annotation a\\=b=line\\none\n"
            "annotation product=orvanta\n"
            "simple_annotation application_is_quitting=back\\\\slash\\x01\n"
            "frame 0 0x0000000000001100 context /opt/my app/orvanta_cli+0x100\n"
            "frame 1 0x0000000000000005 scan ?\n"
            "module 0x0000000000001000 0x0000000000002000 0x0000000000000000 "
            "/opt/my app/orvanta_cli\n"
            "note memory unreadable: Permission denied\n"
            "end\n");
}

}  // namespace
}  // namespace orvanta::crash
