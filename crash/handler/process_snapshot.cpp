#include "crash/handler/process_snapshot.hpp"

#include "crash/handler/minidump_format.hpp"
#include "crash/store/file_io.hpp"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <dirent.h>
#include <elf.h>
#include <sys/ptrace.h>
#include <sys/uio.h>
#include <sys/user.h>
#include <sys/wait.h>
#include <ucontext.h>

namespace orvanta::crash {
namespace {

// Below the stack pointer, leaf functions on x86-64 may keep data in the
// 128-byte red zone.
constexpr std::uint64_t kRedZone = 128;
constexpr std::uint64_t kCodeAround = 128;

template <typename T>
std::string bytes_of(const T& value) {
  return std::string(reinterpret_cast<const char*>(&value), sizeof value);
}

#if defined(__x86_64__)
// The dump's context from general registers named by their role.
struct Amd64Registers {
  std::uint64_t rax, rbx, rcx, rdx, rsi, rdi, rbp, rsp;
  std::uint64_t r8, r9, r10, r11, r12, r13, r14, r15, rip, eflags;
  std::uint16_t cs, ss, ds, es, fs, gs;
};

std::string amd64_context(const Amd64Registers& r, const void* fxsave) {
  minidump::ContextAmd64 c;
  c.rax = r.rax; c.rbx = r.rbx; c.rcx = r.rcx; c.rdx = r.rdx;
  c.rsi = r.rsi; c.rdi = r.rdi; c.rbp = r.rbp; c.rsp = r.rsp;
  c.r8 = r.r8; c.r9 = r.r9; c.r10 = r.r10; c.r11 = r.r11;
  c.r12 = r.r12; c.r13 = r.r13; c.r14 = r.r14; c.r15 = r.r15;
  c.rip = r.rip;
  c.eflags = static_cast<std::uint32_t>(r.eflags);
  c.cs = r.cs; c.ss = r.ss; c.ds = r.ds; c.es = r.es; c.fs = r.fs; c.gs = r.gs;
  if (fxsave != nullptr) {
    std::memcpy(c.fxsave, fxsave, sizeof c.fxsave);
    std::memcpy(&c.mx_csr, c.fxsave + 24, sizeof c.mx_csr);  // MXCSR's place in FXSAVE
  }
  return bytes_of(c);
}
#endif

// Stops thread `tid` of another process with ptrace and copies its
// registers and stack while it stands; it goes on once let go.
bool read_thread(pid_t tid, const std::vector<Mapping>& maps, const MemoryReader& memory,
                 ThreadSnapshot& thread) {
  if (ptrace(PTRACE_SEIZE, tid, nullptr, nullptr) != 0) return false;
  bool ok = false;
  int status = 0;
  if (ptrace(PTRACE_INTERRUPT, tid, nullptr, nullptr) == 0 &&
      waitpid(tid, &status, __WALL) == tid) {
#if defined(__x86_64__)
    user_regs_struct regs{};
    user_fpregs_struct fp{};
    ok = ptrace(PTRACE_GETREGS, tid, nullptr, &regs) == 0;
    bool has_fp = ptrace(PTRACE_GETFPREGS, tid, nullptr, &fp) == 0;
    if (ok) {
      Amd64Registers r{regs.rax, regs.rbx, regs.rcx, regs.rdx, regs.rsi, regs.rdi,
                       regs.rbp, regs.rsp, regs.r8,  regs.r9,  regs.r10, regs.r11,
                       regs.r12, regs.r13, regs.r14, regs.r15, regs.rip, regs.eflags,
                       static_cast<std::uint16_t>(regs.cs), static_cast<std::uint16_t>(regs.ss),
                       static_cast<std::uint16_t>(regs.ds), static_cast<std::uint16_t>(regs.es),
                       static_cast<std::uint16_t>(regs.fs), static_cast<std::uint16_t>(regs.gs)};
      thread.context = amd64_context(r, has_fp ? &fp : nullptr);
      thread.pc = regs.rip;
      thread.sp = regs.rsp;
      thread.stack = copy_stack(maps, memory, thread.sp);
    }
#else
    (void)maps;
    (void)memory;
#endif
  }
  ptrace(PTRACE_DETACH, tid, nullptr, nullptr);
  return ok;
}

std::vector<pid_t> threads_of(pid_t pid) {
  std::vector<pid_t> tids;
  std::string path = "/proc/" + std::to_string(pid) + "/task";
  DIR* dir = opendir(path.c_str());
  if (dir == nullptr) return tids;
  while (const dirent* entry = readdir(dir)) {
    if (entry->d_name[0] >= '0' && entry->d_name[0] <= '9') {
      tids.push_back(std::atoi(entry->d_name));
    }
  }
  closedir(dir);
  std::sort(tids.begin(), tids.end());
  return tids;
}

template <typename T>
bool read_value(const MemoryReader& memory, std::uint64_t address, T& value) {
  return memory.read(address, &value, sizeof value);
}

// The GNU build id among the notes of one PT_NOTE segment.
std::string build_id_in_notes(const std::string& notes) {
  std::size_t at = 0;
  while (at + sizeof(Elf64_Nhdr) <= notes.size()) {
    Elf64_Nhdr header;
    std::memcpy(&header, notes.data() + at, sizeof header);
    std::size_t name_at = at + sizeof header;
    std::size_t desc_at = name_at + ((header.n_namesz + 3) & ~3u);
    std::size_t next = desc_at + ((header.n_descsz + 3) & ~3u);
    if (next > notes.size()) break;
    if (header.n_type == NT_GNU_BUILD_ID && header.n_namesz == 4 &&
        notes.compare(name_at, 4, std::string("GNU\0", 4)) == 0) {
      return notes.substr(desc_at, header.n_descsz);
    }
    at = next;
  }
  return {};
}

// Reads the module's program headers where it is loaded; the build id
// note lies in its first, read-only segment.
std::string build_id_at(const MemoryReader& memory, std::uint64_t base) {
  Elf64_Ehdr elf{};
  if (!read_value(memory, base, elf) || std::memcmp(elf.e_ident, ELFMAG, SELFMAG) != 0 ||
      elf.e_ident[EI_CLASS] != ELFCLASS64 || elf.e_phentsize != sizeof(Elf64_Phdr) ||
      elf.e_phnum > 256) {
    return {};
  }
  std::vector<Elf64_Phdr> headers(elf.e_phnum);
  if (!memory.read(base + elf.e_phoff, headers.data(), headers.size() * sizeof(Elf64_Phdr))) {
    return {};
  }
  std::uint64_t first_load = UINT64_MAX;
  for (const Elf64_Phdr& h : headers) {
    if (h.p_type == PT_LOAD) first_load = std::min(first_load, h.p_vaddr & ~std::uint64_t{0xfff});
  }
  if (first_load == UINT64_MAX) return {};
  std::uint64_t bias = base - first_load;
  for (const Elf64_Phdr& h : headers) {
    if (h.p_type != PT_NOTE || h.p_filesz == 0 || h.p_filesz > 64 * 1024) continue;
    std::string notes(h.p_filesz, '\0');
    if (!memory.read(bias + h.p_vaddr, notes.data(), notes.size())) continue;
    std::string id = build_id_in_notes(notes);
    if (!id.empty()) return id;
  }
  return {};
}

bool is_elf_at(const MemoryReader& memory, std::uint64_t address) {
  char magic[SELFMAG];
  return memory.read(address, magic, sizeof magic) && std::memcmp(magic, ELFMAG, SELFMAG) == 0;
}

std::string read_or_note(const std::string& path, std::vector<std::string>& notes) {
  auto text = read_file(path);
  if (!text) notes.push_back(path + " unreadable: " + std::strerror(errno));
  return text.value_or("");
}

}  // namespace

std::string context_from_signal(const CrashContext& context, std::uint64_t& pc,
                                std::uint64_t& sp) {
#if defined(__x86_64__)
  const auto& g = context.general;
  auto reg = [&](int index) { return g[static_cast<std::size_t>(index)]; };
  Amd64Registers r{reg(REG_RAX), reg(REG_RBX), reg(REG_RCX), reg(REG_RDX), reg(REG_RSI),
                   reg(REG_RDI), reg(REG_RBP), reg(REG_RSP), reg(REG_R8),  reg(REG_R9),
                   reg(REG_R10), reg(REG_R11), reg(REG_R12), reg(REG_R13), reg(REG_R14),
                   reg(REG_R15), reg(REG_RIP), reg(REG_EFL),
                   // CSGSFS packs cs, gs and fs as 16-bit fields.
                   static_cast<std::uint16_t>(reg(REG_CSGSFS)), 0, 0, 0,
                   static_cast<std::uint16_t>(reg(REG_CSGSFS) >> 32),
                   static_cast<std::uint16_t>(reg(REG_CSGSFS) >> 16)};
  pc = r.rip;
  sp = r.rsp;
  return amd64_context(r, context.has_fp != 0 ? context.fp.data() : nullptr);
#else
  (void)context;
  pc = 0;
  sp = 0;
  return {};
#endif
}

MemoryRegion copy_stack(const std::vector<Mapping>& maps, const MemoryReader& memory,
                        std::uint64_t sp) {
  MemoryRegion stack;
  const Mapping* mapping = find_mapping(maps, sp);
  if (mapping == nullptr) return stack;
  std::uint64_t start = std::max(mapping->start, (sp - kRedZone) & ~std::uint64_t{15});
  std::uint64_t end = std::min(mapping->end, start + kMaxStackBytes);
  stack.bytes.resize(end - start);
  if (!memory.read(start, stack.bytes.data(), stack.bytes.size())) return {};
  stack.start = start;
  return stack;
}

std::vector<ModuleSnapshot> find_modules(const std::vector<Mapping>& maps,
                                         const MemoryReader& memory) {
  std::vector<ModuleSnapshot> modules;
  for (std::size_t i = 0; i < maps.size(); ++i) {
    const Mapping& first = maps[i];
    if (first.path.empty() || first.path[0] == '[' || first.offset != 0 ||
        !is_elf_at(memory, first.start)) {
      continue;
    }
    // The module spans every following mapping of the same file, and the
    // anonymous gaps between them that belong to its segments.
    std::uint64_t end = first.end;
    for (std::size_t j = i + 1; j < maps.size(); ++j) {
      if (maps[j].path == first.path && maps[j].inode == first.inode) end = maps[j].end;
      else if (!maps[j].path.empty()) break;
    }
    modules.push_back(
        {first.start, end - first.start, first.path, build_id_at(memory, first.start)});
  }
  return modules;
}

ProcessSnapshot capture_process(pid_t pid, const CrashMessage& message) {
  ProcessSnapshot snapshot;
  snapshot.pid = pid;
  snapshot.crashing_tid = message.tid;
  snapshot.signal = message.signal;
  snapshot.code = message.code;
  snapshot.fault_address = message.fault_address;

  const std::string proc = "/proc/" + std::to_string(pid);
  snapshot.maps = read_or_note(proc + "/maps", snapshot.notes);
  snapshot.auxv = read_or_note(proc + "/auxv", snapshot.notes);
  snapshot.cmdline = read_or_note(proc + "/cmdline", snapshot.notes);
  snapshot.status = read_or_note(proc + "/status", snapshot.notes);
  snapshot.cpu_info = read_file("/proc/cpuinfo").value_or("");
  // System files, which distributions often make links.
  snapshot.os_release = read_file("/etc/lsb-release", true)
                            .value_or(read_file("/etc/os-release", true).value_or(""));
  std::vector<Mapping> maps = parse_maps(snapshot.maps);
  ProcessMemory memory(pid);
  if (memory.open_error() != 0) {
    snapshot.notes.push_back("memory unreadable: " +
                             std::string(std::strerror(memory.open_error())));
  }

  ThreadSnapshot crashing;
  crashing.tid = message.tid;
  crashing.context = context_from_signal(message.context, crashing.pc, crashing.sp);
  crashing.stack = copy_stack(maps, memory, crashing.sp);
  snapshot.threads.push_back(std::move(crashing));
  for (pid_t tid : threads_of(pid)) {
    if (tid == message.tid) continue;
    ThreadSnapshot thread;
    thread.tid = tid;
    if (!read_thread(tid, maps, memory, thread)) {
      snapshot.notes.push_back("thread " + std::to_string(tid) +
                               " unreadable: " + std::strerror(errno));
    }
    snapshot.threads.push_back(std::move(thread));
  }

  snapshot.modules = find_modules(maps, memory);
  std::uint64_t pc = snapshot.threads.front().pc;
  if (const Mapping* code = find_mapping(maps, pc)) {
    std::uint64_t start = std::max(code->start, pc - kCodeAround);
    std::uint64_t end = std::min(code->end, pc + kCodeAround);
    MemoryRegion region{start, std::string(end - start, '\0')};
    if (memory.read(start, region.bytes.data(), region.bytes.size())) {
      snapshot.extra_memory.push_back(std::move(region));
    }
  }
  return snapshot;
}

}  // namespace orvanta::crash
