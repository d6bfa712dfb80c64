// The package's custom actions, which Windows Installer calls with the right to change the
// computer.

#include <windows.h>

#include <msi.h>
#include <msiquery.h>

#include <initializer_list>

#include "LoadRecords.h"

namespace {

/// Windows' words for an error code.
struct Reason {
  explicit Reason(LSTATUS status) {
    text[0] = 0;
    FormatMessageW(
        FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_MAX_WIDTH_MASK,
        nullptr, static_cast<DWORD>(status), 0, text, ARRAYSIZE(text), nullptr);
  }
  wchar_t text[256];
};

template <DWORD size>
void readProperty(MSIHANDLE install, const wchar_t* name, wchar_t (&value)[size]) {
  DWORD length = size;
  if (MsiGetPropertyW(install, name, value, &length) != ERROR_SUCCESS) value[0] = 0;
}

// Shows the message where the installation may show any, and puts it into the log.
void report(MSIHANDLE install, INSTALLMESSAGE kind, const Text& text) {
  const MSIHANDLE message = MsiCreateRecord(1);
  MsiRecordSetStringW(message, 0, L"[1]");
  MsiRecordSetStringW(message, 1, text.text());
  MsiProcessMessage(install, kind, message);
  MsiCloseHandle(message);
}

// Runs an operation on the load records, and tells how it went.
template <typename Operation>
UINT run(MSIHANDLE install, const wchar_t* failure, Operation operation) {
  wchar_t file[MAX_PATH], productCode[64];
  readProperty(install, L"CustomActionData", file);
  readProperty(install, L"ProductCode", productCode);
  LoadRecords records(productCode);
  const LSTATUS status = operation(records, file);
  if (status != ERROR_SUCCESS) {
    report(install, INSTALLMESSAGE_ERROR, Text(failure, L": ", Reason(status).text));
    return ERROR_INSTALL_FAILURE;
  }
  if (records.changed() != 0) {
    report(install, INSTALLMESSAGE_INFO,
           Text(L"AutoCAD products whose load record was changed: ", records.changed()));
  }
  return ERROR_SUCCESS;
}

bool isInSystemFolder(const wchar_t* file) {
  wchar_t folder[MAX_PATH];
  const UINT length = GetSystemDirectoryW(folder, MAX_PATH);
  return length != 0 && length < MAX_PATH &&
         GetFileAttributesW(Text(folder, L"\\", file).text()) != INVALID_FILE_ATTRIBUTES;
}

}  // namespace

extern "C" UINT WINAPI CheckRuntime(MSIHANDLE install) {
  for (const wchar_t* file : {L"vcruntime140.dll", L"msvcp140.dll", L"ucrtbase.dll"}) {
    if (isInSystemFolder(file)) continue;
    report(
        install, INSTALLMESSAGE_ERROR,
        Text(L"TessaroAcad needs the Microsoft Visual C++ Redistributable (x64) of 2015 or later: ",
             file,
             L" is missing on this computer. Install it, then start this installation again."));
    return ERROR_INSTALL_FAILURE;
  }
  return ERROR_SUCCESS;
}

extern "C" UINT WINAPI EnterLoadRecord(MSIHANDLE install) {
  return run(install, L"TessaroAcad can't be entered in AutoCAD's load record",
             [&](LoadRecords& records, const wchar_t* file) {
               const LSTATUS status = records.enter(file);
               if (status == ERROR_SUCCESS && records.changed() == 0) {
                 report(
                     install, INSTALLMESSAGE_WARNING,
                     Text(L"There is no 64-bit AutoCAD 2008 or 2009 on this computer. Repair this "
                          L"installation when there is one."));
               }
               return status;
             });
}

extern "C" UINT WINAPI RemoveLoadRecord(MSIHANDLE install) {
  return run(install, L"TessaroAcad can't be taken out of AutoCAD's load record",
             [](LoadRecords& records, const wchar_t* file) { return records.remove(file); });
}

extern "C" UINT WINAPI RestoreLoadRecord(MSIHANDLE install) {
  return run(install, L"AutoCAD's load record can't be restored",
             [](LoadRecords& records, const wchar_t*) { return records.restore(); });
}

extern "C" UINT WINAPI ForgetLoadRecord(MSIHANDLE install) {
  return run(install, L"The copy of AutoCAD's load record can't be deleted",
             [](LoadRecords& records, const wchar_t*) { return records.forget(); });
}
