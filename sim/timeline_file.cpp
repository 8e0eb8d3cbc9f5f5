#include "sim/timeline_file.hpp"

#include <optional>

#include "json/json.hpp"
#include "sim/bounded_file.hpp"

namespace orvanta::sim {

namespace {

using json::presence::defaulted;
using json::presence::optional;
using json::presence::required;

struct FileChapter {
  std::string title;
  std::int32_t start_time_ms = 0;
  std::string description;
};

struct FileImage {
  std::int32_t start_time_ms = 0;
  std::int32_t duration_ms = 0;
  std::optional<std::string> url;
  std::optional<std::string> title;
  std::optional<std::int32_t> width;
  std::optional<std::int32_t> height;
};

struct FileLink {
  std::int32_t start_time_ms = 0;
  std::int32_t duration_ms = 0;
  std::string url;
};

struct FileEntity {
  std::int32_t start_time_ms = 0;
  std::optional<std::int32_t> duration_ms;
  std::string uri;
};

struct FileItem {
  std::optional<FileChapter> chapter;
  std::optional<FileImage> image;
  std::optional<FileLink> link;
  std::optional<FileEntity> orvanta_entity;
};

struct TimelineFile {
  std::vector<FileItem> items;
};

// clang-format off
json::ObjectCodec<FileItem> file_item_codec() {
  json::ObjectCodec<FileChapter> chapter;
  chapter.add_field("title",         required,  &FileChapter::title);
  chapter.add_field("start_time_ms", required,  &FileChapter::start_time_ms);
  chapter.add_field("description",   defaulted, &FileChapter::description);
  json::ObjectCodec<FileImage> image;
  image.add_field("start_time_ms", required, &FileImage::start_time_ms);
  image.add_field("duration_ms",   required, &FileImage::duration_ms);
  image.add_field("url",           optional, &FileImage::url);
  image.add_field("title",         optional, &FileImage::title);
  image.add_field("width",         optional, &FileImage::width);
  image.add_field("height",        optional, &FileImage::height);
  json::ObjectCodec<FileLink> link;
  link.add_field("start_time_ms", required, &FileLink::start_time_ms);
  link.add_field("duration_ms",   required, &FileLink::duration_ms);
  link.add_field("url",           required, &FileLink::url);
  json::ObjectCodec<FileEntity> entity;
  entity.add_field("start_time_ms", required, &FileEntity::start_time_ms);
  entity.add_field("duration_ms",   optional, &FileEntity::duration_ms);
  entity.add_field("uri",           required, &FileEntity::uri);
  json::ObjectCodec<FileItem> codec;
  codec.add_field("chapter",        optional, &FileItem::chapter,        chapter);
  codec.add_field("image",          optional, &FileItem::image,          image);
  codec.add_field("link",           optional, &FileItem::link,           link);
  codec.add_field("orvanta_entity", optional, &FileItem::orvanta_entity, entity);
  return codec;
}

json::ObjectCodec<TimelineFile> timeline_file_codec() {
  json::ObjectCodec<TimelineFile> codec;
  codec.add_field("items", required, &TimelineFile::items, json::list_codec(file_item_codec()));
  return codec;
}
// clang-format on

int kinds_in(const FileItem& item) {
  return int{item.chapter.has_value()} + int{item.image.has_value()} + int{item.link.has_value()} +
         int{item.orvanta_entity.has_value()};
}

std::string quoted(const std::string& text) { return "\"" + text + "\""; }

// The chapter rules, over the chapters in file order. Empty when they hold.
std::string check_chapters(const std::vector<FileChapter>& chapters) {
  if (chapters.size() < 2) {
    return "A timeline needs at least 2 chapters, and this one has " + std::to_string(chapters.size());
  }
  if (chapters.front().start_time_ms != 0) {
    return "The first chapter must start at 0 ms, but " + quoted(chapters.front().title) + " starts at " +
           std::to_string(chapters.front().start_time_ms) + " ms";
  }
  for (std::size_t i = 1; i < chapters.size(); ++i) {
    const FileChapter& before = chapters[i - 1];
    const FileChapter& after = chapters[i];
    if (std::int64_t{after.start_time_ms} - before.start_time_ms < min_chapter_gap_ms) {
      return "Chapters must be at least 30 s apart, but " + quoted(before.title) + " starts at " +
             std::to_string(before.start_time_ms) + " ms and " + quoted(after.title) + " at " +
             std::to_string(after.start_time_ms) + " ms";
    }
  }
  return {};
}

messages::TimelineItem accepted(const FileItem& item, const std::string& uri_tail) {
  messages::TimelineItem out;
  const std::string companion = "orvanta:companion:" + uri_tail;
  if (const auto& c = item.chapter) {
    out.chapter = messages::TimelineChapter{"orvanta:chapter:" + uri_tail, c->title, c->start_time_ms, c->description};
  } else if (const auto& i = item.image) {
    out.image = messages::TimelineImage{companion, i->start_time_ms, i->duration_ms, i->url, i->title, i->width,
                                        i->height};
  } else if (const auto& l = item.link) {
    out.link = messages::TimelineLink{companion, l->start_time_ms, l->duration_ms, l->url};
  } else if (const auto& e = item.orvanta_entity) {
    out.orvanta_entity = messages::TimelineOrvantaEntity{companion, e->start_time_ms, e->duration_ms, e->uri};
  }
  return out;
}

}  // namespace

TimelineParse parse_timeline(std::string_view text, std::string_view id) {
  TimelineFile file;
  try {
    file = json::decode(timeline_file_codec(), text);
  } catch (const json::decode_exception& e) {
    return "The timeline file is not valid: " + std::string(e.what()) + " at byte " + std::to_string(e.offset());
  }
  std::vector<FileChapter> chapters;
  for (std::size_t i = 0; i < file.items.size(); ++i) {
    const FileItem& item = file.items[i];
    if (kinds_in(item) != 1) {
      return "Timeline item " + std::to_string(i) + " must hold exactly one of chapter, image, link or orvanta_entity";
    }
    if (item.chapter) chapters.push_back(*item.chapter);
  }
  if (std::string refusal = check_chapters(chapters); !refusal.empty()) return refusal;
  std::vector<messages::TimelineItem> items;
  for (std::size_t i = 0; i < file.items.size(); ++i) {
    items.push_back(accepted(file.items[i], std::string(id) + "-" + std::to_string(i)));
  }
  return items;
}

TimelineParse read_timeline_file(const std::string& path, std::string_view id) {
  std::string text;
  const FileRead read = read_bounded_file(path, text);
  if (read == FileRead::unreadable) return "Can't read the timeline file " + path;
  if (read != FileRead::ok) return "The timeline file " + path + file_read_reason(read);
  return parse_timeline(text, id);
}

}  // namespace orvanta::sim
