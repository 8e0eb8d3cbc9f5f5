// Sequential round trips through the whole client (run_and_wait on the main
// thread, the IO thread, the request lock, framing, envelope and result
// decoding) against an in-process desktop client, beside the floor for the
// same exchange: a plain blocking socket writing the same request frame and
// reading the same reply frame from the same peer.
//
//   BM_RoundTrip/<client|floor>/<small|large>
//
// small: a `playback_pause` and its empty result; large: a result of 1 MiB.

#include <benchmark/benchmark.h>

#include <atomic>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>
#include <thread>

#include <asio/connect.hpp>
#include <asio/io_context.hpp>
#include <asio/ip/tcp.hpp>
#include <asio/read.hpp>
#include <asio/write.hpp>

#include "desktop_link/client_id.hpp"
#include "desktop_link/io_thread.hpp"
#include "desktop_link/partner_api_client.hpp"

namespace {

namespace link = orvanta::link;
using asio::ip::tcp;

constexpr std::size_t large_size = 1024 * 1024;

std::string frame(std::string_view payload) {
  std::string bytes(5 + payload.size(), '\0');
  bytes[0] = '\x1d';
  const auto length = static_cast<std::uint32_t>(payload.size());
  std::memcpy(bytes.data() + 1, &length, 4);
  std::memcpy(bytes.data() + 5, payload.data(), payload.size());
  return bytes;
}

std::string read_frame(tcp::socket& socket) {
  char header[5];
  asio::read(socket, asio::buffer(header, 5));
  std::uint32_t length = 0;
  std::memcpy(&length, header + 1, 4);
  std::string payload(length, '\0');
  asio::read(socket, asio::buffer(payload));
  return payload;
}

std::string_view field(std::string_view text, std::string_view key) {
  const auto at = text.find(key);
  if (at == std::string_view::npos) return {};
  const auto begin = at + key.size();
  return text.substr(begin, text.find('"', begin) - begin);
}

// The desktop client: answers every request of every connection, one
// connection at a time, on a thread of its own with blocking sockets.
class Peer {
 public:
  Peer() : acceptor_(context_, {asio::ip::make_address_v4("127.0.0.1"), 0}) {
    large_result_ = R"({"hash":")" + std::string(large_size, 'h') + R"(","salt":"s"})";
    thread_ = std::thread([this] { serve(); });
  }
  ~Peer() {
    stopping_ = true;
    // Wake the accept with a connection that closes at once.
    tcp::socket poke(context_);
    poke.connect(acceptor_.local_endpoint());
    poke.close();
    thread_.join();
  }
  std::uint16_t port() const { return acceptor_.local_endpoint().port(); }

 private:
  void serve() {
    while (!stopping_) {
      tcp::socket socket(context_);
      acceptor_.accept(socket);
      socket.set_option(tcp::no_delay(true));
      try {
        for (;;) answer(socket, read_frame(socket));
      } catch (const std::system_error&) {
        // The other side hung up; take the next connection.
      }
    }
  }

  void answer(tcp::socket& socket, const std::string& request) {
    const std::string_view method = field(request, R"("method":")");
    const std::string_view id = field(request, R"("id":")");
    std::string_view result = "{}";
    if (method == "authorize_connection") result = R"({"orvanta_app_version":"1"})";
    if (method == "get_username_hash") result = large_result_;
    std::string reply = R"({"jsonrpc":"2.0","id":")";
    reply.append(id).append(R"(","result":)").append(result).append("}");
    asio::write(socket, asio::buffer(frame(reply)));
  }

  asio::io_context context_;
  tcp::acceptor acceptor_;
  std::string large_result_;
  std::atomic<bool> stopping_{false};
  std::thread thread_;
};

Peer* the_peer = nullptr;

// The command runner's shape: context, IO thread, connected client.
struct ClientRuntime {
  ClientRuntime() {
    link::wait_until_running(context);
    link::ConnectSettings settings;
    settings.ports = {the_peer->port()};
    client = std::make_unique<link::PartnerApiClient>(link::client_id(), link::client_name, link::client_version,
                                                      context, nullptr, settings);
    if (link::run_and_wait(context, client->connect())) throw std::runtime_error("connect failed");
  }
  ~ClientRuntime() {
    client->disconnect();
    context.stop();
    client.reset();
  }
  asio::io_context context;
  link::IoThread io_thread{context};
  std::unique_ptr<link::PartnerApi> client;
};

void client_small(benchmark::State& state) {
  ClientRuntime runtime;
  for (auto _ : state) {
    std::error_code ec = link::run_and_wait(runtime.context, runtime.client->playback_pause());
    if (ec) state.SkipWithError(ec.message().c_str());
  }
}

void client_large(benchmark::State& state) {
  ClientRuntime runtime;
  for (auto _ : state) {
    auto hash = link::run_and_wait(runtime.context, runtime.client->get_username_hash());
    if (!hash || hash->hash.size() != large_size) state.SkipWithError("bad result");
    benchmark::DoNotOptimize(hash);
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * large_size));
}

void floor_round_trip(benchmark::State& state, std::string_view method, std::size_t expected_at_least) {
  asio::io_context context;
  tcp::socket socket(context);
  socket.connect({asio::ip::make_address_v4("127.0.0.1"), the_peer->port()});
  const std::string id = "0b7e4f6a-3c1d-4e2f-9a8b-7c6d5e4f3a2b";
  const std::string request = R"({"jsonrpc":"2.0","method":")" + std::string(method) + R"(","params":{},"id":")" +
                              id + R"("})";
  for (auto _ : state) {
    asio::write(socket, asio::buffer(frame(request)));
    std::string reply = read_frame(socket);
    if (reply.size() < expected_at_least) state.SkipWithError("short reply");
    benchmark::DoNotOptimize(reply);
  }
}

void floor_small(benchmark::State& state) { floor_round_trip(state, "playback_pause", 10); }

void floor_large(benchmark::State& state) {
  floor_round_trip(state, "get_username_hash", large_size);
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * large_size));
}

}  // namespace

int main(int argc, char** argv) {
  Peer peer;
  the_peer = &peer;
  benchmark::RegisterBenchmark("BM_RoundTrip/client/small", client_small)->UseRealTime();
  benchmark::RegisterBenchmark("BM_RoundTrip/floor/small", floor_small)->UseRealTime();
  benchmark::RegisterBenchmark("BM_RoundTrip/client/large", client_large)->UseRealTime();
  benchmark::RegisterBenchmark("BM_RoundTrip/floor/large", floor_large)->UseRealTime();
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}
