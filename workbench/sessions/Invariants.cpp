#include "sessions/Invariants.h"

#include <windows.h>

#include <acdocman.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "core/Text.h"
#include "core/Transcript.h"
#include "dialogs/Reader.h"
#include "sessions/Places.h"
#include "store/Store.h"
#include "ui/resource.h"

namespace sessions {
namespace {

bool heapsAreSound() {
  std::array<HANDLE, 64> heaps{};
  const DWORD count = GetProcessHeaps(static_cast<DWORD>(heaps.size()), heaps.data());
  for (DWORD at = 0; at < count && at < heaps.size(); ++at) {
    if (!HeapValidate(heaps[at], 0, nullptr)) return false;
  }
  return count != 0;
}

std::wstring versionName(long version) {
  return version < 1 ? std::wstring(L"-") : std::to_wstring(version);
}

std::string contentOf(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

bool isStored(const wb::StoredFile& file, const std::string& content) {
  for (const wb::StoredVersion& version : file.versions) {
    if (contentOf(workFolder() / L"store" / L"archive" / version.archive) == content) return true;
  }
  return false;
}

/// A check-out, a refresh or a version that was asked for brings the vault's content to the disk; a
/// saving writes the user's next content.
bool replacesLocalFiles(const wb::Event& event) {
  if (event.cause == wb::Event::documentSaved) return true;
  if (event.kind != wb::Event::client) return false;
  const std::wstring operation = event.subject.substr(event.subject.find(L'.') + 1);
  return operation == L"checkOut" || operation == L"getLocalCopy" || operation == L"getVersion";
}

}  // namespace

std::string Invariants::check(bool thorough, size_t firstEvent, bool undone) {
  if (!heapsAreSound()) return "a heap is damaged";
  std::string problem = checkVault(thorough);
  if (!problem.empty()) return problem;
  return checkSaved(undone || wb::Transcript::instance().anySince(firstEvent, replacesLocalFiles));
}

/// What the user saved stays on the disk or becomes a version, unless he has the vault put another
/// version in its place.
std::string Invariants::checkSaved(bool mayBeReplaced) {
  const wb::StoredVault* vault = wb::store().vaultNamed(L"Works");
  for (const auto& [name, file] : vault->files) {
    const std::wstring path = wb::Store::localPath(*vault, file);
    const std::string now = contentOf(path);
    const auto before = saved.find(path);
    if (before != saved.end() && before->second != now && !isStored(file, before->second) &&
        !mayBeReplaced) {
      return "what was saved is lost: " + wb::toUtf8(name);
    }
    saved[path] = now;
  }
  return {};
}

std::string Invariants::checkVault(bool thorough) {
  const wb::StoredVault* vault = wb::store().vaultNamed(L"Works");
  if (!vault) return "the vault is gone";
  for (const auto& [name, file] : vault->files) {
    const std::wstring path = wb::Store::localPath(*vault, file);
    size_t& known = versions[path];
    if (file.versions.size() < known) return "versions are lost: " + wb::toUtf8(name);
    known = file.versions.size();
    if (!std::filesystem::exists(path)) return "the local file is gone: " + wb::toUtf8(name);
    for (const wb::StoredVersion& version : file.versions) {
      const bool seen = contents.count(version.archive) != 0;
      if (seen && !thorough) continue;
      std::ifstream stream(workFolder() / L"store" / L"archive" / version.archive,
                           std::ios::binary);
      std::string content(std::istreambuf_iterator<char>(stream), {});
      if (!stream || content.empty()) return "a content can't be read: " + wb::toUtf8(name);
      const auto at = contents.emplace(version.archive, content).first;
      if (at->second != content) return "a content has changed: " + wb::toUtf8(name);
    }
  }
  for (const auto& [path, count] : versions) {
    if (!wb::store().find(path)) return "a file left the vault: " + wb::toUtf8(path);
  }
  return {};
}

std::string checkStatusWindow() {
  const HWND window = wb::findStatusWindow();
  const AcApDocument* document = acDocManagerPtr()->mdiActiveDocument();
  if (!window || !document) return {};
  const std::wstring path = document->fileName();
  const wb::StoredFile* file = wb::store().find(path);
  std::wstring versions = L"-/-";
  UINT lock = BST_UNCHECKED;
  if (file && !file->denied) {
    const long here = wb::store().folderIdOf(path);
    file = wb::store().find(path);  // the store gives ids out at the first question
    versions = versionName(wb::store().localVersion(*file, here)) + L"/" +
               versionName(file->latest().number);
    if (file->holder) {
      const bool mine = file->holder->user == wb::Store::thisUser() &&
                        file->holder->computer == wb::Store::thisComputer() &&
                        file->holder->folderId == here;
      lock = mine ? BST_CHECKED : BST_INDETERMINATE;
    }
  } else if (file) {
    return {};
  }
  const std::wstring shown = wb::windowTitle(GetDlgItem(window, IDC_VERSION));
  // The words in front are the client's.
  if (shown.substr(shown.rfind(L' ') + 1) != versions) {
    return "the status window shows " + wb::toUtf8(shown) + " for " + wb::toUtf8(versions);
  }
  if (IsDlgButtonChecked(window, IDC_CHECKED_OUT_HERE) != lock)
    return "the status window's lock box is wrong";
  return {};
}

}  // namespace sessions
