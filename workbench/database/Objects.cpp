#include "database/Objects.h"

#include "core/Transcript.h"
#include "database/Database.h"
#include "database/DatabaseState.h"
#include "database/Drawing.h"
#include "gate/HostError.h"

namespace {

// Published as Acad::eWasOpenForNotify.
constexpr auto wasOpenForNotify = static_cast<Acad::ErrorStatus>(86);

AcDbObjectId freshId() {
  Adesk::IntPtr& last = wb::databaseState().lastId;
  last += 8;
  return AcDbObjectId().setFromOldId(last);
}

/// The use of an object that isn't open is an error of the application's.
[[noreturn]] void refuse(const std::wstring& use, Acad::ErrorStatus code) {
  wb::tell(wb::Event::error, use);
  throw wb::HostError(use, code);
}

const wchar_t* modeName(AcDb::OpenMode mode) {
  switch (mode) {
    case AcDb::kForRead:
      return L" for read";
    case AcDb::kForWrite:
      return L" for write";
    default:
      return L" for notify";
  }
}

}  // namespace

AcDbObjectImp::AcDbObjectImp(wb::DrawingDatabase& database, std::unique_ptr<AcDbObject> object)
    : database(database), id(freshId()), object_(std::move(object)) {
  object_->imp = this;
  wb::databaseState().objects[id.asOldId()] = this;
}

AcDbObjectImp::~AcDbObjectImp() { wb::databaseState().objects.erase(id.asOldId()); }

AcDbObjectImp* AcDbObjectImp::find(AcDbObjectId id) {
  const auto& objects = wb::databaseState().objects;
  const auto found = objects.find(id.asOldId());
  return found == objects.end() ? nullptr : found->second;
}

std::wstring AcDbObjectImp::label() const {
  const std::wstring own = name();
  return object_->isA()->name() + (own.empty() ? std::wstring() : L" " + own);
}

void AcDbObjectImp::open(AcDb::OpenMode mode, bool openErased) {
  const auto fail = [this](Acad::ErrorStatus code) {
    throw wb::HostError(label() + L" can't be opened", code);
  };
  if (database.drawing().closed()) fail(Acad::ePermanentlyErased);
  if (erased && !openErased) fail(Acad::eWasErased);
  if (watcher_ && (mode == AcDb::kForNotify || !writer_)) fail(wasOpenForNotify);
  if (writer_ && mode != AcDb::kForNotify) fail(Acad::eWasOpenForWrite);
  if (mode == AcDb::kForWrite) {
    if (!readers_.empty()) fail(Acad::eWasOpenForRead);
    if (!database.drawing().mayBeWritten()) fail(Acad::eLockViolation);
  }
  const wb::Ticket ticket = wb::handOut(L"object", label() + modeName(mode));
  switch (mode) {
    case AcDb::kForRead:
      readers_.push_back(ticket);
      break;
    case AcDb::kForWrite:
      writer_ = ticket;
      break;
    default:
      watcher_ = ticket;
  }
}

void AcDbObjectImp::close() {
  if (watcher_) {
    wb::giveBack(*watcher_);
    watcher_.reset();
  } else if (writer_) {
    wb::giveBack(*writer_);
    writer_.reset();
  } else if (!readers_.empty()) {
    wb::giveBack(readers_.back());
    readers_.pop_back();
  } else {
    refuse(L"AcDbObject::close of " + label() + L", which isn't open", Acad::eNotOpenForRead);
  }
}

AcDbObjectImp& AcDbObjectImp::readAny(const AcDbObject* object, const wchar_t* operation) {
  AcDbObjectImp& imp = *of(object);
  if (imp.openForRead()) return imp;
  refuse(operation + (L" of " + imp.label()) + L", which isn't open", Acad::eNotOpenForRead);
}

AcDbObjectImp& AcDbObjectImp::writeAny(const AcDbObject* object, const wchar_t* operation) {
  AcDbObjectImp& imp = *of(object);
  if (imp.openForWrite()) return imp;
  refuse(operation + (L" of " + imp.label()) + L", which isn't open for write",
         Acad::eNotOpenForWrite);
}

namespace wb {

namespace {

// Texts of R13 and later have the group behind the mark of their class.
constexpr std::string_view textClass = "AcDbText";

}  // namespace

std::wstring TextImp::text() const { return database.textOf(entry, 1, textClass); }

void TextImp::setText(std::wstring_view text) { database.setText(entry, 1, textClass, text); }

}  // namespace wb
