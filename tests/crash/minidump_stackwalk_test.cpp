// Our dumps read by a reader we did not write: Breakpad's dump_syms and
// minidump_stackwalk, which scripts/install-deps fetches. Without them the
// tests skip, saying so.

#include "tests/crash/test_support.hpp"
#include "tests/support/process.hpp"

#include <gtest/gtest.h>

#include <cstdlib>
#include <dlfcn.h>
#include <exception>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <unistd.h>

namespace orvanta::crash::test {
namespace {

const std::string kTools = ORVANTA_MINIDUMP_TOOLS;

// The symbols of `module` in a store laid out as the reader looks them up:
// NAME/ID/NAME.sym. Returns the module's id, empty on failure.
std::string add_symbols(const std::string& store, const std::string& module) {
  std::string symbols = testing::run_process(kTools + "/dump_syms", {module}).out;
  std::istringstream first(symbols);
  std::string word, os, arch, id, name;
  if (!(first >> word >> os >> arch >> id >> name) || word != "MODULE") return {};
  std::filesystem::create_directories(store + "/" + name + "/" + id);
  std::ofstream(store + "/" + name + "/" + id + "/" + name + ".sym") << symbols;
  return id;
}

// The helper's symbols, and those of the C and C++ libraries, whose unwind
// tables take the reader through abort() and std::thread::join() as a crash
// server's system symbols would.
std::string make_symbol_store(const std::string& store) {
  for (void* function :
       {reinterpret_cast<void*>(&::abort), reinterpret_cast<void*>(&std::terminate)}) {
    Dl_info library{};
    if (dladdr(function, &library) != 0 && library.dli_fname != nullptr) {
      add_symbols(store, library.dli_fname);
    }
  }
  return add_symbols(store, helper_path());
}

// minidump_stackwalk's machine-readable output, one row of '|'-separated
// fields a line.
std::vector<std::vector<std::string>> walk(const std::string& dump, const std::string& store) {
  std::istringstream lines(
      testing::run_process(kTools + "/minidump_stackwalk", {"-m", dump, store}).out);
  std::vector<std::vector<std::string>> rows;
  for (std::string line; std::getline(lines, line);) {
    std::istringstream in(line);
    rows.emplace_back();
    for (std::string field; std::getline(in, field, '|');) rows.back().push_back(field);
  }
  return rows;
}

struct Case {
  const char* mode;
  const char* reason;
  const char* function;        // in the crashing thread's top frames
  const char* other_function;  // in another thread's stack; nullptr for none
};

class Stackwalk : public ::testing::TestWithParam<Case> {};

// The reader's view of a crash is checked on the program as shipped. Built
// with AddressSanitizer, the helper's frames and stacks are the sanitizer
// runtime's to arrange, and the reader's top frames no longer name the
// crashing function, so these cases run in the plain build only.
#if defined(__SANITIZE_ADDRESS__)
constexpr bool kSanitized = true;
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
constexpr bool kSanitized = true;
#else
constexpr bool kSanitized = false;
#endif
#else
constexpr bool kSanitized = false;
#endif

TEST_P(Stackwalk, NamesTheCrashTheThreadAndTheFunctionWithItsLine) {
  if (kSanitized) GTEST_SKIP() << "a sanitizer build arranges the crash's frames itself";
  if (access((kTools + "/minidump_stackwalk").c_str(), X_OK) != 0 ||
      access((kTools + "/dump_syms").c_str(), X_OK) != 0) {
    GTEST_SKIP() << "Breakpad's minidump tools are not in " << kTools
                 << "; scripts/install-deps fetches them";
  }
  const Case& c = GetParam();
  TempDir dir;
  std::string id = make_symbol_store(dir.path() + "/symbols");
  ASSERT_FALSE(id.empty());
  {
    HelperProcess helper(c.mode, dir.path());
    helper.read_facts();
    helper.wait();
  }
  std::string dump = only_pending_dump(dir.path() + "/com.orvanta.client/Crashpad");
  ASSERT_FALSE(dump.empty());

  // The crash line and the modules come before the threads' frames:
  // "THREAD|FRAME|MODULE|FUNCTION|FILE|LINE|OFFSET".
  std::string reason, crashing_thread;
  std::map<std::string, std::string> module_ids;
  bool named = false;
  bool other_found = false;
  for (const auto& f : walk(dump, dir.path() + "/symbols")) {
    if (f.size() >= 4 && f[0] == "Crash") {
      reason = f[1];
      crashing_thread = f[3];
    } else if (f.size() >= 5 && f[0] == "Module") {
      module_ids[f[1]] = f[4];
    } else if (f.size() >= 7 && f[0] == crashing_thread) {
      named = named || (std::atoi(f[1].c_str()) < 6 && f[3] == c.function &&
                        f[4].ends_with("/crash_test_helper.cpp") && std::atoi(f[5].c_str()) > 0);
    } else if (f.size() >= 7 && c.other_function != nullptr) {
      other_found = other_found || f[3] == c.other_function;
    }
  }
  EXPECT_EQ(reason, c.reason);
  ASSERT_FALSE(crashing_thread.empty());
  EXPECT_TRUE(named) << c.function << " with our file and a line, in the top frames";
  EXPECT_TRUE(c.other_function == nullptr || other_found) << "the waiting thread, read with ptrace";
  EXPECT_EQ(module_ids["crash_test_helper"], id);
  EXPECT_FALSE(module_ids["libc.so.6"].empty());
}

INSTANTIATE_TEST_SUITE_P(
    Crash, Stackwalk,
    ::testing::Values(Case{"segv", "SIGSEGV /SEGV_MAPERR", "write_to_fault_address", nullptr},
                      Case{"abort", "SIGABRT", "crash_by_abort", nullptr},
                      Case{"thread", "SIGSEGV /SEGV_MAPERR", "write_to_fault_address", "main"}),
    [](const auto& test) { return std::string(test.param.mode); });

}  // namespace
}  // namespace orvanta::crash::test
