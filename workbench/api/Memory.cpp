#include <acutmem.h>

#include <cstdlib>
#include <cwchar>
#include <string>

#include "core/Accounts.h"
#include "core/SessionState.h"
#include "core/Transcript.h"
#include "gate/HostCall.h"

using wb::HostCall;

namespace {

/// What the host handed out, by its address.
struct Buffers {
  wb::HandleLedger<const void*> open{L"buffer"};
};

}  // namespace

bool acutNewBuffer(void*& pBuffer, size_t size) {
  pBuffer = nullptr;
  return HostCall(THIS_FUNCTION).run(false, [&] {
    pBuffer = std::malloc(size ? size : 1);
    if (!pBuffer) return false;
    wb::sessionPart<Buffers>().open.opened(pBuffer, std::to_wstring(size) + L" bytes");
    return true;
  });
}

void acutDelBuffer(void*& pBuffer) {
  HostCall(THIS_FUNCTION).run([&] {
    if (!pBuffer) return;
    if (wb::sessionPart<Buffers>().open.closed(pBuffer)) {
      std::free(pBuffer);
    } else {
      wb::report(wb::Event::error, L"acutDelBuffer of memory that the host didn't hand out");
    }
    pBuffer = nullptr;
  });
}

Acad::ErrorStatus acutNewString(const ACHAR* pInput, ACHAR*& pOutput) {
  pOutput = nullptr;
  return HostCall(THIS_FUNCTION).run(Acad::eOutOfMemory, [&] {
    if (!pInput) return Acad::eNullObjectPointer;
    void* buffer = nullptr;
    const size_t size = (std::wcslen(pInput) + 1) * sizeof(ACHAR);
    if (!acutNewBuffer(buffer, size)) return Acad::eOutOfMemory;
    pOutput = static_cast<ACHAR*>(buffer);
    std::wmemcpy(pOutput, pInput, size / sizeof(ACHAR));
    return Acad::eOk;
  });
}
