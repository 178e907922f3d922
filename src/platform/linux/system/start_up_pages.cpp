#include "platform/linux/system/start_up_pages.h"

#include <link.h>
#include <malloc.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cstdint>

namespace nerolith::system {
namespace {

/// A library with relocations in its code keeps them in pages that the file does not have.
bool codeIsRelocated(const dl_phdr_info& object) {
  for (int i = 0; i < object.dlpi_phnum; ++i) {
    const ElfW(Phdr)& part = object.dlpi_phdr[i];
    if (part.p_type != PT_DYNAMIC) continue;
    const auto* entry = reinterpret_cast<const ElfW(Dyn)*>(object.dlpi_addr + part.p_vaddr);
    for (; entry->d_tag != DT_NULL; ++entry) {
      if (entry->d_tag == DT_TEXTREL) return true;
      if (entry->d_tag == DT_FLAGS && (entry->d_un.d_val & DF_TEXTREL) != 0) return true;
    }
  }
  return false;
}

/// The whole pages inside the segment; those at its edges may belong to a neighbour.
std::size_t giveBack(std::uintptr_t begin, std::uintptr_t end) {
  const auto page = static_cast<std::uintptr_t>(::sysconf(_SC_PAGESIZE));
  begin = (begin + page - 1) / page * page;
  end = end / page * page;
  if (begin >= end) return 0;
  const std::size_t length = end - begin;
  return ::madvise(reinterpret_cast<void*>(begin), length, MADV_DONTNEED) == 0 ? length : 0;
}

/// Called with the loader's lock held: no library comes or goes meanwhile.
int visit(dl_phdr_info* object, std::size_t, void* sum) {
  // The kernel's own object has no file behind it, and no name.
  const bool isProgram = object->dlpi_name == nullptr || object->dlpi_name[0] == '\0';
  if (isProgram || object->dlpi_name[0] != '/' || codeIsRelocated(*object)) return 0;
  for (int i = 0; i < object->dlpi_phnum; ++i) {
    const ElfW(Phdr)& part = object->dlpi_phdr[i];
    if (part.p_type != PT_LOAD || (part.p_flags & PF_W) != 0) continue;
    const std::uintptr_t begin = object->dlpi_addr + part.p_vaddr;
    *static_cast<std::size_t*>(sum) += giveBack(begin, begin + part.p_filesz);
  }
  return 0;
}

}  // namespace

std::size_t giveBackStartUpPages() {
  std::size_t sum = 0;
  ::dl_iterate_phdr(visit, &sum);
  ::malloc_trim(0);
  return sum;
}

}  // namespace nerolith::system
