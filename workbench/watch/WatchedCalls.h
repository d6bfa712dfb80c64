#pragma once

#include <windows.h>

#include <vector>

namespace wb {

/// A function of Windows by its name, and the observer that takes its place in an import table.
struct WatchedCall {
  const char* name;
  void* observer;
};

std::vector<WatchedCall> registryCalls();  ///< WatchRegistry.cpp
std::vector<WatchedCall> resourceCalls();  ///< WatchResources.cpp: files, images, menus
std::vector<WatchedCall> windowCalls();    ///< WatchWindows.cpp: boxes, dialogs, timers, apartments

/// What the observers remember of handles is dropped; open accounts stay.
void forgetWatchedKeys();
void forgetWatchedResources();
void forgetWatchedWindows();

void tellMemoryLeft();  ///< WatchMemory.cpp

/// A place in an import table, and what stood there.
struct PatchedSlot {
  void** slot;
  void* original;
};

/// Puts the observers into the module's import table.
std::vector<PatchedSlot> patchImports(HMODULE module, const std::vector<WatchedCall>& calls);

/// Whether a call that a watched module makes of Windows has to fail (core/Faults.h: the operation
/// is "module." and the function's name). Windows' error is set then.
bool windowsFails(const wchar_t* operation);

/// The observer's address, checked against the signature of the function it stands for.
template <typename Function>
void* observerOf(Function* observer, Function* /*original*/) {
  return reinterpret_cast<void*>(observer);
}

}  // namespace wb
