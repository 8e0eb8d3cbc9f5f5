#include "messages/toast_logs.hpp"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "record_check.hpp"

namespace orvanta::messages {
namespace {

using test::runner;

constexpr std::string_view kToast =
    R"({"title":"Hi","body":"There","subtitle":"Sub","image_url":"https://img/t.png","launch_uri":"orvanta:track:1"})";

TEST(ToastAndLogRecords, WireTable) {
  test::check_wire_case({"CollectLogsNotification", runner(collect_logs_notification_codec),
                         R"({"logs_directory":"/tmp/logs"})", "logs_directory"});
  test::check_record(show_toast_request_codec, {"Hi", "There", "Sub", "https://img/t.png", "orvanta:track:1"}, kToast);
}

}  // namespace
}  // namespace orvanta::messages
