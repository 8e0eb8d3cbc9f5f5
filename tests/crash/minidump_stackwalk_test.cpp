// Our dumps read by a reader we did not write: Breakpad's dump_syms and
// minidump_stackwalk, which scripts/install-deps fetches. Without them the
// tests skip, saying so.

#include "crash/store/file_io.hpp"
#include "tests/crash/test_support.hpp"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <dlfcn.h>
#include <exception>
#include <filesystem>
#include <sstream>
#include <unistd.h>

namespace orvanta::crash::test {
namespace {

const std::string kTools = ORVANTA_MINIDUMP_TOOLS;

// stdout of a shell command; stderr is dropped.
std::string output_of(const std::string& command) {
  std::string text;
  FILE* pipe = popen((command + " 2>/dev/null").c_str(), "r");
  if (pipe == nullptr) return text;
  char buffer[4096];
  for (std::size_t got; (got = std::fread(buffer, 1, sizeof buffer, pipe)) > 0;) {
    text.append(buffer, got);
  }
  pclose(pipe);
  return text;
}

std::vector<std::string> split(const std::string& line, char separator) {
  std::vector<std::string> fields;
  std::istringstream in(line);
  for (std::string field; std::getline(in, field, separator);) fields.push_back(field);
  if (!line.empty() && line.back() == separator) fields.emplace_back();
  return fields;
}

// The symbols of `module` in a store laid out as the reader looks them up:
// NAME/ID/NAME.sym. Returns the module's id, empty on failure.
std::string add_symbols(const std::string& store, const std::string& module) {
  std::string symbols = output_of("'" + kTools + "/dump_syms' '" + module + "'");
  std::istringstream first(symbols.substr(0, symbols.find('\n')));
  std::string word, os, arch, id, name;
  if (!(first >> word >> os >> arch >> id >> name) || word != "MODULE") return {};
  std::filesystem::create_directories(store + "/" + name + "/" + id);
  std::FILE* file = std::fopen((store + "/" + name + "/" + id + "/" + name + ".sym").c_str(), "w");
  std::fwrite(symbols.data(), 1, symbols.size(), file);
  std::fclose(file);
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

struct Frame {
  std::string module, function, file;
  int line = 0;
};

// minidump_stackwalk's machine-readable output, taken apart.
struct Walk {
  std::string reason;
  int crashing_thread = -1;
  std::map<std::string, std::string> module_ids;  // by module name
  std::map<int, std::vector<Frame>> threads;
};

Walk walk(const std::string& dump, const std::string& store) {
  Walk result;
  std::istringstream lines(
      output_of("'" + kTools + "/minidump_stackwalk' -m '" + dump + "' '" + store + "'"));
  for (std::string line; std::getline(lines, line);) {
    auto f = split(line, '|');
    if (f.size() >= 4 && f[0] == "Crash") {
      result.reason = f[1];
      result.crashing_thread = std::atoi(f[3].c_str());
    } else if (f.size() >= 5 && f[0] == "Module") {
      result.module_ids[f[1]] = f[4];
    } else if (f.size() >= 7 && !f[0].empty() &&
               std::isdigit(static_cast<unsigned char>(f[0][0]))) {
      Frame frame{f[2], f[3], f[4], std::atoi(f[5].c_str())};
      result.threads[std::atoi(f[0].c_str())].push_back(frame);
    }
  }
  return result;
}

// Whether `function` is among the top frames, named with our file and a line.
bool names_in_top_frames(const std::vector<Frame>& frames, const std::string& function) {
  for (std::size_t i = 0; i < frames.size() && i < 6; ++i) {
    const Frame& f = frames[i];
    if (f.function == function && f.file.ends_with("/crash_test_helper.cpp") && f.line > 0) {
      return true;
    }
  }
  return false;
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

  Walk w = walk(dump, dir.path() + "/symbols");
  EXPECT_EQ(w.reason, c.reason);
  ASSERT_GE(w.crashing_thread, 0);
  EXPECT_TRUE(names_in_top_frames(w.threads[w.crashing_thread], c.function)) << c.function;
  if (c.other_function != nullptr) {
    bool found = false;
    for (const auto& [index, frames] : w.threads) {
      if (index == w.crashing_thread) continue;
      for (const Frame& frame : frames) found = found || frame.function == c.other_function;
    }
    EXPECT_TRUE(found) << "the waiting thread, read with ptrace";
  }
  EXPECT_EQ(w.module_ids["crash_test_helper"], id);
  EXPECT_FALSE(w.module_ids["libc.so.6"].empty());
}

INSTANTIATE_TEST_SUITE_P(
    Crash, Stackwalk,
    ::testing::Values(Case{"segv", "SIGSEGV /SEGV_MAPERR", "write_to_fault_address", nullptr},
                      Case{"abort", "SIGABRT", "crash_by_abort", nullptr},
                      Case{"thread", "SIGSEGV /SEGV_MAPERR", "write_to_fault_address", "main"}),
    [](const auto& test) { return std::string(test.param.mode); });

}  // namespace
}  // namespace orvanta::crash::test
