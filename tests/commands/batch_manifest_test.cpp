#include "commands/batch_manifest.hpp"

#include <gtest/gtest.h>

#include "tests/messages/record_check.hpp"

namespace orvanta::commands {
namespace {

using test::check_record;
using test::outcome;

TEST(BatchRecords, ManifestKeys) {
  check_record(batch_op_codec,
               {.op = "playlist_add", .uris = {"orvanta:a"}, .track_uris = {"orvanta:track:1"}, .positions = {0, 5},
                .playlist_uri = "orvanta:playlist:p", .folder_uri = "orvanta:folder:f",
                .destination_folder_uri = "root", .parent_folder_uri = "orvanta:folder:g", .name = "N",
                .description = "D", .image_file = "c.jpg", .is_public = true, .position = 2,
                .keep_contents = false},
               R"({"op":"playlist_add","uris":["orvanta:a"],"track_uris":["orvanta:track:1"],"positions":[0,5],)"
               R"("playlist_uri":"orvanta:playlist:p","folder_uri":"orvanta:folder:f",)"
               R"("destination_folder_uri":"root","parent_folder_uri":"orvanta:folder:g","name":"N",)"
               R"("description":"D","image_file":"c.jpg","public":true,"position":2,"keep_contents":false})",
               {.optional = "playlist_uri folder_uri destination_folder_uri parent_folder_uri name description "
                            "image_file public position keep_contents"});
  check_record(batch_op_codec, {.op = "library_add"},
               R"({"op":"library_add","uris":[],"track_uris":[],"positions":[]})",
               {.required = "op", .defaulted = "uris track_uris positions"});
  check_record(batch_manifest_codec, {.stop_on_error = false, .ops = {{.op = "library_add"}}},
               R"({"stop_on_error":false,"ops":[{"op":"library_add","uris":[],"track_uris":[],"positions":[]}]})",
               {.required = "ops", .defaulted = "stop_on_error"});
}

// The failures a person writing a manifest by hand meets first.
TEST(BatchRecords, ManifestRefusals) {
  EXPECT_EQ(outcome(batch_manifest_codec, R"({"ops":[{"uris":[]}]})"), "error: Missing required field(s)");
  EXPECT_EQ(outcome(batch_manifest_codec, R"({"ops":{}})"), "error: Unexpected input");
}

TEST(BatchRecords, OutputLines) {
  check_record(batch_op_payload_codec,
               {.count = 2, .contains = {{{"orvanta:a", true}, {"orvanta:b", false}}}, .failed = {{"orvanta:c"}},
                .uri = "orvanta:u", .name = "N", .snapshot_id = "s1", .added = 1, .removed = 3, .moved = 4},
               R"({"count":2,"contains":{"orvanta:a":true,"orvanta:b":false},"failed":["orvanta:c"],)"
               R"("uri":"orvanta:u","name":"N","snapshot_id":"s1","added":1,"removed":3,"moved":4})",
               {.optional = "count contains failed uri name snapshot_id added removed moved"});
  check_record(batch_op_result_codec,
               {.index = 0, .op = "library_add", .ok = true, .skipped = {}, .error = {}, .result = {{.count = 2}}},
               R"({"index":0,"op":"library_add","ok":true,"result":{"count":2}})",
               {.required = "index op ok", .optional = "result"});
  check_record(batch_op_result_codec,
               {.index = 3, .op = "folder_remove", .ok = false, .skipped = true,
                .error = "skipped after earlier failure", .result = {}},
               R"({"index":3,"op":"folder_remove","ok":false,"skipped":true,"error":"skipped after earlier failure"})",
               {.optional = "skipped error"});
  check_record(batch_summary_codec, {.summary = true, .total = 4, .ok = 2, .failed = 1, .skipped = 1},
               R"({"summary":true,"total":4,"ok":2,"failed":1,"skipped":1})",
               {.required = "summary total ok failed skipped"});
}

}  // namespace
}  // namespace orvanta::commands
