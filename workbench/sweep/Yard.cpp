#include "sweep/Yard.h"

#include <windows.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <stdexcept>

#include "core/Program.h"
#include "core/RegistrySettings.h"
#include "core/Text.h"
#include "editor/LoadRecord.h"
#include "scripting/WorkFolder.h"
#include "store/Store.h"

namespace wb {
namespace {

namespace fs = std::filesystem;

/// With dates and attributes, which the vault's local copies live by.
void copyTree(const fs::path& from, const fs::path& to) {
  fs::create_directories(to);
  for (const auto& entry : fs::directory_iterator(from)) {
    const fs::path target = to / entry.path().filename();
    if (entry.is_directory()) {
      copyTree(entry.path(), target);
    } else if (!CopyFileW(entry.path().c_str(), target.c_str(), FALSE)) {
      throw std::runtime_error("can't be copied: " + toUtf8(entry.path().wstring()));
    }
  }
}

/// Also of a drawing that is open in the host.
std::string contentOf(const fs::path& file) {
  std::ifstream in(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

}  // namespace

Yard::Yard(const fs::path& folder, const fs::path& drawings, const char* setUp)
    : work(folder / L"work"), kept(folder / L"kept"), drawings(drawings) {
  prepareWorkFolder(folder, false);
  SessionOptions first = options();
  first.keep = false;
  Session session(first);
  if (!session.run(setUp)) throw std::runtime_error(toUtf8(session.text()));
  for (const auto& entry : fs::recursive_directory_iterator(work / L"Plant")) {
    if (!entry.is_regular_file()) continue;
    localContents[entry.path().wstring()] = contentOf(entry.path());
  }
  session.end();
  copyTree(work, kept);
}

SessionOptions Yard::options() const {
  SessionOptions options;
  options.module = (programFolder() / L"TessaroAcad.arx").wstring();
  options.client = (programFolder() / L"TessaroClient.dll").wstring();
  options.workFolder = work.wstring();
  options.drawings = drawings.wstring();
  options.keep = true;
  return options;
}

void Yard::restore() const {
  deleteTree(work);
  copyTree(kept, work);
  resetSettings();
  clearLoadRecord();
}

std::vector<std::wstring> Yard::losses(bool savesChanges) const {
  std::vector<std::wstring> missed;
  for (const auto& [path, content] : localContents) {
    if (!fs::exists(path)) {
      missed.push_back(L"the local file is gone: " + path);
      continue;
    }
    const StoredFile* file = store().find(path);
    if (!file) {
      continue;  // desktop.ini
    }
    std::vector<std::string> known{content};
    for (const StoredVersion& version : file->versions) {
      const fs::path archived = work / L"store" / L"archive" / version.archive;
      if (fs::exists(archived)) {
        known.push_back(contentOf(archived));
      } else {
        missed.push_back(L"the archive lacks a version of " + path);
      }
    }
    if (std::find(known.begin() + 1, known.end(), content) == known.end()) {
      missed.push_back(L"the first version is gone: " + path);
    }
    const bool mayBeNew = savesChanges && fs::path(path).filename() == L"Plan.dxf";
    if (!mayBeNew && std::find(known.begin(), known.end(), contentOf(path)) == known.end()) {
      missed.push_back(L"the local file holds what nobody stored: " + path);
    }
  }
  return missed;
}

std::map<std::wstring, size_t> Yard::versions() const {
  std::map<std::wstring, size_t> counts;
  for (const auto& [path, content] : localContents) {
    if (const StoredFile* file = store().find(path)) counts[path] = file->versions.size();
  }
  return counts;
}

std::vector<std::wstring> Yard::lossesInStore(const std::map<std::wstring, size_t>& before) const {
  std::vector<std::wstring> missed;
  try {
    store().open(work / L"store");
  } catch (const StoreError& error) {
    return {L"the store doesn't open: " + fromUtf8(error.what())};
  }
  for (const auto& [path, count] : before) {
    const StoredFile* file = store().find(path);
    if (!file || file->versions.size() < count) missed.push_back(L"versions are lost: " + path);
  }
  store().close();
  return missed;
}

}  // namespace wb
