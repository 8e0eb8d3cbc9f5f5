#pragma once

#include <cstdio>
#include <exception>
#include <system_error>

namespace orvanta::cli {

// Runs `body` and turns whatever it throws into one line on `err` and an
// exit status: a system error gives its code's value, any other exception 1.
template <class Body>
int run_guarded(std::FILE* err, Body&& body) {
  try {
    return body();
  } catch (const std::system_error& e) {
    std::fprintf(err, "Error: %s\n", e.what());
    return e.code().value();
  } catch (const std::exception& e) {
    std::fprintf(err, "Error: %s\n", e.what());
    return 1;
  } catch (...) {
    std::fprintf(err, "Error: unknown exception\n");
    return 1;
  }
}

}  // namespace orvanta::cli
