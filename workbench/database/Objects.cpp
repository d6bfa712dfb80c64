#include "database/Objects.h"

#include <algorithm>

#include "core/Transcript.h"
#include "database/Drawing.h"
#include "gate/HostError.h"

namespace {

// Published as Acad::eWasOpenForNotify.
constexpr auto wasOpenForNotify = static_cast<Acad::ErrorStatus>(86);

/// The use of an object that isn't open is an error of the application's.
[[noreturn]] void refuse(const std::wstring& use, Acad::ErrorStatus code) {
  wb::report(wb::Event::error, use);
  throw wb::HostError(use, code);
}

const wchar_t* modeName(AcDb::OpenMode mode) {
  if (mode == AcDb::kForRead) return L" for read";
  return mode == AcDb::kForWrite ? L" for write" : L" for notify";
}

}  // namespace

AcDbObjectImp::AcDbObjectImp(wb::Drawing& drawing, std::unique_ptr<AcDbObject> object)
    : drawing(drawing),
      id(AcDbObjectId().setFromOldId(drawing.state.lastId += 8)),
      object_(std::move(object)) {
  object_->imp = this;
  drawing.state.objects[id.asOldId()] = this;
}

AcDbObjectImp::~AcDbObjectImp() { drawing.state.objects.erase(id.asOldId()); }

AcDbObjectImp* AcDbObjectImp::find(AcDbObjectId id) {
  const auto& objects = wb::databaseState().objects;
  const auto found = objects.find(id.asOldId());
  return found == objects.end() ? nullptr : found->second;
}

std::wstring AcDbObjectImp::label() const {
  return object_->isA()->name() + (name.empty() ? std::wstring() : L" " + name);
}

bool AcDbObjectImp::isOpen(AcDb::OpenMode mode) const {
  return std::any_of(openings.begin(), openings.end(),
                     [&](const Opening& opening) { return opening.mode == mode; });
}

void AcDbObjectImp::open(AcDb::OpenMode mode, bool openErased) {
  const auto failIf = [this](bool condition, Acad::ErrorStatus code) {
    if (condition) throw wb::HostError(label() + L" can't be opened", code);
  };
  const bool writing = isOpen(AcDb::kForWrite);
  failIf(drawing.closed(), Acad::ePermanentlyErased);
  failIf(erased && !openErased, Acad::eWasErased);
  failIf(isOpen(AcDb::kForNotify) && (mode == AcDb::kForNotify || !writing), wasOpenForNotify);
  failIf(writing && mode != AcDb::kForNotify, Acad::eWasOpenForWrite);
  if (mode == AcDb::kForWrite) {
    failIf(isOpen(AcDb::kForRead), Acad::eWasOpenForRead);
    failIf(!drawing.mayBeWritten(), Acad::eLockViolation);
  }
  openings.push_back({mode, wb::trackResource(L"object", label() + modeName(mode))});
}

void AcDbObjectImp::close() {
  if (openings.empty()) {
    refuse(L"AcDbObject::close of " + label() + L", which isn't open", Acad::eNotOpenForRead);
  }
  wb::releaseResource(openings.back().ticket);
  openings.pop_back();
}

AcDbObjectImp& AcDbObjectImp::requireOpen(const AcDbObject* object, const wchar_t* operation,
                                          AcDb::OpenMode mode) {
  AcDbObjectImp& imp = *object->imp;
  if (imp.isOpen(AcDb::kForWrite) || imp.isOpen(mode)) return imp;
  const std::wstring use = operation + (L" of " + imp.label()) + L", which isn't open";
  if (mode == AcDb::kForRead) refuse(use, Acad::eNotOpenForRead);
  refuse(use + L" for write", Acad::eNotOpenForWrite);
}

namespace wb {

namespace {

// Texts of R13 and later have the group behind the mark of their class.
constexpr std::string_view textClass = "AcDbText";

}  // namespace

std::wstring TextImp::text() const { return drawing.file.textOf(entry, 1, textClass); }

void TextImp::setText(std::wstring_view text) { drawing.file.setText(entry, 1, textClass, text); }

}  // namespace wb
