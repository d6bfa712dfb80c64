#include "database/Xrefs.h"
#include "core/Lists.h"

#include <xgraph.h>

#include <algorithm>
#include <map>
#include <optional>

#include "core/Text.h"
#include "core/Transcript.h"
#include "database/Drawing.h"
#include "gate/HostError.h"

namespace wb {

namespace {

using std::filesystem::path;

void reportXref(const std::wstring& what, const std::wstring& name, const std::wstring& rest = {},
                Event::Cause cause = Event::other) {
  report({Event::xref, cause, name, what + L" " + name + rest});
}

/// Whether a chain of xrefs leads from one to the other.
/// @param throughLoaded only xrefs that are loaded lead on
bool leadsTo(const Xrefs::Xref& from, const Xrefs::Xref& to, bool throughLoaded) {
  if (&from == &to) return true;
  return (from.loaded || !throughLoaded) &&
         std::any_of(from.nested.begin(), from.nested.end(),
                     [&](const auto* next) { return leadsTo(*next, to, throughLoaded); });
}

/// The host lets others read a loaded xref, not write it. One that somebody has open for writing is
/// read and not held: it can be saved while it is in use.
std::unique_ptr<FileHandle> openShared(const path& file, bool& held) {
  try {
    held = true;
    return openToRead(file, FILE_SHARE_READ);
  } catch (const FileError& error) {
    if (error.windowsError != ERROR_SHARING_VIOLATION) throw;
  }
  held = false;
  return openToRead(file, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE);
}

}  // namespace

Xrefs::Xref* Xrefs::find(const BlockRecordImp* record) const {
  const auto found = std::find_if(xrefs.begin(), xrefs.end(),
                                  [&](const auto& xref) { return xref->record == record; });
  return found == xrefs.end() ? nullptr : found->get();
}

/// @param undone what isn't done to an xref that doesn't exist
Xrefs::Xref& Xrefs::require(std::wstring_view name, const wchar_t* undone) const {
  if (Xref* xref = find(drawing.findRecord(name))) return *xref;
  reportXref(L"unknown", std::wstring(name), L", not " + std::wstring(undone));
  throw HostError(L"there is no such xref", Acad::eKeyNotFound);
}

/// Whether a chain of xrefs leads from the drawing to it.
bool Xrefs::reached(const Xref& xref, bool throughLoaded) const {
  return std::any_of(xrefs.begin(), xrefs.end(), [&](const auto& one) {
    return one->direct && leadsTo(*one, xref, throughLoaded);
  });
}

void Xrefs::add(BlockRecordImp& record, bool direct, const path& folder) {
  xrefs.push_back(std::make_unique<Xref>(Xref{&record, direct, folder}));
}

void Xrefs::loadAll() {
  for (BlockRecordImp* record : drawing.records()) {
    if (record->isXref) add(*record, true, {});
  }
  // Nested ones are added behind these, each loaded by the one that names it.
  const size_t direct = xrefs.size();
  for (size_t index = 0; index < direct; ++index) load(*xrefs[index]);
}

bool Xrefs::load(Xref& xref) {
  const std::wstring& name = xref.record->name;
  // Saved elsewhere, the drawing counts its own paths from there.
  if (xref.direct) xref.folder = drawing.path().parent_path();
  xref.loaded = false;
  try {
    read(xref);
  } catch (const HostError& error) {
    reportXref(L"unresolved", name, L" (" + xref.record->path + L"): " + error.reason);
    return false;
  }
  xref.loaded = true;
  reportXref(L"loaded", name, L" from " + xref.path.wstring(), Event::xrefLoaded);
  readNested(xref);
  return true;
}

/// Finds the file and reads it. One that isn't where the stored path leads is looked for under its
/// bare name there and in the drawing's folder.
/// @throws HostError if it can't be read
void Xrefs::read(Xref& xref) {
  xref.file.reset();
  xref.content.reset();
  const path stored(xref.record->path);
  const bool absolute = stored.has_root_name() || stored.has_root_directory();
  std::optional<FileError> first;
  for (const path& place :
       {(absolute ? stored : xref.folder / stored).lexically_normal(),
        xref.folder / stored.filename(), drawing.path().parent_path() / stored.filename()}) {
    std::unique_ptr<FileHandle> file;
    bool held = false;
    try {
      file = openShared(place, held);
    } catch (const FileError& error) {
      if (!first) first.emplace(error);
      continue;
    }
    xref.path = place;
    xref.content = std::make_unique<DxfFile>(readAll(*file));
    if (sameName(place.wstring(), drawing.path().wstring())) {
      throw HostError(L"it is the drawing itself");
    }
    if (held) xref.file = std::move(file);
    return;
  }
  throw first.value_or(FileError(ERROR_FILE_NOT_FOUND));
}

void Xrefs::readNested(Xref& xref) {
  std::vector<Xref*> fresh;
  xref.nested.clear();
  for (const DxfEntry& entry : xref.content->entries("BLOCKS")) {
    if (xref.content->fields(entry).type() != "BLOCK") continue;
    const DxfBlock block(*xref.content, entry);
    // An overlay is for the drawing that it stands in, not for those that refer to that one.
    Xref* nested = block.isXref && !block.isOverlay ? nest(xref, block) : nullptr;
    if (!nested) continue;
    xref.nested.push_back(nested);
    if (!nested->direct && !nested->loaded) fresh.push_back(nested);
  }
  for (Xref* nested : fresh) load(*nested);
}

/// @return the xref for a block that `parent` names, new or known; null if it can't be one
Xrefs::Xref* Xrefs::nest(Xref& parent, const DxfBlock& block) {
  const std::wstring inParent = L", nested in " + parent.record->name;
  BlockRecordImp* record = drawing.findRecord(block.name);
  if (record && !record->isXref) {
    reportXref(L"ignored", block.name, inParent + L": the drawing has a block of that name");
    return nullptr;
  }
  if (Xref* known = find(record)) {
    if (!leadsTo(*known, parent, false)) return known;
    reportXref(L"ignored", block.name, inParent + L": it refers back to itself");
    return nullptr;
  }
  add(drawing.addNestedXref(block), false, parent.path.parent_path());
  return xrefs.back().get();
}

// The drawing holds a file once, under however many names it uses it: the first of them to be
// released lets it be replaced, and what is loaded under the others stays as it was read.
void Xrefs::release(Xref& xref) {
  for (const auto& one : xrefs) {
    if (sameName(one->path.wstring(), xref.path.wstring())) one->file.reset();
  }
  xref.loaded = false;
}

void Xrefs::unload(Xref& xref) {
  release(xref);
  reportXref(L"unloaded", xref.record->name, {}, Event::xrefUnloaded);
}

// What is nested only in xrefs that aren't loaded isn't loaded either.
void Xrefs::unloadUnreached() {
  for (const auto& xref : xrefs) {
    if (xref->loaded && !reached(*xref, true)) unload(*xref);
  }
}

void Xrefs::unload(std::wstring_view name) {
  Xref& xref = require(name, L"unloaded");
  if (!xref.loaded) return;
  unload(xref);
  unloadUnreached();
  drawing.touch();
}

void Xrefs::reload(std::wstring_view name) {
  Xref& xref = require(name, L"reloaded");
  if (!reached(xref, true)) {
    reportXref(L"not reloaded", xref.record->name, L": what it is nested in isn't loaded");
    throw HostError(L"what it is nested in isn't loaded", Acad::eNotApplicable);
  }
  drawing.touch();
  // What is nested only here is read again with it.
  release(xref);
  unloadUnreached();
  if (!load(xref)) throw HostError(L"its file can't be read", Acad::eFileNotFound);
  // Nested xrefs that no file names any more are forgotten.
  for (const auto& one : xrefs) {
    if (!reached(*one, false)) one->record->erased = true;
  }
  eraseIf(xrefs, [](const auto& one) { return one->record->erased; });
}

void Xrefs::closeFiles() {
  for (const auto& xref : xrefs) release(*xref);
}

void Xrefs::fill(AcDbXrefGraph& graph, bool withGhosts) const {
  const auto add = [&](const std::wstring& name, AcDbObjectId record) {
    auto* node = new AcDbXrefGraphNode(name.c_str(), record);
    graph.addNode(node);
    return node;
  };
  graph.reset();
  databaseState().graphs.opened(&graph, L"AcDbXrefGraph");
  AcDbGraphNode* root = add(drawing.path().stem().wstring(), drawing.modelSpace().id);
  std::map<const Xref*, AcDbGraphNode*> nodeOf;
  for (const auto& xref : xrefs) {
    if (!withGhosts && !reached(*xref, true)) continue;
    AcDbGraphNode* node = add(xref->record->name, xref->record->id);
    nodeOf[xref.get()] = node;
    if (xref->direct) graph.addEdge(root, node);
  }
  for (const auto& [xref, node] : nodeOf) {
    if (!withGhosts && !xref->loaded) continue;
    for (const auto* nested : xref->nested) {
      const auto found = nodeOf.find(nested);
      if (found != nodeOf.end()) graph.addEdge(node, found->second);
    }
  }
}

}  // namespace wb
