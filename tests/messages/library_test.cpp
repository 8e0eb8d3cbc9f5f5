#include "messages/library.hpp"

#include <gtest/gtest.h>

#include "record_check.hpp"

namespace orvanta::messages {
namespace {

using test::check_record;

TEST(LibraryRecords, WireForms) {
  check_record(library_list_request_codec, {.type = "album", .limit = 20, .offset = 40},
               R"({"type":"album","limit":20,"offset":40})");
  check_record(library_item_codec,
               {.uri = "orvanta:album:1", .name = "LP", .type = "album", .artists = {"Band"}, .album = "LP"},
               R"({"uri":"orvanta:album:1","name":"LP","type":"album","artists":["Band"],"album":"LP"})",
               "uri name type artists");
  check_record(library_list_response_codec,
               {.items = {{.uri = "orvanta:track:1", .name = "Song", .type = "track"}}, .total = 120, .has_more = true},
               R"({"items":[{"uri":"orvanta:track:1","name":"Song","type":"track","artists":[]}],)"
               R"("total":120,"has_more":true})", "items total has_more");
  check_record(library_contains_response_codec,
               {.contains = {{"orvanta:album:1", false}, {"orvanta:track:1", true}}},
               R"({"contains":{"orvanta:album:1":false,"orvanta:track:1":true}})", "contains");
}

}  // namespace
}  // namespace orvanta::messages
