// Podroom handlers and the timeline rules that `pod timeline set` states.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "sim/timeline_file.hpp"
#include "tests/sim/handler_fixture.hpp"

namespace orvanta::sim::testing {
namespace {

using link::DesktopApiError;
namespace fs = std::filesystem;

std::string refusal_of(const TimelineParse& parsed) {
  return std::holds_alternative<std::string>(parsed) ? std::get<std::string>(parsed) : "(accepted)";
}

TEST(TimelineRules, TwoChaptersFromZeroThirtySecondsApartAreAccepted) {
  auto parsed = parse_timeline(R"({"items":[
      {"chapter":{"title":"Intro","start_time_ms":0}},
      {"link":{"start_time_ms":5000,"duration_ms":1000,"url":"https://example.org/a"}},
      {"chapter":{"title":"Main","start_time_ms":30000,"description":"The meat"}}]})",
                               "ep1");
  ASSERT_TRUE(std::holds_alternative<std::vector<messages::TimelineItem>>(parsed)) << refusal_of(parsed);
  const auto& items = std::get<std::vector<messages::TimelineItem>>(parsed);
  ASSERT_EQ(items.size(), 3U);
  EXPECT_EQ(items[0].chapter->chapter_uri, "orvanta:chapter:ep1-0");
  EXPECT_EQ(items[1].link->companion_uri, "orvanta:companion:ep1-1");
  EXPECT_EQ(items[2].chapter->description, "The meat");
}

TEST(TimelineRules, EachBrokenRuleIsNamed) {
  const std::pair<const char*, const char*> cases[] = {
      {R"({"items":[{"chapter":{"title":"Only","start_time_ms":0}}]})",
       "A timeline needs at least 2 chapters, and this one has 1"},
      {R"({"items":[{"chapter":{"title":"Late","start_time_ms":1500}},{"chapter":{"title":"B","start_time_ms":90000}}]})",
       "The first chapter must start at 0 ms, but \"Late\" starts at 1500 ms"},
      {R"({"items":[{"chapter":{"title":"A","start_time_ms":0}},{"chapter":{"title":"B","start_time_ms":29999}}]})",
       "Chapters must be at least 30 s apart, but \"A\" starts at 0 ms and \"B\" at 29999 ms"},
      {R"({"items":[{"chapter":{"title":"A","start_time_ms":0}},{"chapter":{"title":"B","start_time_ms":60000}},
                    {"chapter":{"title":"C","start_time_ms":40000}}]})",
       "Chapters must be at least 30 s apart, but \"B\" starts at 60000 ms and \"C\" at 40000 ms"},
      {R"({"items":[{"chapter":{"title":"A","start_time_ms":0},"link":{"start_time_ms":0,"duration_ms":1,"url":"u"}}]})",
       "Timeline item 0 must hold exactly one of chapter, image, link or orvanta_entity"},
      {R"({"items":[{"chapter":{"title":"A","start_time_ms":0}},{}]})",
       "Timeline item 1 must hold exactly one of chapter, image, link or orvanta_entity"},
      {R"({"items":[{"chapter":{"start_time_ms":0}}]})",
       "The timeline file is not valid: Missing required field(s) at byte 40"},
      {R"([1,2])", "The timeline file is not valid: Unexpected input at byte 0"},
  };
  for (const auto& [text, reason] : cases) EXPECT_EQ(refusal_of(parse_timeline(text, "e")), reason) << text;
}

class PodroomHandlers : public HandlerTest {
 protected:
  fs::path dir = fs::temp_directory_path() / "orvanta_sim_podroom_test";
  void SetUp() override { fs::create_directories(dir); }
  void TearDown() override { fs::remove_all(dir); }

  std::string file(const std::string& name, const std::string& content) {
    const fs::path path = dir / name;
    std::ofstream(path) << content;
    return path.string();
  }
};

TEST_F(PodroomHandlers, UploadChecksTheFileAndFilesAnEpisodeInTheLastShow) {
  const std::string song = file("song.MP3", "ID3");
  auto uploaded = call<m::PodUpload>({song, "Episode Three", {}, {}, {}, {}, {}});
  ASSERT_TRUE(uploaded.ok()) << uploaded.failure.message;
  EXPECT_EQ(uploaded.result.status, "processing");
  auto listed = call<m::PodEpisodesList>({.show_id = "shednotes"}).result;
  ASSERT_EQ(listed.episodes.size(), 3U);
  EXPECT_EQ(listed.episodes.back().episode_uri, uploaded.result.episode_uri);
  EXPECT_EQ(listed.episodes.back().media_type, "audio");

  // Processing is over by the time anybody asks a second time.
  EXPECT_EQ(call<m::PodEpisodesStatus>({uploaded.result.episode_uri}).result.readiness, "processing");
  EXPECT_EQ(call<m::PodEpisodesStatus>({uploaded.result.episode_uri}).result.readiness, "ready");

  EXPECT_EQ(refusal(call<m::PodUpload>({dir.string() + "/none.mp3", "x", {}, {}, {}, {}, {}}),
                    DesktopApiError::bad_request),
            "Media file not found: " + dir.string() + "/none.mp3");
  EXPECT_EQ(refusal(call<m::PodUpload>({file("empty.mp3", ""), "x", {}, {}, {}, {}, {}}), DesktopApiError::bad_request),
            "Media file is empty: " + dir.string() + "/empty.mp3");
  EXPECT_EQ(refusal(call<m::PodUpload>({file("notes.txt", "hi"), "x", {}, {}, {}, {}, {}}),
                    DesktopApiError::bad_request),
            "Podroom takes audio or video files, not '.txt' (" + dir.string() + "/notes.txt)");
}

TEST_F(PodroomHandlers, TimelineSetReplacesGetShowsAndDeleteClears) {
  EXPECT_EQ(call<m::PodTimelineGet>({"shednotes1", {}}).result.items.size(), 3U);
  const std::string path = file("timeline.json", R"({"items":[{"chapter":{"title":"Hello","start_time_ms":0}},
      {"chapter":{"title":"Goodbye","start_time_ms":45000}}]})");
  auto set = call<m::PodTimelineSet>({"orvanta:episode:shednotes2", path, "shednotes"});
  ASSERT_TRUE(set.ok()) << set.failure.message;
  EXPECT_EQ(set.result.items.size(), 2U);
  auto got = call<m::PodTimelineGet>({"shednotes2", {}}).result;
  EXPECT_EQ(got.items[1].chapter->title, "Goodbye");
  EXPECT_EQ(got.items[1].chapter->chapter_uri, "orvanta:chapter:shednotes2-1");

  EXPECT_EQ(refusal(call<m::PodTimelineSet>({"shednotes2", dir.string() + "/missing.json", {}}),
                    DesktopApiError::bad_request),
            "Can't read the timeline file " + dir.string() + "/missing.json");
  EXPECT_EQ(refusal(call<m::PodTimelineSet>({"shednotes2", "/dev/zero", {}}), DesktopApiError::bad_request),
            "The timeline file /dev/zero is not a regular file");
  EXPECT_EQ(call<m::PodTimelineGet>({"shednotes2", {}}).result.items.size(), 2U);

  auto deleted = call<m::PodTimelineDelete>({"shednotes2", {}});
  EXPECT_TRUE(deleted.result.ok);
  EXPECT_EQ(deleted.result.episode_id, "orvanta:episode:shednotes2");
  EXPECT_TRUE(call<m::PodTimelineGet>({"shednotes2", {}}).result.items.empty());
  EXPECT_EQ(refusal(call<m::PodTimelineGet>({"shednotes1", "podroom-other"}), DesktopApiError::bad_request),
            "No Podroom show podroom-other");
}

}  // namespace
}  // namespace orvanta::sim::testing
