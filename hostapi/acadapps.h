#pragma once

/// Values of the host's load record.
struct AcadApp {
  enum ErrorStatus {
    eOk = 0,
    eInvalidKey = 1,
    eKeyNotFound = 3,
    eOutOfMemory = 4,
    eInvalidValue = 5,
    eValueNotFound = 6,
    eKeyExists = 7,
    eRegAccessDenied = 8,
    eRejected = 9,
    eUnknownError = 10
  };
  enum LoadReasons {
    kOnProxyDetection = 0x01,
    kOnAutoCADStartup = 0x02,
    kOnCommandInvocation = 0x04,
    kOnLoadRequest = 0x08,
    kLoadDisabled = 0x10
  };
};
