#pragma once

#include <windows.h>

#include <cstdint>
#include <filesystem>
#include <string>

namespace wb {

/// A Windows file handle, and the file's path for what is told of a failure.
class FileHandle {
 public:
  /// As CreateFileW. Raises StoreError: E_QVT_FILE_SHARE_ERROR if somebody has the file open in a
  /// way that doesn't go with this one, E_QVT_LOCAL_FILE_NOT_FOUND, E_QVT_IO_ERROR and the like.
  FileHandle(const std::filesystem::path& file, DWORD access, DWORD share, DWORD disposition);
  FileHandle(const FileHandle&) = delete;
  FileHandle& operator=(const FileHandle&) = delete;
  ~FileHandle() { CloseHandle(handle); }

  std::string read();
  /// Writes and flushes to the disk.
  void write(const std::string& bytes);
  /// @param date FILETIME of the last write
  void settle(std::uint64_t date, bool readOnly);

 private:
  const std::filesystem::path file;
  const HANDLE handle;
};

/// Makes a folder and those above it. Raises StoreError E_QVT_COULD_NOT_CREATE_LOCAL_FOLDER.
void makeFolder(const std::filesystem::path& folder);

/// Reads a whole file, which nobody may have open for writing. Raises as FileHandle does.
std::string readFile(const std::filesystem::path& file);

/// Puts `bytes` in place of a file in one step: written beside it under `name.new`, flushed, moved
/// over it. Raises as FileHandle does.
void replaceFile(const std::filesystem::path& file, const std::string& bytes);

/// The same for a user's local file, which may be read-only; its date and attribute come with it
/// in the same step.
/// @param incoming folder on the same volume where the new file is written, made for the while
/// @param date FILETIME of the last write
/// Raises StoreError E_QVT_FILE_SHARE_ERROR if anybody has the file open.
void replaceLocalFile(const std::filesystem::path& file, const std::filesystem::path& incoming,
                      const std::string& bytes, std::uint64_t date, bool readOnly);

void setReadOnly(const std::filesystem::path& file, bool readOnly);
bool isReadOnly(const std::filesystem::path& file);

/// Time of the last write as FILETIME, 0 without such a file.
std::uint64_t writeTime(const std::filesystem::path& file);

/// Grain of the vault's dates in FILETIME's 100 nanoseconds: two seconds.
constexpr std::uint64_t dateGrain = 20000000;

/// Now, as FILETIME in whole two seconds.
std::uint64_t currentTime();

}  // namespace wb
