#include "editor/Document.h"

#include <algorithm>

#include "core/Transcript.h"
#include "database/Drawing.h"
#include "editor/DocumentManager.h"
#include "editor/Host.h"
#include "gate/HostCall.h"

namespace wb {

bool FileHold::take(const std::wstring& path) {
  release();
  file = CreateFileW(path.c_str(), GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ, nullptr,
                     OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
  return held();
}

void FileHold::release() {
  if (held()) CloseHandle(file);
  file = INVALID_HANDLE_VALUE;
}

Document::Document(std::wstring path, bool readOnly)
    : path_(std::move(path)), readOnly_(readOnly) {}

Document::~Document() = default;

void Document::checkAlive(const wchar_t* operation) const {
  if (gone_) {
    tell(Event::error,
         std::wstring(L"AcApDocument::") + operation + L" of the destroyed document " + title());
  }
}

std::wstring Document::title() const { return path_.empty() ? caption_ : path_; }

AcDbDatabase* Document::databaseOf() const { return drawing_ ? drawing_->database() : nullptr; }

const ACHAR* Document::fileName() const {
  return HostCall(L"AcApDocument.fileName").run(L"", [&] {
    checkAlive(L"fileName");
    return path_.c_str();
  });
}

AcDbDatabase* Document::database() const {
  return HostCall(L"AcApDocument.database").run<AcDbDatabase*>(nullptr, [&] {
    checkAlive(L"database");
    return databaseOf();
  });
}

bool Document::isReadOnly() const {
  return HostCall(L"AcApDocument.isReadOnly").run(false, [&] {
    checkAlive(L"isReadOnly");
    return readOnly_;
  });
}

bool Document::isWriteLocked() const {
  const AcAp::DocLockMode mode = lockMode(true);
  return mode != AcAp::kNotLocked && mode != AcAp::kRead && mode != AcAp::kNone;
}

AcAp::DocLockMode Document::lockMode(bool includeMine) const {
  return HostCall(L"AcApDocument.lockMode").run(AcAp::kNotLocked, [&] {
    checkAlive(L"lockMode");
    // In a document's context its locks are the asker's own.
    const bool mine = Host::instance().documents().context() == this;
    if (locks_.empty() || (mine && !includeMine)) return AcAp::kNotLocked;
    return *std::max_element(locks_.begin(), locks_.end());
  });
}

}  // namespace wb
