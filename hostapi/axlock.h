#pragma once

#include "acadstrc.h"

class AcDbDatabase;

/// Locks the document of a database for writing, until the destructor unlocks it.
class AcAxDocLock {
 public:
  enum DocLockType { kNormal = 0, kCurDocSwitch };

  explicit AcAxDocLock(AcDbDatabase* pDb, DocLockType lockType = kNormal);
  ~AcAxDocLock();

  /// `eOk` if the lock was had, `eNoDocument` for a database without a document.
  Acad::ErrorStatus lockStatus() const;

 private:
  AcAxDocLock(const AcAxDocLock&) = delete;
  AcAxDocLock& operator=(const AcAxDocLock&) = delete;

  Acad::ErrorStatus m_lockStatus;
  void* m_pDocToUnlock;
  [[maybe_unused]] void* m_pCurDocToRestore;
  [[maybe_unused]] bool m_restoreActivation;
};
