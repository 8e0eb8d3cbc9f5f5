// The Podroom commands of the real CLI against the simulator: stdout, stderr
// and status byte for byte, and the params that went out.
#include <gtest/gtest.h>

#include <unistd.h>

#include <cerrno>

#include <filesystem>
#include <fstream>

#include "tests/support/cli_cases.hpp"

namespace orvanta::testing {
namespace {

namespace fs = std::filesystem;
using Texts = std::vector<std::string>;

const std::string kSupported = "Supported: .mp3, .m4a, .wav, .ogg, .flac, .mp4, .mov, .webm\n";

// Media files of a test's own: absolute paths in a fresh directory, since
// the simulator looks at them from a directory of its own.
struct MediaDir {
  fs::path root = fs::temp_directory_path() / ("orvanta_pod_" + std::to_string(::getpid()));
  MediaDir() { fs::create_directories(root); }
  ~MediaDir() { fs::remove_all(root); }
  MediaDir(const MediaDir&) = delete;
  MediaDir& operator=(const MediaDir&) = delete;
  std::string file(const std::string& name, const std::string& bytes) const {
    std::ofstream(root / name) << bytes;
    return (root / name).string();
  }
};

TEST(PodCommands, ListShowsAndEpisodesInTextAndJson) {
  SimProcess sim;
  expect_cli_cases({
      {{"pod", "shows"}, "orvanta:show:shednotes\tNotes from the Shed\n", "", 0},
      {{"pod", "shows", "--format", "json"},
       R"({"shows":[{"show_uri":"orvanta:show:shednotes","title":"Notes from the Shed","language":"en",)"
       R"("created_at":"2025-01-06T10:15:00Z","last_episode_uploaded_at":"2025-02-24T18:00:00Z"}]})"
       "\n",
       "", 0},
      {{"pod", "episodes"},
       "orvanta:episode:shednotes1\tPilot: Why a Shed?\norvanta:episode:shednotes2\tHinges, a Love Story\n", "", 0},
      {{"pod", "episodes", "--show-id", "shednotes", "--format", "json"},
       R"({"episodes":[{"episode_uri":"orvanta:episode:shednotes1","title":"Pilot: Why a Shed?","language":"en",)"
       R"("media_type":"audio","status":"published","created_at":"2025-01-06T10:40:00Z"},)"
       R"({"episode_uri":"orvanta:episode:shednotes2","title":"Hinges, a Love Story","language":"en",)"
       R"("media_type":"audio","status":"published","created_at":"2025-02-24T18:00:00Z"}]})"
       "\n",
       "", 0},
      {{"pod", "episodes", "status", "shednotes1"}, "orvanta:episode:shednotes1\tready\n", "", 0},
      {{"pod", "episodes", "status", "shednotes2", "--format", "json"},
       R"({"episode_uri":"orvanta:episode:shednotes2","readiness":"ready"})"
       "\n",
       "", 0},
  });
  // The show id goes out as typed, and only when given.
  EXPECT_EQ(params_of(sim, "pod_episodes_list"), (Texts{"{}", R"({"show_id":"shednotes"})"}));
  EXPECT_EQ(params_of(sim, "pod_episodes_status"), (Texts{R"({"id":"shednotes1"})", R"({"id":"shednotes2"})"}));
}

TEST(PodCommands, CreateAndDeletePrintWhatTheServiceAnswers) {
  SimProcess sim;
  expect_cli_cases({
      {{"pod", "shows", "create", "--name", "Night Shift", "--language", "sv"}, "orvanta:show:podroom1\n", "", 0},
      {{"pod", "shows", "create", "--name", "Day Shift", "--description", "d", "--format", "json"},
       "{\"show_uri\":\"orvanta:show:podroom2\"}\n", "", 0},
      {{"pod", "episodes", "create", "--name", "E", "--file", "/no/such.mp3", "--description", "z", "--show-id",
        "podroom1"},
       "", "Creating episode...\npod episodes create failed: bad request\n", 1},
      // The typed id differs from the show's id in the answer; the answer wins.
      {{"pod", "shows", "delete", "podroom1"}, "deleted orvanta:show:podroom1\n", "", 0},
      {{"pod", "shows", "delete", "shednotes", "--format", "json"},
       "{\"status\":\"deleted\",\"show_id\":\"orvanta:show:shednotes\"}\n", "", 0},
      {{"pod", "episodes", "delete", "nothing"}, "", "pod episodes delete failed: bad request\n", 1},
      {{"pod", "shows"}, "orvanta:show:podroom2\tDay Shift\n", "", 0},
      // Deleting the show took its episodes along: an empty list prints nothing.
      {{"pod", "episodes"}, "", "", 0},
  });
  EXPECT_EQ(params_of(sim, "pod_shows_create"),
            (Texts{R"({"title":"Night Shift","language":"sv"})", R"({"title":"Day Shift","description":"d"})"}));
  EXPECT_EQ(params_of(sim, "pod_episodes_create"),
            (Texts{R"({"title":"E","file":"/no/such.mp3","description":"z","show_id":"podroom1"})"}));
  EXPECT_EQ(params_of(sim, "pod_shows_delete"), (Texts{R"({"id":"podroom1"})", R"({"id":"shednotes"})"}));
}

TEST(PodCommands, UploadAndCreateEpisodeSendOneRequestEach) {
  SimProcess sim;
  MediaDir media;
  const std::string song = media.file("SONG.MP3", "ID3");
  const std::string clip = media.file("clip.webm", "webm");
  expect_cli_cases({
      {{"pod", "upload", song, "--name", "x"}, "orvanta:episode:podroom1\n", "Uploading...\n", 0},
      // The progress line stays on stderr under JSON too.
      {{"pod", "upload", clip, "--name", "y", "--description", "d", "--show-id", "shednotes", "--new-show", "N",
        "--language", "de", "--format", "json"},
       R"({"episode_uri":"orvanta:episode:podroom2","title":"y","status":"processing"})"
       "\n",
       "Uploading...\n", 0},
      {{"pod", "episodes", "create", "--name", "z", "--file", clip, "--description", "w", "--format", "json"},
       R"({"episode_uri":"orvanta:episode:podroom3","status":"processing"})"
       "\n",
       "", 0},
      {{"pod", "episodes", "delete", "podroom3"}, "deleted orvanta:episode:podroom3\n", "", 0},
  });
  // --show-id and --new-show both go out when both are given.
  EXPECT_EQ(params_of(sim, "pod_upload"),
            (Texts{R"({"file_path":")" + song + R"(","title":"x"})",
                   R"({"file_path":")" + clip +
                       R"(","title":"y","description":"d","show_id":"shednotes","new_show":"N","language":"de"})"}));
}

TEST(PodCommands, UploadChecksTheFileBeforeSendingAnything) {
  SimProcess sim;
  MediaDir media;
  const std::string aac = media.file("SONG.AAC", "x");
  const std::string bare = media.file("README", "x");
  std::ofstream("empty.mp3").close();  // relative, in the directory the CLI runs in
  expect_cli_cases({
      {{"pod", "upload", "empty.mp3", "--name", "x"}, "", "File is empty: empty.mp3\n", 1},
      {{"pod", "upload", "/no/such/file.mp3", "--name", "x"}, "", "File not found: /no/such/file.mp3\n", 1},
      // The extension is reported in the case of the path.
      {{"pod", "upload", aac, "--name", "x"}, "", "Unsupported file type: .AAC\n" + kSupported, 1},
      {{"pod", "upload", bare, "--name", "x", "--format", "json"}, "", "Unsupported file type: \n" + kSupported, 1},
      // The name is asked for before the file is looked at.
      {{"pod", "upload", "/no/such/file.mp3"}, "", "pod upload requires --name <title>\n", 1},
  });
  fs::remove("empty.mp3");
  EXPECT_EQ(after_handshake(sim), Texts{});
  EXPECT_TRUE(params_of(sim, "pod_upload").empty());

  // A directory is neither missing nor a file: the size call throws, and the
  // runner reports the error with its code as the status.
  ProcessResult r = run_cli({"pod", "upload", media.root.string(), "--name", "x"});
  EXPECT_EQ(r.out, "");
  EXPECT_EQ(r.err.rfind("Error: ", 0), 0u) << r.err;
  EXPECT_EQ(r.status, EISDIR);
}

TEST(PodCommands, MissingValuesAreReportedBeforeAnyRequest) {
  SimProcess sim;
  expect_cli_cases({
      {{"pod", "shows", "create", "--description", "d"}, "", "pod shows create requires --name <title>\n", 1},
      {{"pod", "shows", "delete", ""}, "", "pod shows delete requires <id>\n", 1},
      {{"pod", "episodes", "create", "--description", "z"}, "", "pod episodes create requires --name <title>\n", 1},
      {{"pod", "episodes", "create", "--name", "x", "--description", "z"},
       "",
       "pod episodes create requires --file <path>\n",
       1},
      {{"pod", "episodes", "create", "--name", "x", "--file", "y", "--format", "json"},
       "",
       "pod episodes create requires --description <text>\n",
       1},
      {{"pod", "episodes", "status", ""}, "", "pod episodes status requires <episode_id>\n", 1},
      {{"pod", "episodes", "delete", ""}, "", "pod episodes delete requires <id>\n", 1},
  });
  for (const std::string& method : sim.methods()) {
    EXPECT_EQ(method.rfind("pod_", 0), std::string::npos) << method;
  }
}

TEST(PodCommands, FailuresAreOneLineWithTheCodesWords) {
  SimProcess sim({"--fail", "pod_upload=9", "--fail", "pod_shows_list=16", "--fail", "pod_shows_create=4",
                  "--fail", "pod_shows_delete=2", "--fail", "pod_episodes_list=7", "--fail",
                  "pod_episodes_create=4", "--fail", "pod_episodes_status=16", "--fail", "pod_episodes_delete=9"});
  MediaDir media;
  const std::string song = media.file("a.flac", "fLaC");
  expect_cli_cases({
      {{"pod", "upload", song, "--name", "x", "--format", "json"}, "", "Uploading...\nUpload failed: request timed out\n",
       1},
      {{"pod", "shows", "--format", "json"}, "", "pod shows failed: not logged in\n", 1},
      {{"pod", "shows", "create", "--name", "n"}, "", "pod shows create failed: internal server error\n", 1},
      {{"pod", "shows", "delete", "s"}, "", "pod shows delete failed: bad request\n", 1},
      {{"pod", "episodes"}, "", "pod episodes failed: cancelled\n", 1},
      // Under JSON the progress line is left out.
      {{"pod", "episodes", "create", "--name", "x", "--file", "y", "--description", "z", "--format", "json"},
       "",
       "pod episodes create failed: internal server error\n",
       1},
      {{"pod", "episodes", "status", "e"}, "", "pod episodes status failed: not logged in\n", 1},
      {{"pod", "episodes", "delete", "e"}, "", "pod episodes delete failed: request timed out\n", 1},
  });
}

}  // namespace
}  // namespace orvanta::testing
