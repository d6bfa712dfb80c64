#pragma once

#include <windows.h>

#include <string>

#include "scripting/Session.h"

/// A session without module and client, in a work folder of the test's own.
class BareSession : public wb::Session {
 public:
  BareSession() : wb::Session(options()) {}

  static wb::SessionOptions options() {
    wb::SessionOptions options;
    options.workFolder = workFolder();
    return options;
  }

  static std::wstring workFolder() {
    wchar_t folder[MAX_PATH + 1] = L"";
    GetTempPathW(MAX_PATH + 1, folder);
    return std::wstring(folder) + L"workbench-tests\\bare";
  }
};
