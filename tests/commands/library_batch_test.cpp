// `library batch` against the simulator: the manifest read
// from a file (or stdin), one line per op, the summary, the status, and what
// went out for each op.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "tests/support/command_cases.hpp"

namespace orvanta::testing {
namespace {

using Methods = std::vector<std::string>;
using Texts = std::vector<std::string>;

// A manifest run from a file, and what it must print.
struct BatchCase {
  std::string manifest;
  std::vector<std::string> flags;
  std::string out;
  std::string err;
  int status;
};

std::string manifest_file(const Sim& sim, const std::string& text) {
  const std::string path = sim.directory() + "/ops.json";
  std::ofstream(path, std::ios::binary | std::ios::trunc) << text;
  return path;
}

void expect_batch_cases(const Sim& sim, const std::vector<BatchCase>& cases) {
  for (const BatchCase& c : cases) {
    SCOPED_TRACE(c.manifest);
    std::vector<std::string> args{"library", "batch", "--from-file", manifest_file(sim, c.manifest)};
    args.insert(args.end(), c.flags.begin(), c.flags.end());
    expect_command_cases({{args, c.out, c.err, c.status}});
  }
}

// Every op once, each one working on what the ones before it made.
const std::string kMixed = R"({"ops":[
  {"op":"library_add","uris":["orvanta:track:ferrymanswaltz","orvanta:track:nowhere"]},
  {"op":"library_contains","uris":["orvanta:track:slowsnow","orvanta:album:driftglass"]},
  {"op":"library_remove","uris":["orvanta:track:glasstide"]},
  {"op":"playlist_create","name":"Road Trip","description":"Long drives","image_file":"COVER"},
  {"op":"playlist_update","playlist_uri":"orvanta:playlist:backroads","description":"Dust"},
  {"op":"playlist_add","playlist_uri":"orvanta:playlist:morningferry","track_uris":["orvanta:track:slowsnow"],"position":0},
  {"op":"playlist_remove","playlist_uri":"orvanta:playlist:morningferry","positions":[0,1]},
  {"op":"folder_create","name":"Trips","parent_folder_uri":"orvanta:user:mossfern42:folder:moods"},
  {"op":"folder_rename","folder_uri":"orvanta:user:mossfern42:folder:evenings","name":"Late"},
  {"op":"folder_move","uris":["orvanta:playlist:backroads","orvanta:playlist:sim1"],
   "destination_folder_uri":"orvanta:user:mossfern42:folder:evenings"},
  {"op":"folder_remove","folder_uri":"orvanta:user:mossfern42:folder:sim2"}
]})";

const std::string kMixedLines =
    R"({"index":0,"op":"library_add","ok":true,"result":{"count":1,"failed":["orvanta:track:nowhere"]}})"
    "\n"
    R"({"index":1,"op":"library_contains","ok":true,"result":{"contains":{"orvanta:album:driftglass":true,"orvanta:track:slowsnow":false}}})"
    "\n"
    R"({"index":2,"op":"library_remove","ok":true,"result":{"count":1}})"
    "\n"
    R"({"index":3,"op":"playlist_create","ok":true,"result":{"uri":"orvanta:playlist:sim1","name":"Road Trip"}})"
    "\n"
    R"({"index":4,"op":"playlist_update","ok":true,"result":{"uri":"orvanta:playlist:backroads","name":"Back Roads"}})"
    "\n"
    R"({"index":5,"op":"playlist_add","ok":true,"result":{"snapshot_id":"snap-morningferry-13","added":1}})"
    "\n"
    R"({"index":6,"op":"playlist_remove","ok":true,"result":{"snapshot_id":"snap-morningferry-14","removed":2}})"
    "\n"
    R"({"index":7,"op":"folder_create","ok":true,"result":{"uri":"orvanta:user:mossfern42:folder:sim2","name":"Trips"}})"
    "\n"
    R"({"index":8,"op":"folder_rename","ok":true,"result":{"uri":"orvanta:user:mossfern42:folder:evenings","name":"Late"}})"
    "\n"
    R"({"index":9,"op":"folder_move","ok":true,"result":{"moved":2}})"
    "\n"
    R"({"index":10,"op":"folder_remove","ok":true,"result":{"removed":1}})"
    "\n";

std::string with_cover(const Sim& sim) {
  const std::string cover = sim.directory() + "/cover.jpg";
  std::ofstream(cover) << "jpeg";
  std::string manifest = kMixed;
  manifest.replace(manifest.find("COVER"), 5, cover);
  return manifest;
}

TEST(LibraryBatch, MixedManifestInText) {
  Sim sim;
  const std::string cover = sim.directory() + "/cover.jpg";
  expect_batch_cases(
      sim, {{with_cover(sim), {}, kMixedLines + "Batch complete: 11 ok, 0 failed, 0 skipped (11 total)\n", "", 0}});
  EXPECT_EQ(after_handshake(sim),
            (Methods{"library_add", "library_contains", "library_remove", "playlist_create", "playlist_update",
                     "playlist_add_tracks", "playlist_remove_tracks", "folder_create", "folder_rename", "folder_list",
                     "folder_move", "folder_move", "folder_remove"}));
  // Creation always says whether the playlist is public; an update leaves
  // out what the op doesn't name.
  EXPECT_EQ(params_of(sim, "playlist_create"),
            Texts{R"({"name":"Road Trip","description":"Long drives","cover_image_path":")" + cover +
                  R"(","is_public":false})"});
  EXPECT_EQ(params_of(sim, "playlist_update"),
            Texts{R"({"playlist_uri":"orvanta:playlist:backroads","description":"Dust"})"});
  EXPECT_EQ(params_of(sim, "folder_list"), Texts{R"({"recursive":true})"});
  EXPECT_EQ(params_of(sim, "folder_move"),
            (Texts{R"({"uris":["orvanta:playlist:backroads"],"destination_folder_uri":"orvanta:user:mossfern42:folder:evenings"})",
                   R"({"uris":["orvanta:playlist:sim1"],"destination_folder_uri":"orvanta:user:mossfern42:folder:evenings"})"}));
  EXPECT_EQ(params_of(sim, "folder_remove"),
            Texts{R"({"folder_uri":"orvanta:user:mossfern42:folder:sim2","keep_contents":false})"});
}

TEST(LibraryBatch, JsonChangesOnlyTheSummary) {
  Sim sim;
  expect_batch_cases(sim, {{with_cover(sim),
                            {"--format", "json"},
                            kMixedLines + R"({"summary":true,"total":11,"ok":11,"failed":0,"skipped":0})" "\n",
                            "",
                            0}});
}

// Each op that lacks what it needs fails on its own line without a request;
// a present but empty value is left for the desktop client to judge.
TEST(LibraryBatch, PreconditionsAndUnknownOps) {
  Sim sim;
  const std::string missing = (std::filesystem::current_path() / "missing-cover.jpg").string();
  const std::string long_name(300, 'x');
  const std::string too_long = (std::filesystem::current_path() / long_name).string();
  expect_batch_cases(sim, {{R"({"ops":[
      {"op":"playlist_create","description":"d"},
      {"op":"playlist_update","name":"n"},
      {"op":"playlist_add","track_uris":["orvanta:track:slowsnow"]},
      {"op":"playlist_remove","positions":[0]},
      {"op":"folder_create","parent_folder_uri":"root"},
      {"op":"folder_rename","folder_uri":"orvanta:user:mossfern42:folder:moods"},
      {"op":"folder_move","uris":[],"destination_folder_uri":"orvanta:user:mossfern42:folder:moods"},
      {"op":"folder_remove","keep_contents":true},
      {"op":"Library_Add","uris":["orvanta:track:slowsnow"]},
      {"op":"playlist_create","name":"Cover","image_file":"missing-cover.jpg"},
      {"op":"playlist_update","playlist_uri":"orvanta:playlist:backroads","image_file":"missing-cover.jpg"},
      {"op":"playlist_create","name":"Long","image_file":")" + long_name + R"("},
      {"op":"folder_create","name":""},
      {"op":"library_add"}
    ]})",
                            {},
                            R"({"index":0,"op":"playlist_create","ok":false,"error":"playlist_create requires 'name'"})"
                            "\n"
                            R"({"index":1,"op":"playlist_update","ok":false,"error":"playlist_update requires 'playlist_uri'"})"
                            "\n"
                            R"({"index":2,"op":"playlist_add","ok":false,"error":"playlist_add requires 'playlist_uri'"})"
                            "\n"
                            R"({"index":3,"op":"playlist_remove","ok":false,"error":"playlist_remove requires 'playlist_uri'"})"
                            "\n"
                            R"({"index":4,"op":"folder_create","ok":false,"error":"folder_create requires 'name'"})"
                            "\n"
                            R"({"index":5,"op":"folder_rename","ok":false,"error":"folder_rename requires 'folder_uri' and 'name'"})"
                            "\n"
                            R"({"index":6,"op":"folder_move","ok":false,"error":"folder_move requires 'uris'"})"
                            "\n"
                            R"({"index":7,"op":"folder_remove","ok":false,"error":"folder_remove requires 'folder_uri'"})"
                            "\n"
                            R"({"index":8,"op":"Library_Add","ok":false,"error":"unknown op 'Library_Add'"})"
                            "\n"
                            R"({"index":9,"op":"playlist_create","ok":false,"error":"cover image file not found: )" +
                                missing + R"("})" "\n"
                            R"({"index":10,"op":"playlist_update","ok":false,"error":"cover image file not found: )" +
                                missing + R"("})" "\n"
                            R"({"index":11,"op":"playlist_create","ok":false,"error":"exception: filesystem error: status: File name too long [)" +
                                too_long + R"(]"})" "\n"
                            R"({"index":12,"op":"folder_create","ok":false,"error":"bad request"})"
                            "\n"
                            R"({"index":13,"op":"library_add","ok":true,"result":{"count":0}})"
                            "\n"
                            "Batch complete: 1 ok, 13 failed, 0 skipped (14 total)\n",
                            "",
                            1}});
  EXPECT_EQ(after_handshake(sim), (Methods{"folder_create", "library_add"}));
  EXPECT_EQ(params_of(sim, "folder_create"), Texts{R"({"name":""})"});
  EXPECT_EQ(params_of(sim, "library_add"), Texts{R"({"uris":[]})"});
}

// Stop mode is the flag or the manifest's own word; after the first failure
// the rest is skipped, and the status says whether anything failed.
TEST(LibraryBatch, FailuresWithAndWithoutStopMode) {
  Sim sim({"--fail", "library_add=8", "--fail", "folder_list=4"});
  const std::string four = R"({"stop_on_error":false,"ops":[
      {"op":"library_contains","uris":["orvanta:track:slowsnow"]},
      {"op":"library_add","uris":["orvanta:track:slowsnow"]},
      {"op":"library_remove","uris":["orvanta:track:harbourlights"]},
      {"op":"folder_move","uris":["orvanta:playlist:backroads"],"destination_folder_uri":"orvanta:user:mossfern42:folder:moods"}
    ]})";
  const std::string first_two =
      R"({"index":0,"op":"library_contains","ok":true,"result":{"contains":{"orvanta:track:slowsnow":false}}})"
      "\n"
      R"({"index":1,"op":"library_add","ok":false,"error":"playback restricted"})"
      "\n";
  expect_batch_cases(sim, {{four, {"--stop-on-error"},
                            first_two +
                                R"({"index":2,"op":"library_remove","ok":false,"skipped":true,"error":"skipped after earlier failure"})"
                                "\n"
                                R"({"index":3,"op":"folder_move","ok":false,"skipped":true,"error":"skipped after earlier failure"})"
                                "\n"
                                "Batch complete: 1 ok, 1 failed, 2 skipped (4 total)\n",
                            "", 1}});
  EXPECT_EQ(after_handshake(sim), (Methods{"library_contains", "library_add"}));

  expect_batch_cases(sim, {{four, {},
                            first_two +
                                R"({"index":2,"op":"library_remove","ok":true,"result":{"count":1}})"
                                "\n"
                                R"({"index":3,"op":"folder_move","ok":false,"error":"folder_move failed while validating destination folder: internal server error"})"
                                "\n"
                                "Batch complete: 2 ok, 2 failed, 0 skipped (4 total)\n",
                            "", 1}});
  EXPECT_EQ(after_handshake(sim), (Methods{"library_contains", "library_add", "library_remove", "folder_list"}));

  // An unknown op stops the batch like any failure.
  expect_batch_cases(sim, {{R"({"stop_on_error":true,"ops":[{"op":"folder_list"},{"op":"library_contains"}]})",
                            {"--format", "json"},
                            R"({"index":0,"op":"folder_list","ok":false,"error":"unknown op 'folder_list'"})"
                            "\n"
                            R"({"index":1,"op":"library_contains","ok":false,"skipped":true,"error":"skipped after earlier failure"})"
                            "\n"
                            R"({"summary":true,"total":2,"ok":0,"failed":1,"skipped":1})"
                            "\n",
                            "", 1}});
  EXPECT_EQ(after_handshake(sim), Methods{});
}

// The destination is checked once per op, not for "root"; a move that fails
// part way says how far it got, and the moves before it stay.
TEST(LibraryBatch, FolderMoveDestinationAndPartialFailure) {
  Sim sim;
  expect_batch_cases(sim, {{R"({"ops":[
      {"op":"folder_move","uris":["orvanta:playlist:backroads"],"destination_folder_uri":"orvanta:playlist:deepfocus"},
      {"op":"folder_move","uris":["orvanta:playlist:backroads","orvanta:playlist:nowhere"]}
    ]})",
                            {},
                            R"({"index":0,"op":"folder_move","ok":false,"error":"folder_move destination folder not found in current library hierarchy: orvanta:playlist:deepfocus"})"
                            "\n"
                            R"({"index":1,"op":"folder_move","ok":false,"error":"folder_move failed after moving 1/2 item(s): bad request"})"
                            "\n"
                            "Batch complete: 0 ok, 2 failed, 0 skipped (2 total)\n",
                            "", 1}});
  EXPECT_EQ(after_handshake(sim), (Methods{"folder_list", "folder_move", "folder_move"}));
  EXPECT_EQ(params_of(sim, "folder_move"),
            (Texts{R"({"uris":["orvanta:playlist:backroads"],"destination_folder_uri":"root"})",
                   R"({"uris":["orvanta:playlist:nowhere"],"destination_folder_uri":"root"})"}));
}

// The op's count is the client's, summed over its requests.
TEST(LibraryBatch, FolderMoveCountsWhatTheClientMoved) {
  Sim sim({"--answer", R"(folder_move={"moved":3})"});
  expect_batch_cases(sim, {{R"({"ops":[{"op":"folder_move","uris":["orvanta:playlist:backroads","orvanta:playlist:freshfinds"]}]})",
                            {},
                            R"({"index":0,"op":"folder_move","ok":true,"result":{"moved":6}})"
                            "\n"
                            "Batch complete: 1 ok, 0 failed, 0 skipped (1 total)\n",
                            "", 0}});
}

// A manifest that can't be read or decoded runs nothing and prints nothing
// on stdout.
TEST(LibraryBatch, ManifestThatDoesNotDecode) {
  Sim sim;
  const std::string invalid = "library batch: invalid manifest JSON: ";
  expect_batch_cases(sim, {
      {"", {}, "", invalid + "Unexpected end of input\n", 1},
      {R"({"ops":[]} {"ops":[]})", {}, "", invalid + "Unexpected trailing input\n", 1},
      {R"({"stop_on_error":true})", {}, "", invalid + "Missing required field(s)\n", 1},
      {R"({"ops":[{"uris":["orvanta:track:slowsnow"]}]})", {}, "", invalid + "Missing required field(s)\n", 1},
      {R"(["library_add"])", {}, "", invalid + "Unexpected input\n", 1},
      // White space behind the document is fine.
      {"{\"ops\":[]}\n", {}, "Batch complete: 0 ok, 0 failed, 0 skipped (0 total)\n", "", 0},
  });
  expect_command_cases({
      {{"library", "batch", "--from-file", "no/such/ops.json"},
       "", "library batch: could not open file 'no/such/ops.json'\n", 1},
      // stdin is empty here.
      {{"library", "batch"},
       "", "library batch: no manifest input (expected JSON on stdin or --from-file)\n", 1},
  });
  EXPECT_EQ(params_of(sim, "library_add"), Texts{});
}

TEST(LibraryBatch, ReadsTheManifestFromStdin) {
  Sim sim;
  ProcessResult r = run_command({"library", "batch"},
                                R"({"ops":[{"op":"library_contains","uris":["orvanta:track:glasstide"]}]})");
  EXPECT_EQ(r.out,
            R"({"index":0,"op":"library_contains","ok":true,"result":{"contains":{"orvanta:track:glasstide":true}}})"
            "\nBatch complete: 1 ok, 0 failed, 0 skipped (1 total)\n");
  EXPECT_EQ(r.err, "");
  EXPECT_EQ(r.status, 0);
}

}  // namespace
}  // namespace orvanta::testing
