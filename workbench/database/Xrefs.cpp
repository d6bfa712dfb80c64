#include "database/Xrefs.h"

#include <algorithm>

#include "core/Text.h"
#include "core/Transcript.h"
#include "database/Database.h"
#include "database/Drawing.h"
#include "gate/HostError.h"

namespace wb {

namespace {

void say(const std::wstring& what, const std::wstring& name, const std::wstring& rest = {},
         Event::Cause cause = Event::other) {
  tell({Event::xref, cause, name, what + L" " + name + rest});
}

bool leadsTo(const Xrefs::Xref& from, const Xrefs::Xref& to) {
  return &from == &to || std::any_of(from.nested.begin(), from.nested.end(),
                                     [&](const auto* next) { return leadsTo(*next, to); });
}

bool leadsToLoaded(const Xrefs::Xref& from, const Xrefs::Xref& to) {
  if (&from == &to) return true;
  return from.loaded && std::any_of(from.nested.begin(), from.nested.end(),
                                    [&](const auto* next) { return leadsToLoaded(*next, to); });
}

}  // namespace

Xrefs::~Xrefs() = default;

Xrefs::Xref* Xrefs::find(const BlockRecordImp* record) const {
  for (const auto& xref : xrefs) {
    if (xref->record == record) return xref.get();
  }
  return nullptr;
}

Xrefs::Xref* Xrefs::find(std::wstring_view name) const {
  return find(drawing.content().findRecord(name));
}

void Xrefs::loadAll() {
  for (BlockRecordImp* record : drawing.content().records()) {
    if (!record->isXref) continue;
    xrefs.push_back(std::make_unique<Xref>(Xref{record, true, false, {}, {}, {}}));
  }
  // Nested ones are added behind these, each loaded by the one that names it.
  const size_t direct = xrefs.size();
  for (size_t index = 0; index < direct; ++index) load(*xrefs[index]);
}

bool Xrefs::load(Xref& xref) {
  const std::wstring& name = xref.record->blockName;
  // Saved elsewhere, the drawing counts its own paths from there.
  if (xref.direct) xref.folder = drawing.path().parent_path();
  xref.loaded = false;
  try {
    xref.file.open(xref.record->path, xref.folder, drawing.path().parent_path());
    if (sameName(xref.file.path().wstring(), drawing.path().wstring())) {
      xref.file.close();
      throw HostError(L"it is the drawing itself");
    }
  } catch (const HostError& error) {
    say(L"unresolved", name, L" (" + xref.record->path + L"): " + error.reason);
    return false;
  }
  xref.loaded = true;
  say(L"loaded", name, L" from " + xref.file.path().wstring(), Event::xrefLoaded);
  readNested(xref, xref.file.attached());
  return true;
}

void Xrefs::readNested(Xref& xref, const std::vector<DxfBlock>& blocks) {
  std::vector<Xref*> fresh;
  xref.nested.clear();
  for (const DxfBlock& block : blocks) {
    Xref* nested = nest(xref, block);
    if (!nested) continue;
    xref.nested.push_back(nested);
    if (!nested->direct && !nested->loaded) fresh.push_back(nested);
  }
  for (Xref* nested : fresh) load(*nested);
}

// Gives the xref for a block that `parent` names, new or known; null if it can't be one.
Xrefs::Xref* Xrefs::nest(Xref& parent, const DxfBlock& block) {
  const std::wstring inParent = L", nested in " + parent.record->blockName;
  BlockRecordImp* record = drawing.content().findRecord(block.name);
  if (record && !record->isXref) {
    say(L"ignored", block.name, inParent + L": the drawing has a block of that name");
    return nullptr;
  }
  if (Xref* known = find(record)) {
    if (!leadsTo(*known, parent)) return known;
    say(L"ignored", block.name, inParent + L": it refers back to itself");
    return nullptr;
  }
  xrefs.push_back(std::make_unique<Xref>(Xref{&drawing.content().addNestedXref(block),
                                              false,
                                              false,
                                              parent.file.path().parent_path(),
                                              {},
                                              {}}));
  return xrefs.back().get();
}

bool Xrefs::reached(const Xref& xref) const {
  return std::any_of(xrefs.begin(), xrefs.end(),
                     [&](const auto& one) { return one->direct && leadsToLoaded(*one, xref); });
}

// The drawing holds a file once, under however many names it uses it: the first of them to go lets
// it be replaced, and what is loaded under the others stays as it was read.
void Xrefs::release(Xref& xref) {
  for (const auto& one : xrefs) {
    if (sameName(one->file.path().wstring(), xref.file.path().wstring())) one->file.close();
  }
  xref.loaded = false;
}

// What is nested only in xrefs that aren't loaded isn't loaded either.
void Xrefs::releaseUnreached() {
  for (const auto& xref : xrefs) {
    if (!xref->loaded || reached(*xref)) continue;
    release(*xref);
    say(L"unloaded", xref->record->blockName, {}, Event::xrefUnloaded);
  }
}

// Forgets nested xrefs that no file names any more.
void Xrefs::dropUnnamed() {
  const auto named = [this](const Xref& xref) {
    return xref.direct || std::any_of(xrefs.begin(), xrefs.end(), [&](const auto& one) {
             return one->direct && leadsTo(*one, xref);
           });
  };
  std::vector<Xref*> gone;
  for (const auto& xref : xrefs) {
    if (!named(*xref)) gone.push_back(xref.get());
  }
  for (Xref* xref : gone) xref->record->erased = true;
  xrefs.erase(std::remove_if(xrefs.begin(), xrefs.end(),
                             [](const auto& xref) { return xref->record->erased; }),
              xrefs.end());
}

void Xrefs::unload(std::wstring_view name) {
  Xref* xref = find(name);
  if (!xref) {
    say(L"unknown", std::wstring(name), L", not unloaded");
    throw HostError(L"there is no such xref", Acad::eKeyNotFound);
  }
  if (!xref->loaded) return;
  release(*xref);
  say(L"unloaded", xref->record->blockName, {}, Event::xrefUnloaded);
  releaseUnreached();
  drawing.touch();
}

void Xrefs::reload(std::wstring_view name) {
  Xref* xref = find(name);
  if (!xref) {
    say(L"unknown", std::wstring(name), L", not reloaded");
    throw HostError(L"there is no such xref", Acad::eKeyNotFound);
  }
  if (!reached(*xref)) {
    say(L"not reloaded", xref->record->blockName, L": what it is nested in isn't loaded");
    throw HostError(L"what it is nested in isn't loaded", Acad::eNotApplicable);
  }
  drawing.touch();
  // What is nested only here is read again with it.
  release(*xref);
  releaseUnreached();
  if (!load(*xref)) throw HostError(L"its file can't be read", Acad::eFileNotFound);
  dropUnnamed();
}

void Xrefs::letGo() {
  for (const auto& xref : xrefs) release(*xref);
}

}  // namespace wb
