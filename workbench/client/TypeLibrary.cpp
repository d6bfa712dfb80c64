#include "client/TypeLibrary.h"

#include "client/Owned.h"

namespace wb {

HRESULT typeInfo(REFIID iid, ITypeInfo** info) {
  const std::wstring file = clientFile();
  if (file.empty()) return HRESULT_FROM_WIN32(GetLastError());
  // Windows keeps a loaded library as long as any type information of it is in use, so the client
  // itself needn't hold on to it.
  ITypeLib* loaded = nullptr;
  const HRESULT result = LoadTypeLibEx(file.c_str(), REGKIND_NONE, &loaded);
  const Owned<ITypeLib> library(loaded);
  return FAILED(result) ? result : library->GetTypeInfoOfGuid(iid, info);
}

HRESULT idsOfNames(REFIID iid, LPOLESTR* names, UINT count, DISPID* ids) {
  ITypeInfo* found = nullptr;
  const HRESULT result = typeInfo(iid, &found);
  const Owned<ITypeInfo> info(found);
  return FAILED(result) ? result : info->GetIDsOfNames(names, count, ids);
}

HRESULT invokeByType(REFIID iid, void* instance, const DispatchCall& call) {
  ITypeInfo* found = nullptr;
  const HRESULT result = typeInfo(iid, &found);
  if (FAILED(result)) return result;
  const Owned<ITypeInfo> info(found);
  SetErrorInfo(0, nullptr);
  return info->Invoke(instance, call.member, call.flags, call.arguments, call.result,
                      call.exception, call.badArgument);
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

}  // namespace wb
