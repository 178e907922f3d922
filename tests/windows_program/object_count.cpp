#include "windows_program/object_count.h"

#include <winternl.h>

#include <cstdint>
#include <stdexcept>
#include <vector>

namespace nerolith::windows_program {
namespace {

constexpr auto kSystemHandles = static_cast<SYSTEM_INFORMATION_CLASS>(16);
constexpr ULONG kTooSmall = 0xC0000004;
constexpr std::size_t kDrawingTableInPeb = 0xF8;  // 64-bit
constexpr std::size_t kDrawingEntries = 16384;

struct HandleEntry {
  std::uint16_t process, trace;
  std::uint8_t type, attributes;
  std::uint16_t handle;
  void* object;
  std::uint32_t access;
};
struct DrawingEntry {
  std::uint64_t object;
  std::uint16_t process, count, unique;
  std::uint8_t type, flags;
  std::uint64_t user;
};

long handlesInTable(DWORD process) {
  std::vector<char> bytes(1 << 20);
  for (;;) {
    ULONG needed = 0;
    const auto status = static_cast<ULONG>(NtQuerySystemInformation(
        kSystemHandles, bytes.data(), static_cast<ULONG>(bytes.size()), &needed));
    if (status == 0) break;
    if (status != kTooSmall) throw std::runtime_error("handles cannot be counted");
    bytes.resize(bytes.size() * 2);
  }
  const auto count = *reinterpret_cast<const ULONG*>(bytes.data());
  const auto* entries = reinterpret_cast<const HandleEntry*>(bytes.data() + sizeof(void*));
  long found = 0;
  for (ULONG i = 0; i < count; ++i) found += entries[i].process == (process & 0xFFFF);
  return found;
}

long drawingInTable(HANDLE process) {
  PROCESS_BASIC_INFORMATION basic{};
  std::vector<DrawingEntry> entries(kDrawingEntries);
  const char* table = nullptr;
  if (NtQueryInformationProcess(process, ProcessBasicInformation, &basic, sizeof basic, nullptr) !=
          0 ||
      !ReadProcessMemory(process,
                         reinterpret_cast<const char*>(basic.PebBaseAddress) + kDrawingTableInPeb,
                         &table, sizeof table, nullptr) ||
      !table ||
      !ReadProcessMemory(process, table, entries.data(), kDrawingEntries * sizeof(DrawingEntry),
                         nullptr))
    throw std::runtime_error("drawing objects cannot be counted");
  long found = 0;
  for (const DrawingEntry& entry : entries) found += entry.type != 0;
  return found;
}

}  // namespace

ObjectCount objectsOf(HANDLE process) {
  DWORD handles = 0;
  GetProcessHandleCount(process, &handles);
  const DWORD drawing = GetGuiResources(process, GR_GDIOBJECTS);
  return {handles ? static_cast<long>(handles) : handlesInTable(GetProcessId(process)),
          drawing ? static_cast<long>(drawing) : drawingInTable(process)};
}

}  // namespace nerolith::windows_program
