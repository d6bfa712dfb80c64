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
    default:
      return L"Windows error " + std::to_wstring(code);
  }
}

/// @throws FileError with Windows' last error
void require(bool succeeded) {
  if (!succeeded) throw FileError(GetLastError());
}

OpenFile open(const std::filesystem::path& path, DWORD access, DWORD share) {
  const HANDLE handle = CreateFileW(path.c_str(), access, share, nullptr, OPEN_EXISTING,
                                    FILE_ATTRIBUTE_NORMAL, nullptr);
  require(handle != INVALID_HANDLE_VALUE);
  return OpenFile(handle);
}

/// A size as Windows' calls take it: a file is read and written in one call.
DWORD wholeSize(std::uint64_t size) {
  if (size > MAXDWORD) throw HostError(L"the file is larger than 4 GB");
  return static_cast<DWORD>(size);
}

/// Deletes a file unless it is renamed.
struct FileDeleter {
  std::wstring path;
  ~FileDeleter() {
    if (!path.empty()) DeleteFileW(path.c_str());
  }
};

}  // namespace

FileError::FileError(DWORD windowsError)
    : HostError(textOf(windowsError)), windowsError(windowsError) {}

OpenFile openToRead(const std::filesystem::path& path, DWORD share) {
  return open(path, GENERIC_READ, share);
}

std::string readAll(HANDLE file) {
  LARGE_INTEGER size{};
  require(SetFilePointerEx(file, {}, nullptr, FILE_BEGIN) && GetFileSizeEx(file, &size));
  std::string bytes(wholeSize(static_cast<std::uint64_t>(size.QuadPart)), '\0');
  DWORD read = 0;
  require(ReadFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &read, nullptr));
  bytes.resize(read);
  return bytes;
}

void replaceDrawing(const std::filesystem::path& path, const std::string& bytes,
                    const std::function<void(const std::string& written)>& judge) {
  const DWORD attributes = GetFileAttributesW(path.c_str());
  if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY) != 0) {
    throw HostError(L"the file is write-protected");
  }
  const std::filesystem::path folder = path.parent_path();
  if (GetFileAttributesW(folder.c_str()) == INVALID_FILE_ATTRIBUTES) {
    throw HostError(L"the folder doesn't exist");
  }
  wchar_t name[MAX_PATH];
  require(GetTempFileNameW(folder.c_str(), L"dwg", 0, name));
  FileDeleter fresh{name};
  {
    const OpenFile file = open(fresh.path, GENERIC_READ | GENERIC_WRITE, 0);
    DWORD written = 0;
    require(WriteFile(file.get(), bytes.data(), wholeSize(bytes.size()), &written, nullptr) &&
            FlushFileBuffers(file.get()));
    judge(readAll(file.get()));
  }
  require(MoveFileExW(fresh.path.c_str(), path.c_str(),
                      MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH));
  fresh.path.clear();
}

}  // namespace wb
