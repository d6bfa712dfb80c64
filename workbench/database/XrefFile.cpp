#include "database/XrefFile.h"

namespace wb {

namespace {

using std::filesystem::path;

std::vector<path> places(const std::wstring& storedPath, const path& folder,
                         const path& mainFolder) {
  const path stored(storedPath);
  const bool absolute = stored.has_root_name() || stored.has_root_directory();
  return {(absolute ? stored : folder / stored).lexically_normal(), folder / stored.filename(),
          mainFolder / stored.filename()};
}

// The host lets others read a loaded xref, not write it. One that somebody has open for writing is
// read and not held: it can be saved while it is in use.
OpenFile openShared(const path& file, bool& hold, DWORD& failure) {
  hold = true;
  OpenFile handle = openToRead(file, FILE_SHARE_READ, failure);
  if (handle || failure != ERROR_SHARING_VIOLATION) return handle;
  hold = false;
  return openToRead(file, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, failure);
}

}  // namespace

bool XrefFile::open(const std::wstring& storedPath, const std::filesystem::path& folder,
                    const std::filesystem::path& mainFolder, std::wstring& error) {
  close();
  attached_.clear();
  bool hold = false;
  DWORD firstFailure = NO_ERROR;
  for (const std::filesystem::path& place : places(storedPath, folder, mainFolder)) {
    DWORD failure = NO_ERROR;
    file = openShared(place, hold, failure);
    if (firstFailure == NO_ERROR) firstFailure = failure;
    if (!file) continue;
    path_ = place;
    const bool good = read(error);
    if (!good || !hold) close();
    return good;
  }
  error = fileErrorText(firstFailure);
  return false;
}

bool XrefFile::read(std::wstring& error) {
  std::string bytes;
  DWORD failure = NO_ERROR;
  if (!readAll(file.get(), bytes, failure)) {
    error = fileErrorText(failure);
    return false;
  }
  DxfGroups groups;
  DxfOutline outline;
  if (!groups.parse(std::move(bytes), error) || !outline.read(groups, error)) return false;
  const DxfText text(outline.variable(groups, "$ACADVER"),
                     outline.variable(groups, "$DWGCODEPAGE"));
  for (const DxfEntry& entry : outline.entries("BLOCKS")) {
    if (DxfFields(groups, entry).type() != "BLOCK") continue;
    DxfBlock block(groups, text, entry);
    // An overlay is for the drawing that it stands in, not for those that refer to that one.
    if (block.isXref() && !block.isOverlay()) attached_.push_back(std::move(block));
  }
  return true;
}

}  // namespace wb
