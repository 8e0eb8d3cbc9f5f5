#pragma once

// The on-disk layout of a minidump as crash tooling reads it on Linux:
// little-endian, packed to four bytes, every reference a 32-bit offset
// (RVA) from the start of the file.

#include <cstdint>

namespace orvanta::crash::minidump {

inline constexpr std::uint32_t kSignature = 0x504d444d;  // "MDMP"
inline constexpr std::uint32_t kVersion = 0xa793;

// Stream types.
inline constexpr std::uint32_t kThreadListStream = 3;
inline constexpr std::uint32_t kModuleListStream = 4;
inline constexpr std::uint32_t kMemoryListStream = 5;
inline constexpr std::uint32_t kExceptionStream = 6;
inline constexpr std::uint32_t kSystemInfoStream = 7;
inline constexpr std::uint32_t kLinuxCpuInfoStream = 0x47670003;
inline constexpr std::uint32_t kLinuxProcStatusStream = 0x47670004;
inline constexpr std::uint32_t kLinuxLsbReleaseStream = 0x47670005;
inline constexpr std::uint32_t kLinuxCmdLineStream = 0x47670006;
inline constexpr std::uint32_t kLinuxAuxvStream = 0x47670008;
inline constexpr std::uint32_t kLinuxMapsStream = 0x47670009;

inline constexpr std::uint16_t kCpuArchitectureAmd64 = 9;
inline constexpr std::uint16_t kCpuArchitectureArm64 = 12;
inline constexpr std::uint16_t kCpuArchitectureUnknown = 0xffff;
inline constexpr std::uint32_t kPlatformLinux = 0x8201;

// A CodeView record of an ELF module: this signature, then the GNU build id.
inline constexpr std::uint32_t kCodeViewElfSignature = 0x4270454c;  // "BpEL"

// context_flags of an x86-64 context: control, integer and floating point
// registers present.
inline constexpr std::uint32_t kContextAmd64 = 0x00100000;
inline constexpr std::uint32_t kContextAmd64Full = kContextAmd64 | 0x1 | 0x2 | 0x8;

#pragma pack(push, 4)

struct Header {
  std::uint32_t signature = kSignature;
  std::uint32_t version = kVersion;
  std::uint32_t stream_count = 0;
  std::uint32_t stream_directory_rva = 0;
  std::uint32_t checksum = 0;
  std::uint32_t time_date_stamp = 0;
  std::uint64_t flags = 0;
};

struct Location {
  std::uint32_t data_size = 0;
  std::uint32_t rva = 0;
};

struct Directory {
  std::uint32_t stream_type = 0;
  Location location;
};

struct MemoryDescriptor {
  std::uint64_t start = 0;
  Location memory;
};

struct Thread {
  std::uint32_t thread_id = 0;
  std::uint32_t suspend_count = 0;
  std::uint32_t priority_class = 0;
  std::uint32_t priority = 0;
  std::uint64_t teb = 0;
  MemoryDescriptor stack;
  Location context;
};

struct VersionInfo {
  std::uint32_t words[13] = {};
};

struct Module {
  std::uint64_t base = 0;
  std::uint32_t size = 0;
  std::uint32_t checksum = 0;
  std::uint32_t time_date_stamp = 0;
  std::uint32_t name_rva = 0;
  VersionInfo version;
  Location cv_record;
  Location misc_record;
  std::uint64_t reserved0 = 0;
  std::uint64_t reserved1 = 0;
};

struct Exception {
  std::uint32_t thread_id = 0;
  std::uint32_t alignment = 0;
  std::uint32_t code = 0;   // the signal
  std::uint32_t flags = 0;  // its si_code
  std::uint64_t record = 0;
  std::uint64_t address = 0;
  std::uint32_t parameter_count = 0;
  std::uint32_t alignment2 = 0;
  std::uint64_t information[15] = {};
  Location context;
};

struct SystemInfo {
  std::uint16_t processor_architecture = kCpuArchitectureUnknown;
  std::uint16_t processor_level = 0;
  std::uint16_t processor_revision = 0;
  std::uint8_t processor_count = 0;
  std::uint8_t product_type = 0;
  std::uint32_t major_version = 0;
  std::uint32_t minor_version = 0;
  std::uint32_t build_number = 0;
  std::uint32_t platform_id = kPlatformLinux;
  std::uint32_t csd_version_rva = 0;
  std::uint16_t suite_mask = 0;
  std::uint16_t reserved = 0;
  std::uint32_t vendor_id[3] = {};
  std::uint32_t version_information = 0;
  std::uint32_t feature_information = 0;
  std::uint32_t amd_extended_features = 0;
};

struct ContextAmd64 {
  std::uint64_t home[6] = {};
  std::uint32_t context_flags = kContextAmd64Full;
  std::uint32_t mx_csr = 0;
  std::uint16_t cs = 0, ds = 0, es = 0, fs = 0, gs = 0, ss = 0;
  std::uint32_t eflags = 0;
  std::uint64_t dr[6] = {};
  std::uint64_t rax = 0, rcx = 0, rdx = 0, rbx = 0, rsp = 0, rbp = 0, rsi = 0, rdi = 0;
  std::uint64_t r8 = 0, r9 = 0, r10 = 0, r11 = 0, r12 = 0, r13 = 0, r14 = 0, r15 = 0;
  std::uint64_t rip = 0;
  std::uint8_t fxsave[512] = {};
  std::uint8_t vector_registers[26 * 16] = {};
  std::uint64_t vector_control = 0;
  std::uint64_t debug_control = 0;
  std::uint64_t last_branch_to_rip = 0;
  std::uint64_t last_branch_from_rip = 0;
  std::uint64_t last_exception_to_rip = 0;
  std::uint64_t last_exception_from_rip = 0;
};

#pragma pack(pop)

static_assert(sizeof(Header) == 32);
static_assert(sizeof(Directory) == 12);
static_assert(sizeof(MemoryDescriptor) == 16);
static_assert(sizeof(Thread) == 48);
static_assert(sizeof(Module) == 108);
static_assert(sizeof(Exception) == 168);
static_assert(sizeof(SystemInfo) == 56);
static_assert(sizeof(ContextAmd64) == 1232);

}  // namespace orvanta::crash::minidump
