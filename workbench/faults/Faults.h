#pragma once

#include <windows.h>

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace wb {

/// Lets an operation of the client or of the host fail, or a call that a module makes of Windows.
/// Operations are named "Interface.operation"; the operation alone stands for that of every
/// interface.
/// @param code what the call returns
/// @param after calls that are let through first
/// @param always every call after those fails, not only the first
void failOperation(std::wstring operation, HRESULT code, unsigned after = 0, bool always = false);

/// What another program does to a file.
enum class DiskFault { held, away };

/// From a call of an operation on, as soon as nobody has the file open in a way that prevents it,
/// another program opens the file for itself alone, or moves it away. clearFaults() ends that; a
/// file that was made meanwhile in the place of one moved away stays, and the old one is deleted.
/// @param operation "Interface.operation" of the client or the host, which doesn't fail itself
/// @param after calls that are let through first
void disturbFile(const std::filesystem::path& file, DiskFault what, std::wstring operation,
                 unsigned after = 0);

/// Ends all faults, those of files too.
/// @return how many of them never happened
size_t clearFaults();

/// Counts a call of an operation.
/// @param isSwept whether the call can fail in practice: it is recorded for the sweep, and files
/// can be disturbed at it
/// @return S_OK, or the code that this call has to fail with
HRESULT takeFault(std::wstring_view operation, bool isSwept = true);

/// From here on every call of a swept operation is recorded.
/// @return what was recorded so far
std::vector<std::wstring> recordOperations();

/// Calls of an operation since the session's start or resetCalls().
unsigned callCount(std::wstring_view operation);
void resetCalls();

}  // namespace wb
