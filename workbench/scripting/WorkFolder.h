#pragma once

#include <filesystem>

namespace wb {

/// Makes `folder` an empty folder that bears the mark of a session's work folder. One that exists
/// is emptied only if it bears that mark; one with anything else in it raises std::runtime_error
/// and stays as it is. With `keep` a marked folder keeps what it holds.
void prepareWorkFolder(const std::filesystem::path& folder, bool keep);

/// Deletes a file, or a folder with all that is in it, write-protected or not. Raises
/// std::runtime_error.
void deleteTree(const std::filesystem::path& path);

}  // namespace wb
