#include "client/ComObject.h"

#include <atomic>

#include "core/ResultCodes.h"
#include "core/Text.h"
#include "core/Transcript.h"
#include "faults/Faults.h"

namespace wb {
namespace {

std::atomic<long> liveObjects = 0;

/// While the process ends, the libraries are unloaded one after the other: a call may then lead
/// into one that is gone. It ends the process at once, with an exit code of its own.
void refuseAtTheEnd() {
  constexpr UINT calledAtTheEnd = 70;
  static const auto address = reinterpret_cast<void*>(
      GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "RtlDllShutdownInProgress"));
  const auto ending = reinterpret_cast<BOOLEAN(WINAPI*)()>(address);
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
  references.push_back(trackResource(L"com", label_));
  return static_cast<ULONG>(references.size());
}

ULONG LiveObject::removeReference() {
  refuseAtTheEnd();
  releaseResource(references.back());
  references.pop_back();
  return static_cast<ULONG>(references.size());
}

void LiveObject::keepReferences() {
  for (const Ticket reference : references) keepBeyondCommand(reference);
}

HRESULT LiveObject::queryResult(const std::wstring& name, bool isAvailable) {
  if (name.rfind(L"Vault", 0) != 0) return S_OK;
  const HRESULT result = isAvailable ? takeFault(L"QueryInterface." + name) : E_NOINTERFACE;
  if (FAILED(result)) {
    report(Event::client, L"QueryInterface(" + name + L") -> " + resultName(result));
  }
  return result;
}

std::wstring namedLabel(const std::wstring& kind, std::wstring_view name) {
  return kind + L" " + quoted(name);
}

std::wstring interfaceName(std::string_view typeName) {
  // Decorated by clang's library, plain by Microsoft's.
  const size_t decoration = typeName.find("?AU");
  if (decoration != std::string_view::npos) {
    typeName = typeName.substr(decoration + 3, typeName.find('@') - decoration - 3);
  }
  return fromUtf8(typeName.substr(typeName.rfind(' ') + 1));
}

HMODULE clientModule() {
  HMODULE module = nullptr;
  GetModuleHandleExW(
      GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
      reinterpret_cast<const wchar_t*>(&clientModule), &module);
  return module;
}

std::wstring clientFile() {
  std::wstring file(MAX_PATH, L'\0');
  for (;;) {
    const auto size = static_cast<DWORD>(file.size());
    const DWORD length = GetModuleFileNameW(clientModule(), file.data(), size);
    file.resize(length < size ? length : file.size() * 2);
    if (length < size) return file;
  }
}

HRESULT withTypeInfo(REFIID iid, const std::function<HRESULT(ITypeInfo*)>& use) {
  // Windows keeps a loaded library as long as any type information of it is in use, so the client
  // itself needn't hold it.
  ITypeLib* loaded = nullptr;
  HRESULT result = LoadTypeLibEx(clientFile().c_str(), REGKIND_NONE, &loaded);
  const Owned<ITypeLib> library(loaded);
  if (FAILED(result)) return result;
  ITypeInfo* found = nullptr;
  result = library->GetTypeInfoOfGuid(iid, &found);
  const Owned<ITypeInfo> info(found);
  return FAILED(result) ? result : use(found);
}

}  // namespace wb
