#pragma once

#include <array>
#include <cstdint>
#include <type_traits>

namespace orvanta::crash {

// The conversation between a client and its handler process over their
// socket pair. A client that receives a fatal signal writes one
// CrashMessage followed by the bytes of its SimpleStringDictionary (all
// zero when it has none), and waits for kReportWritten, which the handler
// sends once the report is in pending/ or has failed for good. The client
// may write before the handler has finished starting: the message waits in
// the socket.
inline constexpr char kReportWritten = 'W';
inline constexpr std::uint32_t kCrashMessageMagic = 0x3152434f;  // "OCR1" in memory order

// The registers of the crashing thread as its signal delivered them. On
// x86-64 `general` holds the signal context's general registers in their
// mcontext order (NGREG of them) and `fp` the FXSAVE area; elsewhere both
// stay zero.
struct CrashContext {
  std::array<std::uint64_t, 32> general{};
  std::array<std::uint8_t, 512> fp{};
  std::uint32_t has_fp = 0;
  std::uint32_t reserved = 0;
};

struct CrashMessage {
  std::uint32_t magic = kCrashMessageMagic;
  std::int32_t tid = 0;
  std::int32_t signal = 0;
  std::int32_t code = 0;              // si_code
  std::uint64_t fault_address = 0;    // si_addr; zero for a signal sent by a process
  std::uint32_t has_annotations = 0;  // 1 when the dictionary bytes are a real table
  std::uint32_t reserved = 0;
  CrashContext context;
};

static_assert(std::is_trivially_copyable_v<CrashMessage>);
static_assert(sizeof(CrashMessage) == 32 + 256 + 512 + 8);

}  // namespace orvanta::crash
