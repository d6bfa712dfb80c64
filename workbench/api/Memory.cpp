#include <acutmem.h>

#include <cstdlib>
#include <cwchar>
#include <string>

#include "core/Accounts.h"
#include "core/SessionState.h"
#include "core/Transcript.h"
#include "gate/HostCall.h"

using namespace wb;

/// What the host has allocated for applications, by its address.
namespace {

struct Buffers : HandleLedger<const void*> {
  Buffers() : HandleLedger(L"buffer") {}
};

}  // namespace

bool acutNewBuffer(void*& pBuffer, size_t size) {
  pBuffer = nullptr;
  return HostCall(THIS_FUNCTION).run(false, [&] {
    pBuffer = std::malloc(size ? size : 1);
    if (!pBuffer) return false;
    sessionPart<Buffers>().opened(pBuffer, std::to_wstring(size) + L" bytes");
    return true;
  });
}

void acutDelBuffer(void*& pBuffer) {
  HostCall(THIS_FUNCTION).run([&] {
    if (!pBuffer) return;
    if (sessionPart<Buffers>().closed(pBuffer)) {
      std::free(pBuffer);
    } else {
      report(Event::error, L"acutDelBuffer of memory that the host didn't hand out");
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
