#include "watch/ImportWatch.h"

#include <map>
#include <string_view>
#include <vector>

#include "core/SessionState.h"
#include "faults/Faults.h"
#include "watch/WatchedCalls.h"

namespace wb {
namespace {

struct PatchedModules {
  std::map<HMODULE, std::vector<PatchedSlot>> slots;
};

std::map<HMODULE, std::vector<PatchedSlot>>& patchedModules() {
  return sessionPart<PatchedModules>().slots;
}

std::vector<WatchedCall> allCalls() {
  std::vector<WatchedCall> all;
  for (const auto& calls : {registryCalls(), resourceCalls(), windowCalls()}) {
    all.insert(all.end(), calls.begin(), calls.end());
  }
  return all;
}

bool writeSlot(void** slot, void* value) {
  DWORD protection = 0;
  if (!VirtualProtect(slot, sizeof(*slot), PAGE_READWRITE, &protection)) return false;
  *slot = value;
  VirtualProtect(slot, sizeof(*slot), protection, &protection);
  return true;
}

/// Calls visit(name, slot) for each function that the module imports by its name.
template <typename Visitor>
void forEachImport(HMODULE module, Visitor visit) {
  auto* const base = reinterpret_cast<BYTE*>(module);
  const auto* dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
  const auto* headers = reinterpret_cast<const IMAGE_NT_HEADERS*>(base + dos->e_lfanew);
  const auto& directory = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
  if (directory.VirtualAddress == 0) return;
  const auto* library =
      reinterpret_cast<const IMAGE_IMPORT_DESCRIPTOR*>(base + directory.VirtualAddress);
  for (; library->Name != 0; ++library) {
    if (library->OriginalFirstThunk == 0) {
      continue;  // no names kept beside the addresses
    }
    const auto* names =
        reinterpret_cast<const IMAGE_THUNK_DATA*>(base + library->OriginalFirstThunk);
    auto* slots = reinterpret_cast<IMAGE_THUNK_DATA*>(base + library->FirstThunk);
    for (; names->u1.AddressOfData != 0; ++names, ++slots) {
      if (IMAGE_SNAP_BY_ORDINAL(names->u1.Ordinal)) continue;
      const auto* entry =
          reinterpret_cast<const IMAGE_IMPORT_BY_NAME*>(base + names->u1.AddressOfData);
      visit(reinterpret_cast<const char*>(entry->Name),
            reinterpret_cast<void**>(&slots->u1.Function));
    }
  }
}

}  // namespace

std::vector<PatchedSlot> patchImports(HMODULE module, const std::vector<WatchedCall>& calls) {
  std::vector<PatchedSlot> patched;
  std::map<std::string_view, void*> observers;
  for (const WatchedCall& call : calls) observers.emplace(call.name, call.observer);
  forEachImport(module, [&](const char* name, void** slot) {
    const auto observer = observers.find(name);
    if (observer == observers.end()) return;
    const PatchedSlot entry{slot, *slot};
    if (writeSlot(slot, observer->second)) patched.push_back(entry);
  });
  return patched;
}

void observeImports(HMODULE module, const std::vector<WatchedCall>& calls) {
  if (!patchedModules().count(module)) patchedModules()[module] = patchImports(module, calls);
}

bool windowsFails(const wchar_t* operation) {
  if (SUCCEEDED(takeFault(operation))) return false;
  SetLastError(ERROR_NOT_ENOUGH_MEMORY);
  return true;
}

void watchImports(HMODULE module) { observeImports(module, allCalls()); }

void unwatchImports(HMODULE module) {
  const auto at = patchedModules().find(module);
  if (at == patchedModules().end()) return;
  for (const PatchedSlot& entry : at->second) writeSlot(entry.slot, entry.original);
  patchedModules().erase(at);
  forgetWatchedKeys();
  forgetWatchedResources();
  forgetWatchedWindows();
}

void afterUnmapping() {
  if (patchedModules().empty()) tellMemoryLeft();
}

}  // namespace wb
