// A file in both generations, and the list of its versions.

#include <vector>

#include "client/ClientCall.h"
#include "client/Objects.h"
#include "core/Text.h"

namespace wb {
namespace {

/// What stands for the version of a copy that isn't there.
constexpr long noVersion = -1;

/// The versions that a file had when the list was asked for.
struct VersionListPart : Dual<VaultVersionList, std::vector<StoredVersion>> {
  STDMETHODIMP firstPosition(VaultPosition** position) override {
    return call().result(position, [&] { return wb::firstPosition(this, state.size()); });
  }

  STDMETHODIMP nextVersion(VaultPosition* position, LONG* version, BSTR* comment, LONG* userId,
                           DATE* date) override {
    return call()
        .object(L"position", position)
        .out(version, L"version")
        .out(comment, L"comment")
        .optionalOut(userId, L"user")
        .optionalOut(date, L"date")
        .run([&] {
          const StoredVersion& found = state[advance(position, this)];
          const DATE made = date ? localDate(found.date) : 0;
          *comment = newBstr(found.comment);
          *version = found.number;
          if (userId) *userId = idOfName(found.user);
          if (date) *date = made;
        });
  }
};

/// What both generations of a file are made of.
template <class Interface>
struct FileBase : Dual<Interface, VaultItem> {
  const std::wstring& path() const { return this->state.path; }
  const StoredFile& file() const { return storedFile(path()); }
  long folderId() const { return store().folderIdOf(path()); }

  /// Checks the file out to the local folder that it is seen through.
  void checkOutTo(long folder) const {
    file();
    if (folder != folderId()) throw ClientFailure(E_QVT_FOLDER_NOT_FOUND);
    store().checkOut(path());
  }
};

struct FilePart : FileBase<VaultFile> {
  STDMETHODIMP getLocalCopy(LONG parentWindow, LONG reserved, VARIANT path, LONG flag,
                            BSTR* localPath) override {
    return call()
        .window(L"parent", parentWindow)
        .with(L"reserved", reserved)
        .with(L"path", path)
        .with(L"flag", flag)
        .result(localPath, [&] {
          const bool isOwn = V_VT(&path) == VT_BSTR && sameName(textOf(V_BSTR(&path)), state.path);
          if (!isOwn) throw ClientFailure(E_INVALIDARG);
          const bool isWanted = flag == 1 || store().localVersion(file(), folderId()) == 0;
          if (isWanted) store().fetch(state.path, file().latest().number);
          return state.path;
        });
  }

  STDMETHODIMP checkOut(LONG folderId, LONG parentWindow, LONG flags) override {
    return call()
        .with(L"folder", folderId)
        .window(L"parent", parentWindow)
        .with(L"flags", flags)
        .run([&] { checkOutTo(folderId); });
  }

  STDMETHODIMP currentState(VaultObject** workflowState) override {
    return call().result(workflowState, [&] { return namedObject(L"state", file().state); });
  }

  STDMETHODIMP isCheckedOut(VARIANT_BOOL* result) override {
    return call().result(result, [&] { return file().holder.has_value(); });
  }

  STDMETHODIMP checkedOutBy(VaultObject** user) override {
    return call().result(user, [&] {
      const auto& holder = file().holder;
      return holder ? namedObject(L"user", holder->user) : nullptr;
    });
  }

  STDMETHODIMP checkedOutOnComputer(BSTR* computer) override {
    return call().result(computer, [&] { return file().holder.value_or(Holder()).computer; });
  }

  STDMETHODIMP latestVersion(LONG* version) override {
    return call().result(version, [&] { return file().latest().number; });
  }

  STDMETHODIMP checkedOutInPath(BSTR* path) override {
    return call().result(path, [&] { return file().holder.value_or(Holder()).folder; });
  }

  STDMETHODIMP checkedOutInFolderId(LONG* folderId) override {
    return call().result(folderId, [&] { return file().holder.value_or(Holder()).folderId; });
  }

  STDMETHODIMP localVersion(VARIANT folder, LONG* version) override {
    return call().with(L"folder", folder).result(version, [&] {
      if (V_VT(&folder) != VT_I4) throw ClientFailure(E_INVALIDARG);
      const long local = store().localVersion(file(), V_I4(&folder));
      // The user may have deleted the copy of this folder; of others there is only the record.
      const bool isGone = V_I4(&folder) == folderId() &&
                          GetFileAttributesW(state.path.c_str()) == INVALID_FILE_ATTRIBUTES;
      return local < 1 || isGone ? noVersion : local;
    });
  }
};

struct LegacyFilePart : FileBase<VaultFileLegacy> {
  STDMETHODIMP name(BSTR* result) override {
    return call().result(result, [&] { return file().name(); });
  }

  STDMETHODIMP checkOut(VaultFolderLegacy* folder, LONG parentWindow) override {
    return call().object(L"folder", folder).window(L"parent", parentWindow).run([&] {
      checkOutTo(folderIdOf(folder));
    });
  }

  STDMETHODIMP versionList(VaultVersionList** versions) override {
    return call().result(versions, [&] {
      return make<VaultVersionList, VersionListPart>(namedLabel(L"VaultVersionList", state.name),
                                                     file().versions);
    });
  }

  STDMETHODIMP cardData(BSTR name, VaultCardData** card) override {
    return call().with(L"name", name).result(card, [&] {
      // The one card that a file of the store has is that of its type, which has no name.
      if (!textOf(name).empty()) throw ClientFailure(E_QVT_CARD_NOT_FOUND);
      file();
      return cardDataObject(state);
    });
  }

  STDMETHODIMP isCheckedOutHere(LONG folder, VARIANT_BOOL* result) override {
    return call().with(L"folder", folder).result(result, [&] {
      return Store::isHeldByUsHere(file()) && file().holder->folderId == folder;
    });
  }

  STDMETHODIMP isCheckedOut(LONG* userId, LONG* inFolderId, LONG* version,
                            VARIANT_BOOL* result) override {
    return call()
        .out(result, L"result")
        .optionalOut(userId, L"user")
        .optionalOut(inFolderId, L"folder")
        .optionalOut(version, L"version")
        .run([&] {
          const auto& holder = file().holder;
          if (!holder) return;
          if (userId) *userId = idOfName(holder->user);
          if (inFolderId) *inFolderId = holder->folderId;
          if (version) *version = store().localVersion(file(), holder->folderId);
          *result = VARIANT_TRUE;
        });
  }
};

}  // namespace

template <class File>
Owned<File> fileObject(const StoredVault& vault, const StoredFile& file) {
  using Part = std::conditional_t<std::is_same_v<File, VaultFile>, FilePart, LegacyFilePart>;
  const VaultItem item{file.id, file.name(), vault.localPath(file)};
  return make<File, Part, NamedPart>(namedLabel(interfaceName<File>(), item.name), item);
}

template Owned<VaultFile> fileObject(const StoredVault& vault, const StoredFile& file);
template Owned<VaultFileLegacy> fileObject(const StoredVault& vault, const StoredFile& file);

}  // namespace wb
