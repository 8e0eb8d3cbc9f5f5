#include "commands/batch_manifest.hpp"

#include <gtest/gtest.h>

#include "tests/messages/record_check.hpp"

namespace orvanta::commands {
namespace {

using test::check_record;

// Every manifest key once, `public` and `keep_contents` among them, which no
// end-to-end case reaches with a value that differs from its default.
TEST(BatchRecords, ManifestKeys) {
  check_record(batch_op_codec,
               {.op = "playlist_add", .uris = {"orvanta:a"}, .track_uris = {"orvanta:track:1"}, .positions = {0, 5},
                .playlist_uri = "orvanta:playlist:p", .folder_uri = "orvanta:folder:f",
                .destination_folder_uri = "root", .parent_folder_uri = "orvanta:folder:g", .name = "N",
                .description = "D", .image_file = "c.jpg", .is_public = true, .position = 2,
                .keep_contents = true},
               R"({"op":"playlist_add","uris":["orvanta:a"],"track_uris":["orvanta:track:1"],"positions":[0,5],)"
               R"("playlist_uri":"orvanta:playlist:p","folder_uri":"orvanta:folder:f",)"
               R"("destination_folder_uri":"root","parent_folder_uri":"orvanta:folder:g","name":"N",)"
               R"("description":"D","image_file":"c.jpg","public":true,"position":2,"keep_contents":true})",
               {.optional = "playlist_uri folder_uri destination_folder_uri parent_folder_uri name description "
                            "image_file public position keep_contents"});
  check_record(batch_op_codec, {.op = "library_add"},
               R"({"op":"library_add","uris":[],"track_uris":[],"positions":[]})",
               {.required = "op", .defaulted = "uris track_uris positions"});
  check_record(batch_manifest_codec, {.stop_on_error = false, .ops = {{.op = "library_add"}}},
               R"({"stop_on_error":false,"ops":[{"op":"library_add","uris":[],"track_uris":[],"positions":[]}]})",
               {.required = "ops", .defaulted = "stop_on_error"});
}

}  // namespace
}  // namespace orvanta::commands
