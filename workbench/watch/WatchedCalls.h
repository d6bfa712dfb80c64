#pragma once

#include <string>
#include <type_traits>

#include "watch/ImportWatch.h"

namespace wb {

/// Files, keys, images, menus, boxes, dialogs, timers, apartments.
std::vector<WatchedCall> handleCalls();
/// Forgets the handles; open accounts stay.
void forgetHandles();

/// Memory of the runtime and of COM.
std::vector<WatchedCall> memoryCalls();
void reportMemoryLeft();

/// Whether a call that a watched module makes of Windows has to fail (faults/Faults.h: the
/// operation is "module." and the function's name). Windows' error is set then.
bool windowsFails(const std::wstring& operation);

/// What takes the place of a function; each `After` is a lambda's own type.
template <class After, class Result, class... Arguments>
struct Observer {
  static inline Result (*original)(Arguments...);
  static inline void (*after)(Result, Arguments...);
  static inline std::wstring operation;  ///< by which it can fail; empty if it can't
  static inline Result failure;

  static Result WINAPI run(Arguments... arguments) {
    if (!operation.empty() && windowsFails(operation)) return failure;
    const Result result = original(arguments...);
    const DWORD error = GetLastError();
    after(result, arguments...);
    SetLastError(error);
    return result;
  }
};

/// Observes a function of Windows: `after` is called with the result and the arguments, and doesn't
/// change Windows' error.
template <class After, class Result, class... Arguments>
WatchedCall observed(const char* name, Result (*original)(Arguments...), After after) {
  using One = Observer<After, Result, Arguments...>;
  One::original = original;
  One::after = after;
  return {name, reinterpret_cast<void*>(One::run)};
}

/// The same for a function that fails on demand.
/// @param failure what it returns then
template <class After, class Result, class... Arguments>
WatchedCall failing(const char* name, Result (*original)(Arguments...),
                    std::common_type_t<Result> failure, After after) {
  using One = Observer<After, Result, Arguments...>;
  One::operation = L"module." + std::wstring(name, name + std::char_traits<char>::length(name));
  One::failure = failure;
  return observed(name, original, after);
}

}  // namespace wb
