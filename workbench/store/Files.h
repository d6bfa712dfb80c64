#pragma once

#include <windows.h>

#include <cstdint>
#include <filesystem>
#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>

namespace wb {

/// An operation of the store that was refused; nothing has changed.
class StoreError : public std::runtime_error {
 public:
  StoreError(HRESULT code, const std::wstring& what, DWORD windowsError = 0);
  /// The code that the client returns.
  HRESULT code() const { return result; }
  /// What Windows refused about a file; 0 for another failure.
  DWORD windowsError() const { return error; }

 private:
  HRESULT result;
  DWORD error;
};

/// @throws StoreError unless `holds`
void require(bool holds, HRESULT code, const std::wstring& otherwise);

/// Whether a path with backslashes begins at a drive's root or at a share.
bool isFullPath(std::wstring_view path);

/// A full path with backslashes only and no "." or ".." in it; another path as it stands.
/// @throws StoreError E_QVT_PATH_TOO_LONG
std::wstring plainPath(std::wstring_view path);

/// Without the backslash at its end, also of a drive's root.
std::wstring plainFolder(std::wstring_view path);

/// The folder of a file, without a backslash at its end.
std::wstring folderOf(std::wstring_view path);

/// A Windows file handle, and the file's path for the reports of failures.
class FileHandle {
 public:
  /// As CreateFileW.
  /// @throws StoreError E_QVT_FILE_SHARE_ERROR if somebody has the file open in a way that doesn't
  /// go with this one, E_QVT_LOCAL_FILE_NOT_FOUND, E_QVT_IO_ERROR and the like
  FileHandle(const std::filesystem::path& file, DWORD access, DWORD share, DWORD disposition);
  FileHandle(const FileHandle&) = delete;
  FileHandle& operator=(const FileHandle&) = delete;
  ~FileHandle() { CloseHandle(handle); }

  /// The whole content.
  std::string read();
  /// Writes and flushes to the disk.
  void write(const std::string& bytes);
  /// @param date FILETIME of the last write
  void setDateAndAttribute(std::uint64_t date, bool readOnly);

 private:
  const std::filesystem::path file;
  const HANDLE handle;
};

/// Makes a folder and those above it.
/// @throws StoreError E_QVT_COULD_NOT_CREATE_LOCAL_FOLDER
void makeFolder(const std::filesystem::path& folder);

/// Reads a whole file, which nobody may have open for writing. Raises as FileHandle does.
std::string readFile(const std::filesystem::path& file);

/// Puts a new file in place of another in one step: it is written, and moved over the other one.
/// Raises as FileHandle does; the old file is as it was then, and the new one is deleted.
/// @param fresh path of the new file, on the same volume
void replaceFile(const std::filesystem::path& file, const std::filesystem::path& fresh,
                 const std::function<void(FileHandle& fresh)>& write);

/// The same with a content; the new file is written as `name.new` beside the other.
void replaceFile(const std::filesystem::path& file, const std::string& bytes);

/// The same for a user's local file, which may be read-only; its date and attribute change in the
/// same step.
/// @param incoming folder on the same volume where the new file is written; it is removed again
/// @param date FILETIME of the last write
/// @throws StoreError E_QVT_FILE_SHARE_ERROR if anybody has the file open
void replaceLocalFile(const std::filesystem::path& file, const std::filesystem::path& incoming,
                      const std::string& bytes, std::uint64_t date, bool readOnly);

void setReadOnly(const std::filesystem::path& file, bool readOnly);
bool isReadOnly(const std::filesystem::path& file);

/// A FILETIME as one number.
std::uint64_t whole(const FILETIME& time);

/// Time of the last write as FILETIME, 0 without such a file.
std::uint64_t writeTime(const std::filesystem::path& file);

/// Grain of the vault's dates in FILETIME's 100 nanoseconds: two seconds.
constexpr std::uint64_t dateGrain = 20000000;

/// Now, as FILETIME in whole two seconds.
std::uint64_t currentTime();

}  // namespace wb
