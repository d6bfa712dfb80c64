#include "database/File.h"

#include <algorithm>

namespace wb {

namespace {

constexpr DWORD chunkSize = 1u << 24;

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

  bool open() const { return handle_ != nullptr; }

  bool write(const std::string& bytes) {
    for (size_t position = 0; position < bytes.size();) {
      const auto size = static_cast<DWORD>(std::min<size_t>(chunkSize, bytes.size() - position));
      DWORD written = 0;
      if (!WriteFile(handle_.get(), bytes.data() + position, size, &written, nullptr)) return false;
      position += written;
    }
    return FlushFileBuffers(handle_.get()) != 0;
  }

  bool readBack(std::string& bytes) {
    DWORD failure = NO_ERROR;
    const bool read = SetFilePointerEx(handle_.get(), {}, nullptr, FILE_BEGIN) &&
                      readAll(handle_.get(), bytes, failure);
    if (failure != NO_ERROR) SetLastError(failure);
    return read;
  }

  bool moveTo(const std::filesystem::path& target) {
    handle_.reset();
    if (!MoveFileExW(path_.c_str(), target.c_str(),
                     MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH)) {
      return false;
    }
    path_.clear();
    return true;
  }

 private:
  std::wstring path_;
  OpenFile handle_;
};

}  // namespace

OpenFile openToRead(const std::filesystem::path& path, DWORD share, DWORD& failure) {
  const HANDLE handle = CreateFileW(path.c_str(), GENERIC_READ, share, nullptr, OPEN_EXISTING,
                                    FILE_ATTRIBUTE_NORMAL, nullptr);
  failure = handle == INVALID_HANDLE_VALUE ? GetLastError() : NO_ERROR;
  return OpenFile(handle == INVALID_HANDLE_VALUE ? nullptr : handle);
}

bool readAll(HANDLE file, std::string& bytes, DWORD& failure) {
  LARGE_INTEGER size{};
  bool read = GetFileSizeEx(file, &size) != 0;
  bytes.resize(read ? static_cast<size_t>(size.QuadPart) : 0);
  size_t position = 0;
  while (read && position < bytes.size()) {
    const auto wanted = static_cast<DWORD>(std::min<size_t>(chunkSize, bytes.size() - position));
    DWORD got = 0;
    read = ReadFile(file, bytes.data() + position, wanted, &got, nullptr) != 0;
    if (got == 0) break;
    position += got;
  }
  failure = read ? NO_ERROR : GetLastError();
  bytes.resize(position);
  return read;
}

bool replaceDrawing(const std::filesystem::path& path, const std::string& bytes,
                    const ReadBack& isGood, std::wstring& error) {
  const DWORD attributes = GetFileAttributesW(path.c_str());
  if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY) != 0) {
    error = L"the file is write-protected";
    return false;
  }
  if (GetFileAttributesW(path.parent_path().c_str()) == INVALID_FILE_ATTRIBUTES) {
    error = L"the folder doesn't exist";
    return false;
  }
  TemporaryFile fresh(path.parent_path());
  std::string written;
  if (!fresh.open() || !fresh.write(bytes) || !fresh.readBack(written)) {
    error = fileErrorText(GetLastError());
    return false;
  }
  if (!isGood(written, error)) return false;
  if (fresh.moveTo(path)) return true;
  error = fileErrorText(GetLastError());
  return false;
}

std::wstring fileErrorText(DWORD code) {
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

}  // namespace wb
