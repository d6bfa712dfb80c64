#include "database/XrefFile.h"

#include <optional>

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
OpenFile openShared(const path& file, bool& hold) {
  hold = true;
  try {
    return openToRead(file, FILE_SHARE_READ);
  } catch (const FileError& error) {
    if (error.windowsError != ERROR_SHARING_VIOLATION) throw;
  }
  hold = false;
  return openToRead(file, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE);
}

}  // namespace

void XrefFile::open(const std::wstring& storedPath, const std::filesystem::path& folder,
                    const std::filesystem::path& mainFolder) {
  close();
  attached_.clear();
  content_.reset();
  bool hold = false;
  std::optional<FileError> first;
  for (const std::filesystem::path& place : places(storedPath, folder, mainFolder)) {
    try {
      file = openShared(place, hold);
    } catch (const FileError& error) {
      if (!first) first.emplace(error);
      continue;
    }
    path_ = place;
    try {
      read();
    } catch (const HostError&) {
      close();
      throw;
    }
    if (!hold) close();
    return;
  }
  throw FileError(*first);
}

void XrefFile::read() {
  auto content = std::make_unique<DxfContent>();
  auto& [groups, outline, text] = *content;
  groups.parse(readAll(file.get()));
  outline.read(groups);
  text = DxfText(outline.variable(groups, "$ACADVER"), outline.variable(groups, "$DWGCODEPAGE"));
  for (const DxfEntry& entry : outline.entries("BLOCKS")) {
    if (DxfFields(groups, entry).type() != "BLOCK") continue;
    DxfBlock block(groups, text, entry);
    // An overlay is for the drawing that it stands in, not for those that refer to that one.
    if (block.isXref() && !block.isOverlay()) attached_.push_back(std::move(block));
  }
  content_ = std::move(content);
}

}  // namespace wb
