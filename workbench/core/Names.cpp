#include "core/Names.h"

namespace wb {

bool isInModule(HMODULE module, const void* address) {
  HMODULE owner = nullptr;
  return address &&
         GetModuleHandleExW(
             GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
             static_cast<const wchar_t*>(address), &owner) &&
         owner == module;
}

}  // namespace wb
