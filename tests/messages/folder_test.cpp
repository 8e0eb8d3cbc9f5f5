#include "messages/folder.hpp"

#include <gtest/gtest.h>

#include "record_check.hpp"

namespace orvanta::messages {
namespace {

using test::check_record;

// The requests are pinned byte for byte by the folder command tests
// (tests/commands); here the answer's keys and the ones it requires.
TEST(FolderRecords, WireForms) {
  check_record(folder_list_response_codec,
               {.root = {.uri = "orvanta:folder:1", .name = "Jazz", .type = "folder"},
                .items = {{.uri = "orvanta:playlist:1", .name = "Mix", .type = "playlist",
                           .parent_uri = "orvanta:folder:1", .depth = 1}},
                .total_items = 1},
               R"({"root":{"uri":"orvanta:folder:1","name":"Jazz","type":"folder","depth":0},)"
               R"("items":[{"uri":"orvanta:playlist:1","name":"Mix","type":"playlist",)"
               R"("parent_uri":"orvanta:folder:1","depth":1}],"total_items":1})", "root items total_items");
}

}  // namespace
}  // namespace orvanta::messages
