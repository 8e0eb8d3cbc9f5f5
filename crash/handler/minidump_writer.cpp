#include "crash/handler/minidump_writer.hpp"

#include "crash/handler/minidump_format.hpp"

#include <cstring>
#include <sys/utsname.h>
#include <unistd.h>
#include <vector>
#if defined(__x86_64__)
#include <cpuid.h>
#endif

namespace orvanta::crash {
namespace {

namespace md = minidump;

// Appends to one growing file; every block starts four-byte aligned.
class Builder {
 public:
  Builder() { out_.resize(sizeof(md::Header)); }

  md::Location append(const void* data, std::size_t size) {
    out_.resize((out_.size() + 3) & ~std::size_t{3});
    md::Location location{static_cast<std::uint32_t>(size),
                          static_cast<std::uint32_t>(out_.size())};
    out_.append(static_cast<const char*>(data), size);
    return location;
  }
  md::Location append(const std::string& bytes) { return append(bytes.data(), bytes.size()); }
  template <typename T>
  md::Location append_value(const T& value) { return append(&value, sizeof value); }

  // A length-prefixed UTF-16 string, as names are kept; returns its RVA.
  std::uint32_t append_string(const std::string& utf8) {
    std::u16string text = to_utf16(utf8);
    std::string bytes(4 + text.size() * 2 + 2, '\0');
    auto length = static_cast<std::uint32_t>(text.size() * 2);
    std::memcpy(bytes.data(), &length, 4);
    std::memcpy(bytes.data() + 4, text.data(), text.size() * 2);
    return append(bytes).rva;
  }

  // A list stream: the count, then the entries, unpadded.
  template <typename T>
  md::Location append_list(const std::vector<T>& entries) {
    std::string bytes(4 + entries.size() * sizeof(T), '\0');
    auto count = static_cast<std::uint32_t>(entries.size());
    std::memcpy(bytes.data(), &count, 4);
    if (!entries.empty()) std::memcpy(bytes.data() + 4, entries.data(), entries.size() * sizeof(T));
    return append(bytes);
  }

  void add_stream(std::uint32_t type, md::Location location) {
    directory_.push_back({type, location});
  }

  std::string finish(std::uint32_t time) {
    md::Location directory = append(directory_.data(), directory_.size() * sizeof(md::Directory));
    md::Header header;
    header.stream_count = static_cast<std::uint32_t>(directory_.size());
    header.stream_directory_rva = directory.rva;
    header.time_date_stamp = time;
    std::memcpy(out_.data(), &header, sizeof header);
    return std::move(out_);
  }

 private:
  static std::u16string to_utf16(const std::string& utf8) {
    std::u16string text;
    for (std::size_t i = 0; i < utf8.size();) {
      auto byte = static_cast<unsigned char>(utf8[i]);
      std::uint32_t code = byte;
      std::size_t length = byte < 0x80         ? 1
                           : byte >> 5 == 6    ? 2
                           : byte >> 4 == 14   ? 3
                           : byte >> 3 == 30   ? 4
                                               : 1;
      if (length > 1 && i + length <= utf8.size()) {
        code = byte & (0x7f >> length);
        for (std::size_t k = 1; k < length; ++k) {
          code = code << 6 | (static_cast<unsigned char>(utf8[i + k]) & 0x3f);
        }
      } else {
        length = 1;  // not UTF-8: the byte stands for itself
      }
      if (code >= 0x10000) {
        code -= 0x10000;
        text.push_back(static_cast<char16_t>(0xd800 + (code >> 10)));
        text.push_back(static_cast<char16_t>(0xdc00 + (code & 0x3ff)));
      } else {
        text.push_back(static_cast<char16_t>(code));
      }
      i += length;
    }
    return text;
  }

  std::string out_;
  std::vector<md::Directory> directory_;
};

md::SystemInfo system_info(Builder& builder) {
  md::SystemInfo info;
#if defined(__x86_64__)
  info.processor_architecture = md::kCpuArchitectureAmd64;
  unsigned eax = 0, ebx = 0, ecx = 0, edx = 0;
  if (__get_cpuid(0, &eax, &ebx, &ecx, &edx) != 0) {
    info.vendor_id[0] = ebx;
    info.vendor_id[1] = edx;
    info.vendor_id[2] = ecx;
  }
  if (__get_cpuid(1, &eax, &ebx, &ecx, &edx) != 0) {
    info.version_information = eax;
    info.feature_information = edx;
    unsigned family = (eax >> 8) & 0xf;
    unsigned model = (eax >> 4) & 0xf;
    if (family == 0xf) family += (eax >> 20) & 0xff;
    if (family >= 6) model += ((eax >> 16) & 0xf) << 4;
    info.processor_level = static_cast<std::uint16_t>(family);
    info.processor_revision = static_cast<std::uint16_t>(model << 8 | (eax & 0xf));
  }
#elif defined(__aarch64__)
  info.processor_architecture = md::kCpuArchitectureArm64;
#endif
  long cpus = sysconf(_SC_NPROCESSORS_ONLN);
  info.processor_count = static_cast<std::uint8_t>(cpus > 255 ? 255 : cpus > 0 ? cpus : 1);
  utsname name{};
  if (uname(&name) == 0) {
    unsigned version[3] = {0, 0, 0};
    std::sscanf(name.release, "%u.%u.%u", &version[0], &version[1], &version[2]);
    info.major_version = version[0];
    info.minor_version = version[1];
    info.build_number = version[2];
    info.csd_version_rva = builder.append_string(std::string(name.release) + " " + name.version +
                                                 " " + name.machine);
  } else {
    info.csd_version_rva = builder.append_string("");
  }
  return info;
}

md::MemoryDescriptor memory_of(Builder& builder, const MemoryRegion& region) {
  return {region.start, builder.append(region.bytes)};
}

}  // namespace

std::string write_minidump(const ProcessSnapshot& snapshot, std::uint32_t time) {
  Builder builder;

  md::SystemInfo info = system_info(builder);
  builder.add_stream(md::kSystemInfoStream, builder.append_value(info));

  std::vector<md::Thread> threads;
  std::vector<md::MemoryDescriptor> memory;
  md::Location crashing_context;
  for (const ThreadSnapshot& thread : snapshot.threads) {
    md::Thread entry;
    entry.thread_id = static_cast<std::uint32_t>(thread.tid);
    entry.context = builder.append(thread.context);
    if (!thread.stack.bytes.empty()) {
      entry.stack = memory_of(builder, thread.stack);
      memory.push_back(entry.stack);
    }
    if (thread.tid == snapshot.crashing_tid) crashing_context = entry.context;
    threads.push_back(entry);
  }
  builder.add_stream(md::kThreadListStream, builder.append_list(threads));

  md::Exception exception;
  exception.thread_id = static_cast<std::uint32_t>(snapshot.crashing_tid);
  exception.code = static_cast<std::uint32_t>(snapshot.signal);
  exception.flags = static_cast<std::uint32_t>(snapshot.code);
  exception.address = snapshot.fault_address;
  exception.context = crashing_context;
  builder.add_stream(md::kExceptionStream, builder.append_value(exception));

  std::vector<md::Module> modules;
  for (const ModuleSnapshot& module : snapshot.modules) {
    md::Module entry;
    entry.base = module.base;
    entry.size = static_cast<std::uint32_t>(module.size);
    entry.name_rva = builder.append_string(module.path);
    std::string cv(4, '\0');
    std::memcpy(cv.data(), &md::kCodeViewElfSignature, 4);
    cv += module.build_id;
    entry.cv_record = builder.append(cv);
    modules.push_back(entry);
  }
  builder.add_stream(md::kModuleListStream, builder.append_list(modules));

  for (const MemoryRegion& region : snapshot.extra_memory) {
    memory.push_back(memory_of(builder, region));
  }
  builder.add_stream(md::kMemoryListStream, builder.append_list(memory));

  const std::pair<std::uint32_t, const std::string*> linux_streams[] = {
      {md::kLinuxMapsStream, &snapshot.maps},
      {md::kLinuxAuxvStream, &snapshot.auxv},
      {md::kLinuxCmdLineStream, &snapshot.cmdline},
      {md::kLinuxProcStatusStream, &snapshot.status},
      {md::kLinuxLsbReleaseStream, &snapshot.os_release},
      {md::kLinuxCpuInfoStream, &snapshot.cpu_info},
  };
  for (const auto& [type, text] : linux_streams) {
    if (!text->empty()) builder.add_stream(type, builder.append(*text));
  }
  return builder.finish(time);
}

}  // namespace orvanta::crash
