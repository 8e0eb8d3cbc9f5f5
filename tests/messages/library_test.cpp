#include "messages/library.hpp"

#include <gtest/gtest.h>

#include "record_check.hpp"

namespace orvanta::messages {
namespace {

using test::check_record;

TEST(LibraryRecords, WireForms) {
  check_record(library_list_request_codec, {.type = "album", .limit = 20, .offset = 40},
               R"({"type":"album","limit":20,"offset":40})", {.optional = "type limit offset"});
  check_record(library_item_codec,
               {.uri = "orvanta:album:1", .name = "LP", .type = "album", .artists = {"Band"}, .album = "LP"},
               R"({"uri":"orvanta:album:1","name":"LP","type":"album","artists":["Band"],"album":"LP"})",
               {.required = "uri name type artists", .optional = "album"});
  check_record(library_list_response_codec,
               {.items = {{.uri = "orvanta:track:1", .name = "Song", .type = "track"}}, .total = 120, .has_more = true},
               R"({"items":[{"uri":"orvanta:track:1","name":"Song","type":"track","artists":[]}],)"
               R"("total":120,"has_more":true})",
               {.required = "items total has_more"});
  check_record(library_contains_request_codec, {.uris = {"orvanta:track:1"}}, R"({"uris":["orvanta:track:1"]})",
               {.required = "uris"});
  check_record(library_contains_response_codec,
               {.contains = {{"orvanta:album:1", false}, {"orvanta:track:1", true}}},
               R"({"contains":{"orvanta:album:1":false,"orvanta:track:1":true}})", {.required = "contains"});
  check_record(library_add_request_codec, {.uris = {"orvanta:track:1", "orvanta:show:2"}},
               R"({"uris":["orvanta:track:1","orvanta:show:2"]})", {.required = "uris"});
  check_record(library_remove_request_codec, {.uris = {"orvanta:track:1"}}, R"({"uris":["orvanta:track:1"]})",
               {.required = "uris"});
  check_record(library_add_response_codec, {.count = 1, .failed = {"orvanta:show:2"}},
               R"({"count":1,"failed":["orvanta:show:2"]})", {.required = "count failed"});
  check_record(library_remove_response_codec, {.count = 3, .failed = {}}, R"({"count":3,"failed":[]})",
               {.required = "count failed"});
}

}  // namespace
}  // namespace orvanta::messages
