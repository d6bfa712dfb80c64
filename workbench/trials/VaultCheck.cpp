#include "trials/VaultCheck.h"

#include <algorithm>

#include "core/Text.h"
#include "scripting/SessionFiles.h"

namespace wb {
namespace {

[[noreturn]] void fail(const char* what, const std::wstring& path) {
  throw CheckFailure(what + toUtf8(path));
}

}  // namespace

void VaultCheck::check(bool thorough, const Allowed& allowed) {
  const StoredVault* vault = store().vaultNamed(vaultName);
  if (!vault) fail("the vault is gone: ", vaultName);
  const std::wstring viewFile = vault->root + L"\\desktop.ini";
  if (!std::filesystem::exists(viewFile)) fail("the local file is gone: ", viewFile);
  for (const auto& [name, file] : vault->files) {
    const std::wstring path = vault->localPath(file);
    checkVersions(path, file, thorough);
    checkLocalFile(path, file, allowed);
  }
  for (const auto& [path, count] : versions) {
    if (!store().find(path)) fail("a file left the vault: ", path);
  }
}

void VaultCheck::checkVersions(const std::wstring& path, const StoredFile& file, bool thorough) {
  size_t& known = versions[path];
  if (file.versions.size() < known) fail("versions are lost: ", path);
  known = file.versions.size();
  for (const StoredVersion& version : file.versions) {
    const auto before = contents.find(version.archive);
    if (before != contents.end() && !thorough) continue;
    const std::string content = bytesOf(archive / version.archive);
    if (content.empty()) fail("a content is empty: ", path);
    if (before == contents.end()) {
      contents[version.archive] = content;
    } else if (before->second != content) {
      fail("a content has changed: ", path);
    }
  }
}

void VaultCheck::checkLocalFile(const std::wstring& path, const StoredFile& file,
                                const Allowed& allowed) {
  if (!std::filesystem::exists(path)) fail("the local file is gone: ", path);
  const std::string now = bytesOf(path);
  const auto before = localCopies.find(path);
  if (before != localCopies.end() && before->second != now) {
    if (!allowed.replacing && !isStored(file, before->second)) {
      fail("what was saved is lost: ", path);
    }
    const bool mayBeNew = !allowed.savedFile || *allowed.savedFile == file.name();
    if (!mayBeNew && !isStored(file, now)) {
      fail("the local file holds what nobody stored: ", path);
    }
  }
  localCopies[path] = now;
}

bool VaultCheck::isStored(const StoredFile& file, const std::string& content) const {
  return std::any_of(file.versions.begin(), file.versions.end(), [&](const StoredVersion& version) {
    return contents.at(version.archive) == content;
  });
}

}  // namespace wb
