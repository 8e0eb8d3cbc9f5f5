#include "messages/folder.hpp"

#include <gtest/gtest.h>

#include "record_check.hpp"

namespace orvanta::messages {
namespace {

using test::check_record;

TEST(FolderRecords, WireForms) {
  check_record(folder_list_request_codec, {.folder_uri = "orvanta:folder:1", .recursive = true},
               R"({"folder_uri":"orvanta:folder:1","recursive":true})",
               {.required = "recursive", .optional = "folder_uri"});
  check_record(folder_list_request_codec, {}, R"({"recursive":false})");
  check_record(folder_item_codec,
               {.uri = "orvanta:playlist:1", .name = "Mix", .type = "playlist", .parent_uri = "orvanta:folder:1",
                .depth = 2},
               R"({"uri":"orvanta:playlist:1","name":"Mix","type":"playlist","parent_uri":"orvanta:folder:1","depth":2})",
               {.required = "uri name type depth", .optional = "parent_uri"});
  check_record(folder_list_response_codec,
               {.root = {.uri = "orvanta:folder:1", .name = "Jazz", .type = "folder"},
                .items = {{.uri = "orvanta:playlist:1", .name = "Mix", .type = "playlist",
                           .parent_uri = "orvanta:folder:1", .depth = 1}},
                .total_items = 1},
               R"({"root":{"uri":"orvanta:folder:1","name":"Jazz","type":"folder","depth":0},)"
               R"("items":[{"uri":"orvanta:playlist:1","name":"Mix","type":"playlist",)"
               R"("parent_uri":"orvanta:folder:1","depth":1}],"total_items":1})",
               {.required = "root items total_items"});
  check_record(folder_create_request_codec, {.name = "Jazz", .parent_folder_uri = "orvanta:folder:0"},
               R"({"name":"Jazz","parent_folder_uri":"orvanta:folder:0"})",
               {.required = "name", .optional = "parent_folder_uri"});
  check_record(folder_create_response_codec, {.uri = "orvanta:folder:1", .name = "Jazz"},
               R"({"uri":"orvanta:folder:1","name":"Jazz"})", {.required = "uri name"});
  check_record(folder_rename_request_codec, {.folder_uri = "orvanta:folder:1", .name = "Bop"},
               R"({"folder_uri":"orvanta:folder:1","name":"Bop"})", {.required = "folder_uri name"});
  check_record(folder_rename_response_codec, {.uri = "orvanta:folder:1", .name = "Bop"},
               R"({"uri":"orvanta:folder:1","name":"Bop"})", {.required = "uri name"});
  check_record(folder_move_request_codec,
               {.uris = {"orvanta:playlist:1", "orvanta:folder:2"}, .destination_folder_uri = "orvanta:folder:1"},
               R"({"uris":["orvanta:playlist:1","orvanta:folder:2"],"destination_folder_uri":"orvanta:folder:1"})",
               {.required = "uris destination_folder_uri"});
  check_record(folder_move_response_codec, {.moved = 2}, R"({"moved":2})", {.required = "moved"});
  check_record(folder_remove_request_codec, {.folder_uri = "orvanta:folder:2"},
               R"({"folder_uri":"orvanta:folder:2","keep_contents":false})",
               {.required = "folder_uri keep_contents"});
  check_record(folder_remove_response_codec, {.removed = 5}, R"({"removed":5})", {.required = "removed"});
}

}  // namespace
}  // namespace orvanta::messages
