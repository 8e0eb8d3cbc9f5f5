// The Podroom commands against the simulator: stdout, stderr
// and status byte for byte, and the params that went out.
#include <gtest/gtest.h>

#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <fstream>

#include "tests/support/command_cases.hpp"

namespace orvanta::testing {
namespace {

namespace fs = std::filesystem;
using Texts = std::vector<std::string>;

const std::string kSupported = "Supported: .mp3, .m4a, .wav, .ogg, .flac, .mp4, .mov, .webm\n";

// A file with an absolute path, since the simulator looks at it from a
// directory of its own.
std::string temp_file(const std::string& name, const std::string& bytes) {
  fs::path path = fs::temp_directory_path() / (std::to_string(::getpid()) + "_" + name);
  std::ofstream(path) << bytes;
  return path.string();
}

TEST(PodCommands, ListAndStatusInTextAndJson) {
  Sim sim;
  expect_command_cases({
      {{"pod", "shows"}, "orvanta:show:shednotes\tNotes from the Shed\n", "", 0},
      {{"pod", "shows", "--format", "json"},
       R"({"shows":[{"show_uri":"orvanta:show:shednotes","title":"Notes from the Shed","language":"en",)"
       R"("created_at":"2025-01-06T10:15:00Z","last_episode_uploaded_at":"2025-02-24T18:00:00Z"}]})"
       "\n", "", 0},
      {{"pod", "episodes", "--show-id", "shednotes"},
       "orvanta:episode:shednotes1\tPilot: Why a Shed?\norvanta:episode:shednotes2\tHinges, a Love Story\n", "", 0},
      {{"pod", "episodes", "status", "shednotes1"}, "orvanta:episode:shednotes1\tready\n", "", 0},
      {{"pod", "episodes", "status", "shednotes2", "--format", "json"},
       "{\"episode_uri\":\"orvanta:episode:shednotes2\",\"readiness\":\"ready\"}\n", "", 0},
  });
  EXPECT_EQ(params_of(sim, "pod_episodes_list"), Texts{R"({"show_id":"shednotes"})"});
}

TEST(PodCommands, CreateUploadAndDeletePrintWhatTheServiceAnswers) {
  Sim sim;
  const std::string song = temp_file("SONG.MP3", "ID3");
  expect_command_cases({
      {{"pod", "shows", "create", "--name", "Night", "--language", "sv"}, "orvanta:show:podroom1\n", "", 0},
      {{"pod", "upload", song, "--name", "x"}, "orvanta:episode:podroom2\n", "Uploading...\n", 0},
      // The progress line stays on stderr under JSON too.
      {{"pod", "upload", song, "--name", "y", "--description", "d", "--show-id", "podroom1", "--new-show", "N",
        "--format", "json"},
       "{\"episode_uri\":\"orvanta:episode:podroom3\",\"title\":\"y\",\"status\":\"processing\"}\n", "Uploading...\n",
       0},
      {{"pod", "episodes", "create", "--name", "z", "--file", song, "--description", "w", "--format", "json"},
       "{\"episode_uri\":\"orvanta:episode:podroom4\",\"status\":\"processing\"}\n", "", 0},
      {{"pod", "episodes", "create", "--name", "z", "--file", "/no/such.mp3", "--description", "w"}, "",
       "Creating episode...\npod episodes create failed: bad request\n", 1},
      // Typed and answered ids differ: the answer's is printed.
      {{"pod", "episodes", "delete", "podroom4"}, "deleted orvanta:episode:podroom4\n", "", 0},
      {{"pod", "shows", "delete", "shednotes", "--format", "json"},
       "{\"status\":\"deleted\",\"show_id\":\"orvanta:show:shednotes\"}\n", "", 0},
      {{"pod", "shows", "delete", "podroom1"}, "deleted orvanta:show:podroom1\n", "", 0},
      {{"pod", "episodes"}, "", "", 0},
  });
  std::remove(song.c_str());
  EXPECT_EQ(params_of(sim, "pod_shows_create"), Texts{R"({"title":"Night","language":"sv"})"});
  // --show-id and --new-show both go out when both are given.
  EXPECT_EQ(params_of(sim, "pod_upload"),
            (Texts{R"({"file_path":")" + song + R"(","title":"x"})",
                   R"({"file_path":")" + song + R"(","title":"y","description":"d","show_id":"podroom1","new_show":"N"})"}));
}

TEST(PodCommands, UploadChecksTheFileBeforeSendingAnything) {
  Sim sim;
  const std::string aac = temp_file("SONG.AAC", "x");
  const std::string bare = temp_file("README", "x");
  std::ofstream("empty.mp3").close();  // relative, where the CLI runs
  expect_command_cases({
      {{"pod", "upload", "/no/such/file.mp3"}, "", "pod upload requires --name <title>\n", 1},
      {{"pod", "upload", "empty.mp3", "--name", "x"}, "", "File is empty: empty.mp3\n", 1},
      {{"pod", "upload", "/no/such/file.mp3", "--name", "x"}, "", "File not found: /no/such/file.mp3\n", 1},
      // Reported in the case of the path, and empty when there is none.
      {{"pod", "upload", aac, "--name", "x"}, "", "Unsupported file type: .AAC\n" + kSupported, 1},
      {{"pod", "upload", bare, "--name", "x", "--format", "json"}, "", "Unsupported file type: \n" + kSupported, 1},
  });
  fs::remove("empty.mp3");
  std::remove(aac.c_str());
  std::remove(bare.c_str());
  EXPECT_EQ(after_handshake(sim), Texts{});
}

TEST(PodCommands, MissingValuesAreReportedBeforeAnyRequest) {
  Sim sim;
  expect_command_cases({
      {{"pod", "shows", "create", "--description", "d"}, "", "pod shows create requires --name <title>\n", 1},
      {{"pod", "shows", "delete", ""}, "", "pod shows delete requires <id>\n", 1},
      {{"pod", "episodes", "create", "--description", "z"}, "", "pod episodes create requires --name <title>\n", 1},
      {{"pod", "episodes", "create", "--name", "x", "--description", "z"}, "",
       "pod episodes create requires --file <path>\n", 1},
      {{"pod", "episodes", "create", "--name", "x", "--file", "y", "--format", "json"}, "",
       "pod episodes create requires --description <text>\n", 1},
      {{"pod", "episodes", "status", ""}, "", "pod episodes status requires <episode_id>\n", 1},
      {{"pod", "episodes", "delete", ""}, "", "pod episodes delete requires <id>\n", 1},
      {{"pod", "timeline", "get", ""}, "", "pod timeline get requires <episode_id>\n", 1},
      {{"pod", "timeline", "delete", ""}, "", "pod timeline delete requires <episode_id>\n", 1},
      {{"pod", "timeline", "set"}, "", "pod timeline set requires --episode-id <id>\n", 1},
      {{"pod", "timeline", "set", "--episode-id", "e"}, "", "pod timeline set requires --from-file <path>\n", 1},
  });
  for (const std::string& method : sim.methods()) EXPECT_NE(method.rfind("pod_", 0), 0u) << method;
}

TEST(PodCommands, FailuresAreOneLineWithTheCodesWords) {
  Sim sim({"--fail", "pod_upload=9", "--fail", "pod_shows_list=16", "--fail", "pod_shows_create=4", "--fail",
                  "pod_shows_delete=2", "--fail", "pod_episodes_list=7", "--fail", "pod_episodes_create=4", "--fail",
                  "pod_episodes_status=16", "--fail", "pod_episodes_delete=9", "--fail", "pod_timeline_get=16",
                  "--fail", "pod_timeline_set=2", "--fail", "pod_timeline_delete=4"});
  const std::string song = temp_file("a.flac", "fLaC");
  expect_command_cases({
      {{"pod", "upload", song, "--name", "x"}, "", "Uploading...\nUpload failed: request timed out\n", 1},
      {{"pod", "shows", "--format", "json"}, "", "pod shows failed: not logged in\n", 1},
      {{"pod", "shows", "create", "--name", "n"}, "", "pod shows create failed: internal server error\n", 1},
      {{"pod", "shows", "delete", "s"}, "", "pod shows delete failed: bad request\n", 1},
      {{"pod", "episodes"}, "", "pod episodes failed: cancelled\n", 1},
      // Under JSON the progress line is left out.
      {{"pod", "episodes", "create", "--name", "x", "--file", "y", "--description", "z", "--format", "json"}, "",
       "pod episodes create failed: internal server error\n", 1},
      {{"pod", "episodes", "status", "e"}, "", "pod episodes status failed: not logged in\n", 1},
      {{"pod", "episodes", "delete", "e"}, "", "pod episodes delete failed: request timed out\n", 1},
      {{"pod", "timeline", "get", "e"}, "", "pod timeline get failed: not logged in\n", 1},
      {{"pod", "timeline", "set", "--episode-id", "e", "--from-file", "f"}, "", "pod timeline set failed: bad request\n",
       1},
      {{"pod", "timeline", "delete", "e"}, "", "pod timeline delete failed: internal server error\n", 1},
  });
  std::remove(song.c_str());
}

TEST(PodCommands, TimelineTextListsChaptersOnly) {
  Sim sim;
  const std::string file = temp_file("timeline.json", R"({"items":[{"chapter":{"title":"A","start_time_ms":0}},)"
                                                      R"({"link":{"start_time_ms":1,"duration_ms":2,"url":"u"}},)"
                                                      R"({"chapter":{"title":"B","start_time_ms":30000}}]})");
  expect_command_cases({
      {{"pod", "timeline", "get", "shednotes1"},
       "orvanta:chapter:shednotes1-0\tCold open\t0\norvanta:chapter:shednotes1-1\tThe leaning wall\t95000\n", "", 0},
      {{"pod", "timeline", "get", "shednotes1", "--show-id", "shednotes", "--format", "json"},
       R"({"items":[{"chapter":{"chapter_uri":"orvanta:chapter:shednotes1-0","title":"Cold open","start_time_ms":0,)"
       R"("description":""}},{"chapter":{"chapter_uri":"orvanta:chapter:shednotes1-1","title":"The leaning wall",)"
       R"("start_time_ms":95000,"description":"A tour of the worst corner."}},{"link":{"companion_uri":)"
       R"("orvanta:companion:shednotes1-2","start_time_ms":120000,"duration_ms":30000,)"
       R"("url":"https://example.org/shed-plans"}}]})"
       "\n", "", 0},
      {{"pod", "timeline", "get", "shednotes2"}, "", "", 0},
      // The count is the answer's; the file is the desktop client's to read.
      {{"pod", "timeline", "set", "--episode-id", "shednotes2", "--from-file", file}, "Timeline set (3 items)\n", "", 0},
      {{"pod", "timeline", "set", "--episode-id", "shednotes2", "--from-file", "/no/such/file"}, "",
       "pod timeline set failed: bad request\n", 1},
      {{"pod", "timeline", "delete", "shednotes1"}, "Timeline deleted for episode orvanta:episode:shednotes1\n", "", 0},
      {{"pod", "timeline", "delete", "shednotes2", "--format", "json"},
       "{\"ok\":true,\"episode_id\":\"orvanta:episode:shednotes2\"}\n", "", 0},
  });
  std::remove(file.c_str());
  EXPECT_EQ(params_of(sim, "pod_timeline_get")[1], R"({"id":"shednotes1","show_id":"shednotes"})");
  EXPECT_EQ(params_of(sim, "pod_timeline_set"),
            (Texts{R"({"episode_id":"shednotes2","from_file":")" + file + R"("})",
                   R"({"episode_id":"shednotes2","from_file":"/no/such/file"})"}));
}

}  // namespace
}  // namespace orvanta::testing
