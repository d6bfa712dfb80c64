#include "database/File.h"

namespace wb {

namespace {

/// What a Windows error on a file means.
std::wstring textOf(DWORD code) {
  switch (code) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_DRIVE:
    case ERROR_NOT_READY:
    case ERROR_BAD_PATHNAME:
    case ERROR_INVALID_NAME:
    case ERROR_DIRECTORY:
      return L"the file doesn't exist";
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
      return L"somebody else has the file open";
    case ERROR_ACCESS_DENIED:
      return L"access to the file is denied";
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
      return L"the disk is full";
    case ERROR_FILE_TOO_LARGE:
      return L"the file is larger than 4 GB";
    default:
      return L"Windows error " + std::to_wstring(code);
  }
}

/// Runs a step that works on a file.
/// @throws FileError for what Windows refuses
template <class Step>
auto onFile(Step step) {
  try {
    return step();
  } catch (const StoreError& error) {
    throw FileError(error.windowsError());
  }
}

}  // namespace

FileError::FileError(DWORD windowsError)
    : HostError(textOf(windowsError)), windowsError(windowsError) {}

std::unique_ptr<FileHandle> openToRead(const std::filesystem::path& path, DWORD share) {
  return onFile(
      [&] { return std::make_unique<FileHandle>(path, GENERIC_READ, share, OPEN_EXISTING); });
}

std::string readAll(FileHandle& file) {
  return onFile([&] { return file.read(); });
}

void replaceDrawing(const std::filesystem::path& path, const std::string& bytes,
                    const std::function<void(const std::string& written)>& judge) {
  if (isReadOnly(path)) throw HostError(L"the file is write-protected");
  const std::filesystem::path folder = path.parent_path();
  if (GetFileAttributesW(folder.c_str()) == INVALID_FILE_ATTRIBUTES) {
    throw HostError(L"the folder doesn't exist");
  }
  wchar_t fresh[MAX_PATH];
  if (!GetTempFileNameW(folder.c_str(), L"dwg", 0, fresh)) throw FileError(GetLastError());
  onFile([&] {
    replaceFile(path, fresh, [&](FileHandle& file) {
      file.write(bytes);
      judge(file.read());
    });
  });
}

}  // namespace wb
