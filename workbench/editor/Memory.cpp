#include <acutmem.h>

#include <cstdlib>
#include <cwchar>
#include <map>
#include <string>

#include "core/Accounts.h"
#include "core/StandInTime.h"
#include "core/Transcript.h"

namespace {

std::map<const void*, wb::Ticket>& buffers() {
  static std::map<const void*, wb::Ticket> all;
  return all;
}

}  // namespace

bool acutNewBuffer(void*& pBuffer, size_t size) {
  pBuffer = std::malloc(size ? size : 1);
  if (!pBuffer) return false;
  buffers()[pBuffer] = wb::handOut(L"buffer", std::to_wstring(size) + L" bytes");
  return true;
}

void acutDelBuffer(void*& pBuffer) {
  const wb::InStandIn inside;
  if (!pBuffer) return;
  const auto found = buffers().find(pBuffer);
  if (found == buffers().end()) {
    wb::tell(wb::Event::error, L"acutDelBuffer of memory that the host didn't hand out");
  } else {
    wb::giveBack(found->second);
    buffers().erase(found);
    std::free(pBuffer);
  }
  pBuffer = nullptr;
}

Acad::ErrorStatus acutNewString(const ACHAR* pInput, ACHAR*& pOutput) {
  pOutput = nullptr;
  if (!pInput) return Acad::eNullObjectPointer;
  void* buffer = nullptr;
  const size_t size = (std::wcslen(pInput) + 1) * sizeof(ACHAR);
  if (!acutNewBuffer(buffer, size)) return Acad::eOutOfMemory;
  pOutput = static_cast<ACHAR*>(buffer);
  std::wmemcpy(pOutput, pInput, size / sizeof(ACHAR));
  return Acad::eOk;
}
