#include "crash/handler/stack_walk.hpp"

#include <algorithm>
#include <array>

namespace orvanta::crash {
namespace {

bool points_into_code(const std::vector<Mapping>& maps, std::uint64_t address) {
  const Mapping* mapping = find_mapping(maps, address);
  return mapping != nullptr && mapping->executable();
}

// The instruction that ends right before `address` is a call.
bool follows_call(const MemoryReader& memory, std::uint64_t address) {
#if defined(__x86_64__)
  std::array<std::uint8_t, 8> before{};  // before[7] is the byte right before
  if (address < before.size() || !memory.read(address - before.size(), before.data(), 8)) {
    return false;
  }
  if (before[3] == 0xe8) return true;  // call rel32
  // call r/m64 (opcode FF, ModRM reg field 2), two to eight bytes long with
  // its displacement, SIB byte and prefixes.
  for (std::size_t length = 2; length <= 8; ++length) {
    std::size_t opcode = before.size() - length;
    if (before[opcode] == 0xff && (before[opcode + 1] & 0x38) == 0x10) return true;
  }
  return false;
#elif defined(__aarch64__)
  std::uint32_t instruction = 0;
  if (address < 4 || !memory.read(address - 4, &instruction, 4)) return false;
  return (instruction & 0xfc000000u) == 0x94000000u ||  // bl
         (instruction & 0xfffffc1fu) == 0xd63f0000u;    // blr
#else
  (void)memory;
  (void)address;
  return true;
#endif
}

void add_frame(std::vector<StackFrame>& frames, StackFrame frame) {
  if (frames.size() < kMaxFrames) frames.push_back(frame);
}

// The return address of a function that has not set up its frame.
void add_leaf_caller(const CrashRegisters& registers, const std::vector<Mapping>& maps,
                     const MemoryReader& memory, std::vector<StackFrame>& frames) {
#if defined(__x86_64__)
  std::uint64_t candidate = 0;
  if (!memory.read(registers.sp, &candidate, sizeof candidate)) return;
#else
  std::uint64_t candidate = registers.lr;
#endif
  if (candidate != 0 && is_return_address(maps, memory, candidate)) {
    add_frame(frames, {candidate, FrameTrust::scan});
  }
}

void follow_frame_pointers(const CrashRegisters& registers, const Mapping& stack,
                           const std::vector<Mapping>& maps, const MemoryReader& memory,
                           std::vector<StackFrame>& frames) {
  std::uint64_t fp = registers.fp;
  std::uint64_t floor = registers.sp;  // frames only ever lie further up
  while (frames.size() < kMaxFrames) {
    if (fp < floor || fp % 8 != 0 || fp + 16 > stack.end) return;
    std::array<std::uint64_t, 2> record{};  // saved fp, return address
    if (!memory.read(fp, record.data(), sizeof record)) return;
    if (!is_return_address(maps, memory, record[1])) return;
    // The leaf's caller may already stand there, found from the stack top.
    if (frames.back().address != record[1]) {
      add_frame(frames, {record[1], FrameTrust::frame_pointer});
    }
    floor = fp + 16;
    fp = record[0];
  }
}

void scan_stack(const CrashRegisters& registers, const Mapping& stack,
                const std::vector<Mapping>& maps, const MemoryReader& memory,
                std::vector<StackFrame>& frames) {
  constexpr std::size_t kChunkWords = 512;
  std::array<std::uint64_t, kChunkWords> chunk{};
  std::uint64_t address = registers.sp & ~std::uint64_t{7};
  std::uint64_t end = std::min(stack.end, address + kScanBytes);
  // The leaf caller, when there is one, was the word at sp.
  if (frames.size() > 1) address += 8;
  while (address < end && frames.size() < kMaxFrames) {
    std::size_t words = std::min<std::uint64_t>(kChunkWords, (end - address) / 8);
    if (words == 0 || !memory.read(address, chunk.data(), words * 8)) return;
    for (std::size_t i = 0; i < words; ++i) {
      if (is_return_address(maps, memory, chunk[i])) {
        add_frame(frames, {chunk[i], FrameTrust::scan});
      }
    }
    address += words * 8;
  }
}

}  // namespace

std::string_view trust_name(FrameTrust trust) {
  switch (trust) {
    case FrameTrust::context: return "context";
    case FrameTrust::frame_pointer: return "frame_pointer";
    case FrameTrust::scan: return "scan";
  }
  return "unknown";
}

bool is_return_address(const std::vector<Mapping>& maps, const MemoryReader& memory,
                       std::uint64_t address) {
  return points_into_code(maps, address) && follows_call(memory, address);
}

std::vector<StackFrame> walk_stack(const CrashRegisters& registers,
                                   const std::vector<Mapping>& maps,
                                   const MemoryReader& memory) {
  std::vector<StackFrame> frames{{registers.pc, FrameTrust::context}};
  const Mapping* stack = find_mapping(maps, registers.sp);
  if (stack == nullptr) return frames;
  add_leaf_caller(registers, maps, memory, frames);
  std::size_t before_chain = frames.size();
  follow_frame_pointers(registers, *stack, maps, memory, frames);
  if (frames.size() == before_chain) scan_stack(registers, *stack, maps, memory, frames);
  return frames;
}

}  // namespace orvanta::crash
