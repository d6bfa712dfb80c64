#pragma once

#include <filesystem>
#include <string>

namespace wb {

/// The content of a file, also of one that is open in the host.
/// @throws std::runtime_error
std::string bytesOf(const std::filesystem::path& file);

/// Makes `folder` an empty folder that bears the mark of a session's work folder. One that exists
/// is emptied only if it bears that mark.
/// @param keep whether a marked folder keeps what it holds
/// @throws std::runtime_error if it has no mark and isn't empty; it stays as it is
void prepareWorkFolder(const std::filesystem::path& folder, bool keep);

/// Deletes a file, or a folder with all that is in it, write-protected or not. Nothing happens if
/// it isn't there.
/// @throws std::filesystem::filesystem_error
void deleteTree(const std::filesystem::path& path);

}  // namespace wb
