#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "core/Text.h"

namespace wb {

/// By a name or a path, ignoring case.
template <class Value>
using NameMap = std::map<std::wstring, Value, LessIgnoringCase>;

struct StoredVersion {
  long number = 0;
  std::wstring user;
  std::wstring comment;
  std::uint64_t date = 0;  ///< FILETIME, in whole two seconds
  std::wstring archive;    ///< name of the content's file in the archive
};

struct Holder {
  std::wstring user;
  std::wstring computer;
  std::wstring folder;
  long folderId = 0;
};

/// The value of a card variable in one configuration.
struct CardValue {
  std::wstring type;  ///< name of its automation type, such as "text" or "null"
  std::wstring text;
};

/// The attribute of a block that shows a card variable's value.
struct CardMapping {
  std::wstring block;
  std::wstring tag;
};

struct CardVariable {
  std::wstring name;
  NameMap<CardValue> values;  ///< by configuration
  std::vector<CardMapping> mappings;
};

struct StoredFile {
  long id = 0;
  std::wstring path;  ///< below the view's root, with a backslash in front
  std::vector<StoredVersion> versions;
  std::optional<Holder> holder;
  std::wstring state = L"Work in progress";
  bool exempt = false;
  bool denied = false;
  std::map<long, long> localVersions;  ///< by folder id
  std::vector<CardVariable> card;

  const StoredVersion& latest() const { return versions.back(); }
  std::wstring name() const { return path.substr(path.rfind(L'\\') + 1); }
};

struct StoredVault {
  std::wstring name;
  std::wstring root;          ///< without a trailing backslash
  std::wstring viewId;        ///< GUID in braces
  NameMap<long> folderIds;    ///< by "computer|folder"
  NameMap<StoredFile> files;  ///< by path below the root

  static constexpr long rootFolderId = 1;

  /// Full local path of a file.
  std::wstring localPath(const StoredFile& file) const { return root + file.path; }
};

/// The vaults as the text of store.json, and back.
/// @throws std::exception if the text isn't what vaultsToJson writes
std::string vaultsToJson(const std::vector<StoredVault>& vaults);
std::vector<StoredVault> vaultsFromJson(const std::string& text);

}  // namespace wb
