// The peer libraries on the benchmark documents: RapidJSON (DOM parse then
// copy, and its Writer), nlohmann-json (parse then copy, and dump) and
// simdjson On Demand (no encoder). They appear nowhere outside bench/.
#pragma once

#include <string>

#include "json_bench_documents.hpp"

namespace orvanta::bench {

void rapidjson_dom_decode(const std::string& text, LibraryList& out);
void rapidjson_dom_decode(const std::string& text, SearchResult& out);
std::string rapidjson_writer_encode(const LibraryList& value);
std::string rapidjson_writer_encode(const SearchResult& value);

void nlohmann_decode(const std::string& text, LibraryList& out);
void nlohmann_decode(const std::string& text, SearchResult& out);
std::string nlohmann_encode(const LibraryList& value);
std::string nlohmann_encode(const SearchResult& value);

// simdjson needs its padding: the text is copied into a padded buffer once,
// outside the timed loop, and the parser is reused, as simdjson advises.
class SimdjsonOnDemand {
 public:
  explicit SimdjsonOnDemand(const std::string& text);
  ~SimdjsonOnDemand();
  SimdjsonOnDemand(const SimdjsonOnDemand&) = delete;
  SimdjsonOnDemand& operator=(const SimdjsonOnDemand&) = delete;
  void decode(LibraryList& out);
  void decode(SearchResult& out);

 private:
  struct State;
  State* state_;
};

}  // namespace orvanta::bench
