#include "store/Files.h"

#include <algorithm>

#include "core/ResultCodes.h"
#include "core/Text.h"

namespace wb {

namespace {

HRESULT codeOf(DWORD error) {
  switch (error) {
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
    case ERROR_USER_MAPPED_FILE:
      return E_QVT_FILE_SHARE_ERROR;
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
      return E_QVT_LOCAL_FILE_NOT_FOUND;
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
      return E_QVT_DISK_FULL;
    case ERROR_INVALID_NAME:
      return E_QVT_INVALID_NAME;
    case ERROR_FILE_TOO_LARGE:
      return E_QVT_INVALID_FILE;
    default:
      return E_QVT_IO_ERROR;
  }
}

[[noreturn]] void raise(const std::filesystem::path& file, DWORD error = GetLastError()) {
  throw StoreError(codeOf(error), file.wstring() + L": Windows error " + std::to_wstring(error),
                   error);
}

}  // namespace

StoreError::StoreError(HRESULT code, const std::wstring& what, DWORD windowsError)
    : std::runtime_error(toUtf8(what)), result(code), error(windowsError) {}

void require(bool holds, HRESULT code, const std::wstring& otherwise) {
  if (!holds) throw StoreError(code, otherwise);
}

bool isFullPath(std::wstring_view path) {
  return (path.size() > 2 && path[1] == L':' && path[2] == L'\\') || path.substr(0, 2) == L"\\\\";
}

std::wstring plainPath(std::wstring_view path) {
  std::wstring result(path);
  std::replace(result.begin(), result.end(), L'/', L'\\');
  if (isFullPath(result)) {
    const DWORD size = GetFullPathNameW(result.c_str(), 0, nullptr, nullptr);
    std::wstring full(size, L'\0');
    full.resize(GetFullPathNameW(result.c_str(), size, full.data(), nullptr));
    result = full;
  }
  if (result.size() < MAX_PATH) return result;
  throw StoreError(E_QVT_PATH_TOO_LONG,
                   result + L" has more than " + std::to_wstring(MAX_PATH - 1) + L" characters");
}

std::wstring plainFolder(std::wstring_view path) {
  std::wstring result = plainPath(path);
  while (!result.empty() && result.back() == L'\\') result.pop_back();
  return result;
}

std::wstring folderOf(std::wstring_view path) {
  return std::wstring(path.substr(0, path.rfind(L'\\')));
}

FileHandle::FileHandle(const std::filesystem::path& file, DWORD access, DWORD share,
                       DWORD disposition)
    : file(file),
      handle(CreateFileW(file.c_str(), access, share, nullptr, disposition, FILE_ATTRIBUTE_NORMAL,
                         nullptr)) {
  if (handle == INVALID_HANDLE_VALUE) raise(file);
}

std::string FileHandle::read() {
  LARGE_INTEGER size;
  if (!SetFilePointerEx(handle, {}, nullptr, FILE_BEGIN) || !GetFileSizeEx(handle, &size)) {
    raise(file);
  }
  if (size.QuadPart > MAXDWORD) raise(file, ERROR_FILE_TOO_LARGE);
  std::string bytes(static_cast<size_t>(size.QuadPart), '\0');
  DWORD done = 0;
  if (!ReadFile(handle, bytes.data(), static_cast<DWORD>(bytes.size()), &done, nullptr)) {
    raise(file);
  }
  if (done != bytes.size()) raise(file, ERROR_HANDLE_EOF);
  return bytes;
}

void FileHandle::write(const std::string& bytes) {
  if (bytes.size() > MAXDWORD) raise(file, ERROR_FILE_TOO_LARGE);
  DWORD done = 0;
  if (!WriteFile(handle, bytes.data(), static_cast<DWORD>(bytes.size()), &done, nullptr)) {
    raise(file);
  }
  if (done != bytes.size()) raise(file, ERROR_DISK_FULL);
  if (!FlushFileBuffers(handle)) raise(file);
}

void FileHandle::setDateAndAttribute(std::uint64_t date, bool readOnly) {
  FILE_BASIC_INFO information{};
  information.LastWriteTime.QuadPart = static_cast<LONGLONG>(date);
  information.FileAttributes = readOnly ? FILE_ATTRIBUTE_READONLY : FILE_ATTRIBUTE_NORMAL;
  if (!SetFileInformationByHandle(handle, FileBasicInfo, &information, sizeof(information))) {
    raise(file);
  }
}

void makeFolder(const std::filesystem::path& folder) {
  std::error_code error;
  std::filesystem::create_directories(folder, error);
  if (!error) return;
  throw StoreError(E_QVT_COULD_NOT_CREATE_LOCAL_FOLDER,
                   folder.wstring() + L" can't be made: " + fromUtf8(error.message()));
}

std::string readFile(const std::filesystem::path& file) {
  return FileHandle(file, GENERIC_READ, FILE_SHARE_READ, OPEN_EXISTING).read();
}

void replaceFile(const std::filesystem::path& file, const std::filesystem::path& fresh,
                 const std::function<void(FileHandle& fresh)>& write) {
  try {
    {
      FileHandle handle(fresh, GENERIC_READ | GENERIC_WRITE, 0, CREATE_ALWAYS);
      write(handle);
    }
    if (!MoveFileExW(fresh.c_str(), file.c_str(),
                     MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH)) {
      raise(file);
    }
  } catch (...) {
    // It may be read-only already.
    SetFileAttributesW(fresh.c_str(), FILE_ATTRIBUTE_NORMAL);
    DeleteFileW(fresh.c_str());
    throw;
  }
}

void replaceFile(const std::filesystem::path& file, const std::string& bytes) {
  replaceFile(file, file.wstring() + L".new", [&](FileHandle& fresh) { fresh.write(bytes); });
}

void replaceLocalFile(const std::filesystem::path& file, const std::filesystem::path& incoming,
                      const std::string& bytes, std::uint64_t date, bool readOnly) {
  makeFolder(file.parent_path());
  makeFolder(incoming);
  SetFileAttributesW(incoming.c_str(), FILE_ATTRIBUTE_HIDDEN);
  const bool wasReadOnly = isReadOnly(file);
  try {
    replaceFile(file, incoming / L"new", [&](FileHandle& fresh) {
      fresh.write(bytes);
      fresh.setDateAndAttribute(date, readOnly);
      // MoveFileExW replaces a writable file only.
      if (wasReadOnly) setReadOnly(file, false);
      // A rename may succeed under somebody's open handle; that program would keep the old
      // content, so a file that is open isn't replaced.
      if (writeTime(file) != 0) FileHandle(file, GENERIC_READ | GENERIC_WRITE, 0, OPEN_EXISTING);
    });
  } catch (...) {
    if (wasReadOnly) SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_READONLY);
    RemoveDirectoryW(incoming.c_str());
    throw;
  }
  RemoveDirectoryW(incoming.c_str());
}

void setReadOnly(const std::filesystem::path& file, bool readOnly) {
  DWORD attributes = GetFileAttributesW(file.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) raise(file);
  attributes = readOnly ? attributes | FILE_ATTRIBUTE_READONLY
                        : attributes & ~static_cast<DWORD>(FILE_ATTRIBUTE_READONLY);
  if (!SetFileAttributesW(file.c_str(), attributes)) raise(file);
}

bool isReadOnly(const std::filesystem::path& file) {
  const DWORD attributes = GetFileAttributesW(file.c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY);
}

std::uint64_t whole(const FILETIME& time) {
  return (static_cast<std::uint64_t>(time.dwHighDateTime) << 32) | time.dwLowDateTime;
}

std::uint64_t writeTime(const std::filesystem::path& file) {
  WIN32_FILE_ATTRIBUTE_DATA data;
  if (!GetFileAttributesExW(file.c_str(), GetFileExInfoStandard, &data)) return 0;
  return whole(data.ftLastWriteTime);
}

std::uint64_t currentTime() {
  FILETIME now;
  GetSystemTimeAsFileTime(&now);
  return whole(now) / dateGrain * dateGrain;
}

}  // namespace wb
