#pragma once

#include <windows.h>

#include <filesystem>
#include <functional>
#include <memory>
#include <string>

namespace wb {

struct HandleCloser {
  using pointer = HANDLE;
  void operator()(HANDLE handle) const { CloseHandle(handle); }
};
using OpenFile = std::unique_ptr<HANDLE, HandleCloser>;

/// Opens a file for reading, with the others' rights as in CreateFileW; null with the Windows error
/// in `failure`.
OpenFile openToRead(const std::filesystem::path& path, DWORD share, DWORD& failure);

/// Reads all of a file. False with the Windows error in `failure`.
bool readAll(HANDLE file, std::string& bytes, DWORD& failure);

/// Judges what was written; false with the reason.
using ReadBack = std::function<bool(const std::string& written, std::wstring& error)>;

/// Puts `bytes` in the file's place: written beside it, to the disk, read back and judged, and then
/// renamed. False with a clear `error`; the old file is as it was then.
bool replaceDrawing(const std::filesystem::path& path, const std::string& bytes,
                    const ReadBack& isGood, std::wstring& error);

/// What a Windows error on a file means.
std::wstring fileErrorText(DWORD code);

}  // namespace wb
