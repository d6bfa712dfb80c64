#pragma once

#include <windows.h>

#include <filesystem>
#include <functional>
#include <memory>
#include <string>

#include "gate/HostError.h"
#include "store/Files.h"

namespace wb {

/// Windows refuses something about a file.
class FileError : public HostError {
 public:
  explicit FileError(DWORD windowsError);
  const DWORD windowsError;
};

/// Opens a file for reading, with the others' rights as in CreateFileW.
/// @throws FileError
std::unique_ptr<FileHandle> openToRead(const std::filesystem::path& path, DWORD share);

/// Reads all of a file, from its begin.
/// @throws FileError
std::string readAll(FileHandle& file);

/// Replaces a file by `bytes`: written beside it, to the disk, read back and judged, and then
/// renamed.
/// @param judge throws HostError if what was read back isn't what it should be
/// @throws HostError if it can't be done; the old file is as it was then
void replaceDrawing(const std::filesystem::path& path, const std::string& bytes,
                    const std::function<void(const std::string& written)>& judge);

}  // namespace wb
