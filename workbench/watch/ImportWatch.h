#pragma once

#include <windows.h>

#include <optional>
#include <vector>

#include "watch/WatchedCalls.h"

namespace wb {

/// Watches what a loaded module asks of Windows, by its import address table: boxes, settings,
/// files, COM initialisations, images, menus, timers, modeless dialogs.
/// Every call goes through to Windows with the same arguments and result. Writes to the registry
/// are told as `reg` lines, boxes as `box` lines; keys, files, images, menus, timers and windows
/// are accounted (core/Accounts.h). To be called after the module is mapped and before its first
/// message. What its static constructors did isn't seen, so its static destructors mustn't be
/// either: see unwatchImports().
void watchImports(HMODULE module);

/// Watches the memory that a loaded module asks for: of its runtime, and of COM. For good, since
/// static objects hold memory, too, and free it at the very end: see afterUnmapping(). To be called
/// with watchImports().
void watchMemory(HMODULE module);

/// FLG_HEAP_ENABLE_TAIL_CHECK and FLG_HEAP_ENABLE_FREE_CHECK, for the `GlobalFlag` of a program's
/// image file execution options: Windows puts marks behind the blocks of its heaps and into freed
/// ones.
constexpr DWORD heapCheckFlags = 0x30;

/// Whether this process runs with them. A module that is loaded then is told of when it gives back
/// memory that is damaged, or twice.
bool heapsAreWatched();

/// Puts observers of the caller's own in the place of functions that the module imports.
void observeImports(HMODULE module, const std::vector<WatchedCall>& calls);

/// Puts the module's import table back. To be called just before FreeLibrary.
void unwatchImports(HMODULE module);

/// Once no watched module is left, the memory of the runtime that they still hold is told as leaks.
/// To be called after FreeLibrary.
void afterUnmapping();

/// CoInitialize calls of the watched module less its CoUninitialize calls. A command that leaves by
/// an exception keeps one.
int apartmentBalance();

/// The period in milliseconds of a timer that a watched module has set and not taken away.
std::optional<UINT> watchedTimer(HWND window, UINT_PTR id);

}  // namespace wb
