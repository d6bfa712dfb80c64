#pragma once

#include <windows.h>

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "store/Files.h"
#include "store/Records.h"

namespace wb {

/// The vaults behind the stand-in client, kept in one folder as store.json and an archive of the
/// versions' contents. Each change is on the disk when its operation returns; killed at any moment,
/// the store opens again with nothing lost, since a content is archived and flushed before
/// store.json, replaced in one step, refers to it.
///
/// Paths are full Windows paths into a vault's local view, compared ignoring case; a path that
/// isn't full lies in no vault. A file that isn't checked out here is read-only on disk, and a
/// local copy carries its version's date. Operations raise StoreError, with E_QVT_PATH_TOO_LONG for
/// a path that no buffer of MAX_PATH characters holds.
///
/// Vaults and files that are returned are the store's, and good until it changes.
class Store {
 public:
  /// Opens the store in a folder, made if it is missing, and removes what an interrupted write
  /// left. A damaged store, or one that another process has open, is refused and left as it is. The
  /// store that was open before is closed in any case.
  void open(const std::filesystem::path& inFolder);
  void close() { *this = Store(); }

  /// Makes a vault whose local view is `root`; the folder gets a desktop.ini that names the view:
  /// section Tessaro, key ViewID.
  void createVault(const std::wstring& name, const std::wstring& root);

  /// The vault in whose view `path` lies; null if there is none.
  const StoredVault* vaultOf(std::wstring_view path) const;
  const StoredVault* vaultNamed(std::wstring_view name) const;

  /// The file of `path`, null if the vault doesn't hold it.
  const StoredFile* find(std::wstring_view path) const;

  /// Adds a file, as version 1. Its content is that of `from`, or of the local file if that is
  /// empty. Another local file in its place is refused, not overwritten.
  void add(const std::wstring& path, const std::filesystem::path& from, const std::wstring& user,
           const std::wstring& comment);
  /// Makes changes of many files with a single write at their end; those that were made before one
  /// is refused are written, too.
  void inOneWrite(const std::function<void()>& changes);
  /// Stores a further version, as made at another workstation; the local copy stays as it is.
  void addVersion(const std::wstring& path, const std::filesystem::path& from,
                  const std::wstring& user, const std::wstring& comment);

  /// Checks a file out here: the local copy becomes the latest version, and writable.
  void checkOut(const std::wstring& path);
  /// Checks a file out as somebody else, or elsewhere; nothing happens on this disk.
  void checkOutFor(const std::wstring& path, const std::wstring& user, const std::wstring& computer,
                   const std::wstring& folder);
  /// Ends a check-out, whoever has it. If it is held here, the local copy becomes the latest
  /// version.
  void undoCheckOut(const std::wstring& path);
  /// Stores the local file of a check-out held here as a new version.
  void checkIn(const std::wstring& path, const std::wstring& comment, bool keepCheckedOut);

  /// Makes a version the local copy, also of a file that is checked out here; 0 means the latest.
  void fetch(const std::wstring& path, long version);

  /// Version of the local copy in a folder, 0 for none.
  long localVersion(const StoredFile& file, long folderId) const;

  void setState(const std::wstring& path, const std::wstring& state) {
    change(path, [&](StoredFile& file) { file.state = state; });
  }
  void setExempt(const std::wstring& path, bool exempt) {
    change(path, [&](StoredFile& file) { file.exempt = exempt; });
  }
  void setDenied(const std::wstring& path, bool denied) {
    change(path, [&](StoredFile& file) { file.denied = denied; });
  }
  /// Sets the latest version's date, and the local copy's if it is that version.
  void setDate(const std::wstring& path, const FILETIME& date);
  void setCardValue(const std::wstring& path, const std::wstring& variable,
                    const std::wstring& configuration, const CardValue& value);
  void addMapping(const std::wstring& path, const std::wstring& variable, const CardMapping& to);

  /// The id of a computer's local folder in a vault; a new one is made at the first call.
  long folderId(const StoredVault& vault, const std::wstring& computer, const std::wstring& folder);
  /// The id of the local folder that `path` lies in.
  long folderIdOf(const std::wstring& path);

  /// @throws StoreError unless the user holds the file here: E_QVT_FILE_NOT_LOCKED_BY_YOU,
  /// E_QVT_LOCKED_BY_ANOTHER_USER, E_QVT_LOCKED_ON_OTHER_COMPUTER, E_QVT_LOCKED_IN_OTHER_FOLDER
  void requireHeldHere(const std::wstring& path);
  /// Whether this user holds the file on this computer, in whatever folder.
  static bool isHeldByUsHere(const StoredFile& file);

  /// What is known of a file, in lines for a person.
  std::vector<std::wstring> describe(const std::wstring& path) const;

  /// This workstation, and the user who is logged in on it.
  static std::wstring thisComputer();
  static std::wstring thisUser() { return L"engineer"; }

 private:
  std::filesystem::path indexFile() const { return folder / L"store.json"; }
  std::filesystem::path archiveFolder() const { return folder / L"archive"; }
  void read();
  void removeLeftovers() const;
  void write() const;
  void save(const std::function<void()>& undo);
  void archive(StoredFile& file, const std::string& bytes, const std::wstring& user,
               const std::wstring& comment) const;

  StoredVault& vaultFor(const std::wstring& path);
  StoredFile& fileFor(const std::wstring& path);
  void change(const std::wstring& path, const std::function<void(StoredFile&)>& step);
  bool isHeldHere(const std::wstring& path, const StoredFile& file);
  bool isLocalCopyLatest(const std::wstring& path, const StoredFile& file);
  void writeLocal(const std::wstring& path, StoredFile& file, const StoredVersion& version,
                  bool readOnly);

  std::vector<StoredVault> vaults;
  std::filesystem::path folder;      ///< empty unless the store is open
  std::unique_ptr<FileHandle> lock;  ///< keeps other processes out of the folder
  bool isPostponed = false;          ///< whether the write is left to the end of inOneWrite
};

/// The current session's store.
Store& store();

}  // namespace wb
