#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace wb {

/// What another program does to a file.
enum class DiskFault { held, away };

/// From a call of an operation on, as soon as nobody's hold on the file prevents it, another
/// program keeps the file for itself, or moves it away. clearFaults() gives it back.
/// @param operation "Interface.operation" of the client or the host, which itself is let through
/// @param after calls that come before that one
void disturbFile(const std::filesystem::path& file, DiskFault what, std::wstring operation,
                 unsigned after = 0);

/// Lets the other programs do what they can at a call of an operation.
void disturbAt(std::wstring_view operation);

/// Ends what the other programs do. A file that was made meanwhile in the place of one moved away
/// stays, and the old one goes.
/// @return how many of the programs never had their way
size_t endDisturbances();

}  // namespace wb
