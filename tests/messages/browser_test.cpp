#include "messages/browser.hpp"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "record_check.hpp"

namespace orvanta::messages {
namespace {

using test::runner;
using test::WireCase;

constexpr std::string_view kNew =
    R"({"title_or_url":"https://example.org","width":1280,"height":720,"backend":"cdp","user_data_dir":"/tmp/ud",)"
    R"("profile_directory":"Default","chrome_binary":"/usr/bin/browser","attach_port":9222,"headless":true})";
constexpr std::string_view kNewDefaults =
    R"({"title_or_url":"x","width":0,"height":0,"backend":"","user_data_dir":"","profile_directory":"",)"
    R"("chrome_binary":"","headless":false})";
constexpr std::string_view kItem =
    R"({"id":2,"type":"page","url":"https://example.org/","title":"Example","viewport_width":800,)"
    R"("viewport_height":600,"parent_id":1,"popup_ids":[3,4],"created_by":"agent"})";
constexpr std::string_view kPage =
    R"({"url":"https://example.org/","title":"Example","type":"page","viewport_width":800,"viewport_height":600,)"
    R"("snapshot":"- heading"})";
constexpr std::string_view kPageDefaults =
    R"({"url":"u","title":"t","type":"","viewport_width":1,"viewport_height":2,"snapshot":""})";

TEST(BrowserRecords, WireTable) {
  const std::string list = R"({"browsers":[)" + std::string(kItem) + "]}";
  const WireCase cases[] = {
      {"BrowserNewRequest", runner(browser_new_request_codec), kNew},
      {"BrowserNewResponse", runner(browser_new_response_codec),
       R"({"id":1,"url":"https://example.org/","title":"Example","viewport_width":1280,"viewport_height":720,)"
       R"("snapshot":"- heading","backend":""})",
       "viewport_height", "backend"},
      {"BrowserListResponse", runner(browser_list_response_codec), list, "browsers"},
      {"BrowserCloseRequest", runner(browser_close_request_codec), R"({"id":2})"},
      {"BrowserCloseResponse", runner(browser_close_response_codec), R"({"id":2,"was_user_opened":false})", "id"},
      {"BrowserSnapshotRequest", runner(browser_snapshot_request_codec), R"({"id":2,"format":""})"},
      {"BrowserSnapshotResponse/defaults", runner(browser_snapshot_response_codec), kPageDefaults, "url",
       "type snapshot"},
      {"BrowserNavigateRequest", runner(browser_navigate_request_codec), R"({"id":2,"url":"https://example.org/b"})"},
      {"BrowserNavigateResponse", runner(browser_navigate_response_codec), kPage, "viewport_height"},
      {"BrowserNavigateResponse/defaults", runner(browser_navigate_response_codec), kPageDefaults, "title",
       "type snapshot"},
      {"BrowserClickRequest", runner(browser_click_request_codec), R"({"id":2,"ref":"e12"})"},
      {"BrowserClickResponse", runner(browser_click_response_codec),
       R"({"ref":"e12","element":"button","navigated":true,"url":"u","title":"t","snapshot":"s"})", "navigated"},
      {"BrowserTypeRequest", runner(browser_type_request_codec),
       R"({"id":2,"ref":"e3","text":"hello","submit":false})"},
      {"BrowserTypeResponse", runner(browser_type_response_codec),
       R"({"ref":"e3","element":"textbox","submitted":false,"url":"u","title":"t","snapshot":"s"})", "submitted"},
      {"BrowserScrollRequest", runner(browser_scroll_request_codec), R"({"id":2,"ref":"e9"})"},
      {"BrowserScrollResponse", runner(browser_scroll_response_codec),
       R"({"url":"u","title":"t","viewport_width":800,"viewport_height":600,"snapshot":""})", "title", "snapshot"},
      {"BrowserEvaluateRequest", runner(browser_evaluate_request_codec), R"({"id":2,"expression":"1+1"})"},
      {"BrowserEvaluateResponse", runner(browser_evaluate_response_codec), R"({"result":"2"})", "result"},
  };
  test::check_wire_table(cases);
}

// Nobody sets the defaulted members of a new browser, and every one of them
// still goes out.
TEST(BrowserRecords, NewRequestWritesEveryDefault) {
  BrowserNewRequest request;
  request.title_or_url = "x";
  test::check_record(browser_new_request_codec, request, kNewDefaults);
}

// Four int32 members: each value must land under its own key.
TEST(BrowserRecords, FilledListItemEncodesAsTheTable) {
  const BrowserListItem item{2, "page", "https://example.org/", "Example", 800, 600, 1, {3, 4}, "agent"};
  test::check_record(browser_list_item_codec, item, kItem, "type");
  const BrowserSnapshotResponse page{"https://example.org/", "Example", "page", 800, 600, "- heading"};
  test::check_record(browser_snapshot_response_codec, page, kPage, "viewport_width");
}

}  // namespace
}  // namespace orvanta::messages
