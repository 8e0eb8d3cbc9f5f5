// BM_Decode/<library>/<document> and BM_Encode/<library>/<document>: our
// codec against RapidJSON, nlohmann-json and simdjson on two documents made
// at start from a fixed seed. Every decoder is checked to give the same
// structs before anything is timed. Bytes per second count the JSON text.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <functional>
#include <memory>
#include <string>

#include "json/json.hpp"
#include "json_bench_documents.hpp"
#include "json_bench_peers.hpp"

namespace orvanta::bench {
namespace {

template <class T>
struct Document {
  std::string name;
  T value;
  std::string text;
  json::ObjectCodec<T> (*codec)();
};

void require(bool condition, const std::string& what) {
  if (!condition) {
    std::fprintf(stderr, "json_bench: %s\n", what.c_str());
    std::exit(1);
  }
}

void add(const std::string& name, std::function<std::size_t(benchmark::State&)> body) {
  benchmark::RegisterBenchmark(name.c_str(), [body](benchmark::State& state) {
    const std::size_t bytes = body(state);
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * static_cast<std::int64_t>(bytes));
  })->Unit(benchmark::kMicrosecond);
}

template <class T>
void register_document(const std::shared_ptr<Document<T>>& doc) {
  const std::string& n = doc->name;
  auto simd = std::make_shared<SimdjsonOnDemand>(doc->text);

  // Checks first: every decoder yields the original structs, and every
  // encoder's text decodes back to them.
  {
    T out{};
    require(json::decode(doc->codec(), doc->text) == doc->value, n + ": ours decode");
    rapidjson_dom_decode(doc->text, out);
    require(out == doc->value, n + ": rapidjson decode");
    nlohmann_decode(doc->text, out);
    require(out == doc->value, n + ": nlohmann decode");
    simd->decode(out);
    require(out == doc->value, n + ": simdjson decode");
    require(json::decode(doc->codec(), rapidjson_writer_encode(doc->value)) == doc->value, n + ": rapidjson encode");
    require(json::decode(doc->codec(), nlohmann_encode(doc->value)) == doc->value, n + ": nlohmann encode");
  }

  // The codec is built on use, inside the loop, as the operations build it.
  add("BM_Decode/ours/" + n, [doc](benchmark::State& state) {
    for (auto _ : state) {
      T value = json::decode(doc->codec(), doc->text);
      benchmark::DoNotOptimize(value);
    }
    return doc->text.size();
  });
  add("BM_Decode/rapidjson_dom/" + n, [doc](benchmark::State& state) {
    for (auto _ : state) {
      T value;
      rapidjson_dom_decode(doc->text, value);
      benchmark::DoNotOptimize(value);
    }
    return doc->text.size();
  });
  add("BM_Decode/nlohmann/" + n, [doc](benchmark::State& state) {
    for (auto _ : state) {
      T value;
      nlohmann_decode(doc->text, value);
      benchmark::DoNotOptimize(value);
    }
    return doc->text.size();
  });
  add("BM_Decode/simdjson_ondemand/" + n, [doc, simd](benchmark::State& state) {
    for (auto _ : state) {
      T value;
      simd->decode(value);
      benchmark::DoNotOptimize(value);
    }
    return doc->text.size();
  });
  add("BM_Encode/ours/" + n, [doc](benchmark::State& state) {
    std::size_t size = 0;
    for (auto _ : state) {
      json::EncodedText text = json::encode(doc->codec(), doc->value);
      size = text.size();
      benchmark::DoNotOptimize(text);
    }
    return size;
  });
  add("BM_Encode/rapidjson_writer/" + n, [doc](benchmark::State& state) {
    std::size_t size = 0;
    for (auto _ : state) {
      std::string text = rapidjson_writer_encode(doc->value);
      size = text.size();
      benchmark::DoNotOptimize(text);
    }
    return size;
  });
  add("BM_Encode/nlohmann/" + n, [doc](benchmark::State& state) {
    std::size_t size = 0;
    for (auto _ : state) {
      std::string text = nlohmann_encode(doc->value);
      size = text.size();
      benchmark::DoNotOptimize(text);
    }
    return size;
  });
  // What a factory call costs, since records build their codec on use.
  add("BM_BuildCodec/ours/" + n, [doc](benchmark::State& state) {
    for (auto _ : state) {
      auto codec = doc->codec();
      benchmark::DoNotOptimize(codec);
    }
    return std::size_t{0};
  });
}

template <class T>
std::shared_ptr<Document<T>> make_document(std::string name, T value, json::ObjectCodec<T> (*codec)()) {
  auto doc = std::make_shared<Document<T>>();
  doc->name = std::move(name);
  doc->value = std::move(value);
  doc->codec = codec;
  doc->text = json::encode(codec(), doc->value).str();
  return doc;
}

}  // namespace
}  // namespace orvanta::bench

int main(int argc, char** argv) {
  using namespace orvanta::bench;
  register_document(make_document("library_list", make_library_list(), &library_list_codec));
  register_document(make_document("search", make_search_result(), &search_result_codec));
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}
