#pragma once

#include <windows.h>

#include <string>
#include <string_view>
#include <vector>

namespace wb {

/// Lets an operation of the client fail, or one of the few of the host that count their calls here.
/// Operations are named "Interface.operation"; the operation alone stands for that of every
/// interface.
/// @param code what the call answers.
/// @param after calls that are let through first.
/// @param always every call after those fails, not only the first.
void failOperation(std::wstring operation, HRESULT code, unsigned after = 0, bool always = false);

/// Takes all faults back, those of the disk too.
/// @return how many of them never came about
size_t clearFaults();

/// Counts a call of an operation.
/// @return S_OK, or the code that this call has to fail with.
HRESULT takeFault(std::wstring_view operation);

/// From here on every call of an operation is written down; gives what was written down so far.
std::vector<std::wstring> recordOperations();

/// Calls of an operation since resetCalls().
unsigned callCount(std::wstring_view operation);
void resetCalls();

}  // namespace wb
