#include "client/LiveObject.h"

#include <atomic>

#include "core/ResultNames.h"
#include "core/Transcript.h"
#include "faults/Faults.h"
#include "TessaroClient.h"

namespace wb {
namespace {

std::atomic<long> liveObjects = 0;

/// While the process ends, the libraries go one after the other: a call that comes then may be one
/// into nothing, and ends the process at once by an exit code of its own.
void refuseAtTheEnd() {
  constexpr UINT calledAtTheEnd = 70;
  static const auto ending = reinterpret_cast<BOOLEAN(WINAPI*)()>(reinterpret_cast<void*>(
      GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "RtlDllShutdownInProgress")));
  if (ending && ending()) TerminateProcess(GetCurrentProcess(), calledAtTheEnd);
}

}  // namespace

LiveObject::LiveObject(std::wstring label) : label_(std::move(label)) {
  addReference();
  ++liveObjects;
}

LiveObject::~LiveObject() { --liveObjects; }

bool LiveObject::any() { return liveObjects > 0; }

ULONG LiveObject::addReference() {
  refuseAtTheEnd();
  references.push_back(handOut(L"com", label_));
  return static_cast<ULONG>(references.size());
}

ULONG LiveObject::removeReference() {
  refuseAtTheEnd();
  giveBack(references.back());
  references.pop_back();
  return static_cast<ULONG>(references.size());
}

void LiveObject::keepReferences() {
  for (const Ticket reference : references) keepBeyondCommand(reference);
}

HRESULT LiveObject::admitInterface(REFIID iid) {
  const wchar_t* name = interfaceName(iid);
  if (!name) return S_OK;
  const HRESULT fault = takeFault(std::wstring(L"QueryInterface.") + name);
  if (FAILED(fault)) {
    tell(Event::client, std::wstring(L"QueryInterface(") + name + L") -> " + resultName(fault));
  }
  return fault;
}

std::wstring namedLabel(const std::wstring& kind, std::wstring_view name) {
  return kind + L" " + quoted(name);
}

const wchar_t* interfaceName(REFIID iid) {
  static const struct {
    const IID& iid;
    const wchar_t* name;
  } interfaces[] = {
      {__uuidof(VaultClient), L"VaultClient"},
      {__uuidof(VaultClientLegacy), L"VaultClientLegacy"},
      {__uuidof(VaultObject), L"VaultObject"},
      {__uuidof(VaultFile), L"VaultFile"},
      {__uuidof(VaultFileLegacy), L"VaultFileLegacy"},
      {__uuidof(VaultFolder), L"VaultFolder"},
      {__uuidof(VaultFolderLegacy), L"VaultFolderLegacy"},
      {__uuidof(VaultFolderActions), L"VaultFolderActions"},
      {__uuidof(VaultVersionList), L"VaultVersionList"},
      {__uuidof(VaultPosition), L"VaultPosition"},
      {__uuidof(VaultCardData), L"VaultCardData"},
      {__uuidof(VaultCardVariable), L"VaultCardVariable"},
      {__uuidof(VaultAttributeMapping), L"VaultAttributeMapping"},
      {__uuidof(VaultRootFolderAccess), L"VaultRootFolderAccess"},
      {__uuidof(VaultGate), L"VaultGate"},
      {__uuidof(VaultQuery), L"VaultQuery"},
      {__uuidof(VaultRowList), L"VaultRowList"},
      {__uuidof(VaultTextService), L"VaultTextService"},
  };
  for (const auto& entry : interfaces) {
    if (iid == entry.iid) return entry.name;
  }
  return nullptr;
}

}  // namespace wb
