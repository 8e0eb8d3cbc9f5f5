#include "desktop_link/request_id.hpp"

#include <array>
#include <random>

#include <boost/uuid/random_generator.hpp>
#include <boost/uuid/uuid.hpp>
#include <boost/uuid/uuid_io.hpp>

namespace orvanta::link {
namespace {

std::mt19937 seeded_engine() {
  std::random_device device("/dev/urandom");
  std::array<std::random_device::result_type, 8> words{};
  for (auto& word : words) word = device();
  std::seed_seq sequence(words.begin(), words.end());
  return std::mt19937(sequence);
}

// The uuid generator keeps a reference to the engine, so both live together
// and never move.
struct IdGenerator {
  std::mt19937 engine = seeded_engine();
  boost::uuids::basic_random_generator<std::mt19937> uuids{engine};
};

}  // namespace

std::string new_request_id() {
  static IdGenerator generator;
  return boost::uuids::to_string(generator.uuids());
}

}  // namespace orvanta::link
