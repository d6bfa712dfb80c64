#pragma once

#include <windows.h>

#include <filesystem>
#include <functional>
#include <memory>
#include <string>

#include "gate/HostError.h"

namespace wb {

struct HandleCloser {
  using pointer = HANDLE;
  void operator()(HANDLE handle) const { CloseHandle(handle); }
};
using OpenFile = std::unique_ptr<HANDLE, HandleCloser>;

/// Windows refuses something about a file.
class FileError : public HostError {
 public:
  explicit FileError(DWORD windowsError);
  const DWORD windowsError;
};

/// Opens a file for reading, with the others' rights as in CreateFileW.
/// @throws FileError
OpenFile openToRead(const std::filesystem::path& path, DWORD share);

/// Reads all of a file.
/// @throws FileError
std::string readAll(HANDLE file);

/// Judges what was written.
/// @throws HostError if it isn't what it should be
using ReadBack = std::function<void(const std::string& written)>;

/// Puts `bytes` in the file's place: written beside it, to the disk, read back and judged, and then
/// renamed.
/// @throws HostError if that can't be done; the old file is as it was then
void replaceDrawing(const std::filesystem::path& path, const std::string& bytes,
                    const ReadBack& judge);

}  // namespace wb
