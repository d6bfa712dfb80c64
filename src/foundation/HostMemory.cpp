#include "foundation/HostMemory.h"

#include <windows.h>

#include <algorithm>
#include <iterator>

namespace tessaro {

void freeHostMemory(void* memory) noexcept {
  if (memory == nullptr) return;
  HANDLE heaps[256];
  const DWORD limit = static_cast<DWORD>(std::size(heaps));
  HANDLE* const end = heaps + std::min(GetProcessHeaps(limit, heaps), limit);
  HANDLE* const owner = std::find_if(
      heaps, end, [memory](HANDLE heap) { return HeapValidate(heap, 0, memory) != FALSE; });
  if (owner != end) HeapFree(*owner, 0, memory);
}

}  // namespace tessaro
