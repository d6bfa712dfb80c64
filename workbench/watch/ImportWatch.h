#pragma once

#include <windows.h>

#include <optional>
#include <vector>

namespace wb {

/// A function of Windows by its name, and the observer that takes its place in an import table.
struct WatchedCall {
  const char* name;
  void* observer;
};

/// The observer's address, checked against the signature of the function it stands for.
template <typename Function>
void* observerOf(Function* observer, Function* /*original*/) {
  return reinterpret_cast<void*>(observer);
}

/// A place in an import table, and what stood there.
struct PatchedSlot {
  void** slot;
  void* original;
};

/// Puts observers into a module's import table, for good.
std::vector<PatchedSlot> patchImports(HMODULE module, const std::vector<WatchedCall>& calls);

/// The same until unwatchImports(). Of no effect on a module that is watched already.
void observeImports(HMODULE module, const std::vector<WatchedCall>& calls);

/// Watches what a loaded module asks of Windows: boxes, settings, files, COM initialisations,
/// images, menus, timers, modeless dialogs. Every call goes through to Windows with the same
/// arguments and result. Writes to the registry are reported as `reg` lines, boxes as `box` lines;
/// keys, files, images, menus, timers and windows are accounted (core/Accounts.h). To be called
/// after the module is mapped and before its first message. What its static constructors did isn't
/// seen, so its static destructors mustn't be either: see unwatchImports().
void watchImports(HMODULE module);

/// Puts the module's import table back. To be called just before FreeLibrary.
void unwatchImports(HMODULE module);

/// Watches the memory that a loaded module asks for: of its runtime, and of COM. For good, since
/// static objects hold memory, too, and free it at the very end: see afterUnmapping(). To be called
/// with watchImports().
void watchMemory(HMODULE module);

/// Once no watched module is left, the memory of the runtime that they still hold is reported as
/// leaks. To be called after FreeLibrary.
void afterUnmapping();

/// FLG_HEAP_ENABLE_TAIL_CHECK and FLG_HEAP_ENABLE_FREE_CHECK, for the `GlobalFlag` of a program's
/// image file execution options: Windows puts marks behind the blocks of its heaps and into freed
/// ones.
constexpr DWORD heapCheckFlags = 0x30;

/// Whether this process runs with them. It is reported then when a module frees memory that is
/// damaged, or frees it twice.
bool heapsAreWatched();

/// CoInitialize calls of the watched module less its CoUninitialize calls. A command that leaves by
/// an exception keeps one.
int apartmentBalance();

/// The period in milliseconds of a timer that a watched module has set and not removed.
std::optional<UINT> watchedTimer(HWND window, UINT_PTR id);

}  // namespace wb
