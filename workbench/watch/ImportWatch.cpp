#include "watch/ImportWatch.h"

#include <map>
#include <string_view>

#include "core/SessionState.h"
#include "faults/Faults.h"
#include "watch/WatchedCalls.h"

namespace wb {
namespace {

struct PatchedModules {
  std::map<HMODULE, std::vector<PatchedSlot>> slots;
};

bool writeSlot(void** slot, void* value) {
  DWORD protection = 0;
  if (!VirtualProtect(slot, sizeof(*slot), PAGE_READWRITE, &protection)) return false;
  *slot = value;
  VirtualProtect(slot, sizeof(*slot), protection, &protection);
  return true;
}

}  // namespace

std::vector<PatchedSlot> patchImports(HMODULE module, const std::vector<WatchedCall>& calls) {
  std::vector<PatchedSlot> patched;
  std::map<std::string_view, void*> observers;
  for (const WatchedCall& call : calls) observers.emplace(call.name, call.observer);
  auto* const base = reinterpret_cast<BYTE*>(module);
  const auto* dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
  const auto* headers = reinterpret_cast<const IMAGE_NT_HEADERS*>(base + dos->e_lfanew);
  const auto& directory = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
  if (directory.VirtualAddress == 0) return patched;
  const auto* library =
      reinterpret_cast<const IMAGE_IMPORT_DESCRIPTOR*>(base + directory.VirtualAddress);
  for (; library->Name != 0; ++library) {
    if (library->OriginalFirstThunk == 0) continue;  // no names are kept beside the addresses
    const auto* names =
        reinterpret_cast<const IMAGE_THUNK_DATA*>(base + library->OriginalFirstThunk);
    auto* addresses = reinterpret_cast<IMAGE_THUNK_DATA*>(base + library->FirstThunk);
    for (; names->u1.AddressOfData != 0; ++names, ++addresses) {
      if (IMAGE_SNAP_BY_ORDINAL(names->u1.Ordinal)) continue;
      const auto* entry =
          reinterpret_cast<const IMAGE_IMPORT_BY_NAME*>(base + names->u1.AddressOfData);
      const auto found = observers.find(reinterpret_cast<const char*>(entry->Name));
      if (found == observers.end()) continue;
      auto** const slot = reinterpret_cast<void**>(&addresses->u1.Function);
      void* const original = *slot;
      if (writeSlot(slot, found->second)) patched.push_back({slot, original});
    }
  }
  return patched;
}

void observeImports(HMODULE module, const std::vector<WatchedCall>& calls) {
  auto& slots = sessionPart<PatchedModules>().slots;
  if (!slots.count(module)) slots[module] = patchImports(module, calls);
}

bool windowsFails(const std::wstring& operation) {
  if (SUCCEEDED(takeFault(operation))) return false;
  SetLastError(ERROR_NOT_ENOUGH_MEMORY);
  return true;
}

void watchImports(HMODULE module) { observeImports(module, handleCalls()); }

void unwatchImports(HMODULE module) {
  const auto patched = sessionPart<PatchedModules>().slots.extract(module);
  if (!patched) return;
  for (const PatchedSlot& entry : patched.mapped()) writeSlot(entry.slot, entry.original);
  forgetHandles();
}

void watchMemory(HMODULE module) {
  if (!SessionState::get().accounts.memoryIsLeftOut()) patchImports(module, memoryCalls());
}

void afterUnmapping() {
  if (sessionPart<PatchedModules>().slots.empty()) reportMemoryLeft();
}

}  // namespace wb
