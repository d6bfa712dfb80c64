#pragma once

#include <vector>

namespace wb {

/// A function of Windows by its name, and the observer that takes its place in an import table.
struct WatchedCall {
  const char* name;
  void* observer;
};

std::vector<WatchedCall> registryCalls();  ///< WatchRegistry.cpp
std::vector<WatchedCall> resourceCalls();  ///< WatchResources.cpp: files, images, menus
std::vector<WatchedCall> memoryCalls();    ///< WatchMemory.cpp: what goes back to the heap
std::vector<WatchedCall> windowCalls();    ///< WatchWindows.cpp: boxes, dialogs, timers, apartments

/// What the observers remember of handles is dropped; open accounts stay.
void forgetWatchedKeys();
void forgetWatchedResources();
void forgetWatchedWindows();

/// The observer's address, checked against the signature of the function it stands for.
template <typename Function>
void* observerOf(Function* observer, Function* /*original*/) {
  return reinterpret_cast<void*>(observer);
}

}  // namespace wb
