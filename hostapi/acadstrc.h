#pragma once

/// Holder of the host's status values.
struct Acad {
  /// Result of most of the host's operations; a value that isn't listed can be returned as well.
  enum ErrorStatus {
    eOk = 0,
    eNotImplementedYet = 1,
    eNotApplicable = 2,
    eInvalidInput = 3,
    eOutOfMemory = 6,
    eBufferTooSmall = 7,
    eInvalidOpenState = 8,
    eUnknownHandle = 13,
    eNullObjectPointer = 15,
    eNullObjectId = 16,
    eNullBlockName = 17,
    eIllegalEntityType = 20,
    eKeyNotFound = 21,
    eDuplicateKey = 22,
    eInvalidIndex = 23,
    eInvalidAdsName = 30,
    eInvalidKey = 32,
    eWrongObjectType = 33,
    eWrongDatabase = 34,
    eNotOpenForRead = 43,
    eNotOpenForWrite = 44,
    eNotThatKindOfClass = 45,
    eInvalidBlockName = 46,
    eFilerError = 52,
    eFileAccessErr = 53,
    eFileSystemErr = 54,
    eFileInternalErr = 55,
    eWasErased = 80,
    ePermanentlyErased = 81,
    eWasOpenForRead = 82,
    eWasOpenForWrite = 83,
    eLockViolation = 88,
    eXRefDependent = 95,
    eNoDatabase = 143,
    eNoDocument = 144,
    eFileNotFound = 147,
    eUserBreak = 161,
    eInvalidContext = 182,
    eLockConflict = 369,
    eNotHandled = 431
  };
};
