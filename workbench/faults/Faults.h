#pragma once

#include <windows.h>

#include <string>
#include <string_view>
#include <vector>

namespace wb {

/// Lets an operation of the client or of the host fail, or a call that a module makes of Windows.
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
/// @param isSwept whether the call is one that can fail in practice: it is written down for the
/// sweep, and other programs can get at their files
/// @return S_OK, or the code that this call has to fail with.
HRESULT takeFault(std::wstring_view operation, bool isSwept = true);

/// From here on every call of a swept operation is written down.
/// @return what was written down so far
std::vector<std::wstring> recordOperations();

/// Calls of an operation since the session's start or resetCalls().
unsigned callCount(std::wstring_view operation);
void resetCalls();

}  // namespace wb
