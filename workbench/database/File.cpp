#include "database/File.h"

#include <algorithm>

namespace wb {

namespace {

constexpr DWORD chunkSize = 1u << 24;

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

/// A file beside the one that it will replace; gone again unless it is kept.
class TemporaryFile {
 public:
  explicit TemporaryFile(const std::filesystem::path& folder) {
    wchar_t name[MAX_PATH];
    if (!GetTempFileNameW(folder.c_str(), L"dwg", 0, name)) return;
    path_ = name;
    handle_.reset(CreateFileW(name, GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING,
                              FILE_ATTRIBUTE_NORMAL, nullptr));
    if (handle_.get() == INVALID_HANDLE_VALUE) static_cast<void>(handle_.release());
  }
  ~TemporaryFile() {
    handle_.reset();
    if (!path_.empty()) DeleteFileW(path_.c_str());
  }
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;

  void write(const std::string& bytes) {
    if (!handle_) throw FileError(GetLastError());
    for (size_t position = 0; position < bytes.size();) {
      const auto size = static_cast<DWORD>(std::min<size_t>(chunkSize, bytes.size() - position));
      DWORD written = 0;
      if (!WriteFile(handle_.get(), bytes.data() + position, size, &written, nullptr)) {
        throw FileError(GetLastError());
      }
      position += written;
    }
    if (!FlushFileBuffers(handle_.get())) throw FileError(GetLastError());
  }

  std::string readBack() {
    if (!SetFilePointerEx(handle_.get(), {}, nullptr, FILE_BEGIN)) throw FileError(GetLastError());
    return readAll(handle_.get());
  }

  void moveTo(const std::filesystem::path& target) {
    handle_.reset();
    if (!MoveFileExW(path_.c_str(), target.c_str(),
                     MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH)) {
      throw FileError(GetLastError());
    }
    path_.clear();
  }

 private:
  std::wstring path_;
  OpenFile handle_;
};

}  // namespace

FileError::FileError(DWORD windowsError)
    : HostError(textOf(windowsError)), windowsError(windowsError) {}

OpenFile openToRead(const std::filesystem::path& path, DWORD share) {
  const HANDLE handle = CreateFileW(path.c_str(), GENERIC_READ, share, nullptr, OPEN_EXISTING,
                                    FILE_ATTRIBUTE_NORMAL, nullptr);
  if (handle == INVALID_HANDLE_VALUE) throw FileError(GetLastError());
  return OpenFile(handle);
}

std::string readAll(HANDLE file) {
  LARGE_INTEGER size{};
  if (!GetFileSizeEx(file, &size)) throw FileError(GetLastError());
  std::string bytes(static_cast<size_t>(size.QuadPart), '\0');
  size_t position = 0;
  while (position < bytes.size()) {
    const auto wanted = static_cast<DWORD>(std::min<size_t>(chunkSize, bytes.size() - position));
    DWORD got = 0;
    if (!ReadFile(file, bytes.data() + position, wanted, &got, nullptr)) {
      throw FileError(GetLastError());
    }
    if (got == 0) break;
    position += got;
  }
  bytes.resize(position);
  return bytes;
}

void replaceDrawing(const std::filesystem::path& path, const std::string& bytes,
                    const ReadBack& judge) {
  const DWORD attributes = GetFileAttributesW(path.c_str());
  if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY) != 0) {
    throw HostError(L"the file is write-protected");
  }
  if (GetFileAttributesW(path.parent_path().c_str()) == INVALID_FILE_ATTRIBUTES) {
    throw HostError(L"the folder doesn't exist");
  }
  TemporaryFile fresh(path.parent_path());
  fresh.write(bytes);
  judge(fresh.readBack());
  fresh.moveTo(path);
}

}  // namespace wb
