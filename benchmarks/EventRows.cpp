// What the module does in the host's events.

#include <windows.h>

#include <axlock.h>
#include <comdef.h>
#include <dbapserv.h>

#include <stdexcept>
#include <string>

#include "core/ResultNames.h"
#include "core/Text.h"
#include "editor/Document.h"
#include "editor/DocumentManager.h"
#include "editor/Host.h"
#include "foundation/AddinSettings.h"
#include "Measure.h"
#include "Rows.h"
#include "vault/VaultInterfaces.h"

namespace bench {

namespace {

constexpr int repetitions = 9;
constexpr int eventsInARound = 500;

/// One opening and reading of a setting, as Windows makes any program pay for it.
void readSettingOnce() {
  HKEY key = nullptr;
  if (RegOpenKeyExW(HKEY_CURRENT_USER, tessaro::addinSettingsKey, 0, KEY_READ, &key) !=
      ERROR_SUCCESS) {
    throw std::runtime_error("the settings can't be opened");
  }
  DWORD value = 0, size = sizeof(value);
  const LSTATUS status = RegQueryValueExW(key, L"EditWarning", nullptr, nullptr,
                                          reinterpret_cast<BYTE*>(&value), &size);
  RegCloseKey(key);
  if (status != ERROR_SUCCESS) throw std::runtime_error("the setting can't be read");
}

/// Two lock-mode events: one as the lock is taken, one as it goes.
void lockAndUnlock() { const AcAxDocLock lock(acdbHostApplicationServices()->workingDatabase()); }

/// Raises a call's failure: a bare side that fails would distort the ratio.
void need(HRESULT result) {
  if (FAILED(result)) {
    throw std::runtime_error("a bare call of the client failed: " +
                             wb::toUtf8(wb::resultName(result)));
  }
}

/// A file as every routine of the module finds it: with calls that none can do without.
struct FoundFile {
  explicit FoundFile(const std::wstring& path) {
    need(client.CreateInstance(__uuidof(VaultMain), nullptr, CLSCTX_ALL));
    const _bstr_t name(path.c_str());
    _bstr_t vault;
    need(client->vaultNameFromPath(name, vault.GetAddress()));
    need(client->login(vault, 0));
    need(client->fileFromPath(name, &folder, &file));
  }

  bool isCheckedOut() const {
    VARIANT_BOOL checkedOut = VARIANT_FALSE;
    need(file->isCheckedOut(&checkedOut));
    return checkedOut == VARIANT_TRUE;
  }

  long folderId() const {
    const tessaro::VaultObjectPtr object = folder;
    long id = 0;
    need(object->id(&id));
    return id;
  }

  tessaro::VaultClientPtr client;
  tessaro::VaultFolderPtr folder;
  tessaro::VaultFilePtr file;
};

/// The bare calls of a status query, in the module's order.
void bareStatusCalls(const std::wstring& path) {
  const FoundFile found(path);
  long local = 0, latest = 0;
  need(found.file->localVersion(_variant_t(found.folderId()), &local));
  need(found.file->latestVersion(&latest));
  found.isCheckedOut();
  found.isCheckedOut();
}

/// Those of a check-out.
void bareCheckOutCalls(const std::wstring& path) {
  const FoundFile found(path);
  found.isCheckedOut();
  need(found.file->checkOut(found.folderId(), 0, 0));
}

}  // namespace

void activation(Workshop& workshop) {
  workshop.openSheet(10);
  workshop.openSheet(100);
  workshop.forget();
  Row calls("Client calls for ten activations of known drawings / ten", "calls", 0);
  for (int round = 0; round < 5; ++round) {
    workshop.run("@activate %WORK%\\View\\Sheet10.dxf\n@activate %WORK%\\View\\Sheet100.dxf\n");
  }
  calls.add(static_cast<double>(workshop.clientCalls()), 10);
  print(calls);
  workshop.closeAll();
}

void editGuard(Workshop& workshop) {
  workshop.openSheet(10);
  lockAndUnlock();
  Row row(
      "Lock and unlock with nothing for the edit guard / one opening and reading of the setting",
      "us", 1.5);
  for (int round = 0; round < repetitions; ++round) {
    const double own = spent([] {
                         // It looks when the lock has gone back, and not before.
                         for (int event = 0; event < eventsInARound; ++event) lockAndUnlock();
                       }).own;
    const double bare = spent([] {
                          for (int event = 0; event < eventsInARound; ++event) readSettingOnce();
                        }).all;
    row.add(own / eventsInARound, bare / eventsInARound);
  }
  workshop.forget();
  print(row);
  workshop.closeAll();
}

void statusQuery(Workshop& workshop) {
  workshop.openSheet(10);
  const std::wstring path = Workshop::xref(0).wstring();
  Row row("Status query / the bare COM calls that it makes, both outside the stand-ins", "us");
  for (int round = 0; round < repetitions; ++round) {
    const double own = spent([&] {
                         for (int time = 0; time < 20; ++time) workshop.saved(path);
                       }).own;
    const double bare = spent([&] {
                          for (int time = 0; time < 20; ++time) bareStatusCalls(path);
                        }).own;
    row.add(own / 20, bare / 20);
    workshop.forget();
  }
  print(row);
  workshop.closeAll();
}

void checkOut(Workshop& workshop) {
  workshop.openSheet(0);
  workshop.closeAll();
  Row row(
      "Check-out up to the drawing's being open again / the bare COM calls of the check-out alone, "
      "both outside the stand-ins",
      "us");
  for (int round = 0; round < repetitions; ++round) {
    workshop.run("@open %WORK%\\View\\Sheet0.dxf\n");
    const double own = spent([&] { workshop.command(L"_Tessaro_locksilent"); }).own;
    wb::Host::instance().runUntilIdle();
    workshop.closeAll();
    workshop.run("@vault undo %WORK%\\View\\Sheet0.dxf\n");
    const double bare =
        spent([&] { bareCheckOutCalls((Workshop::view() / L"Sheet0.dxf").wstring()); }).own;
    workshop.run("@vault undo %WORK%\\View\\Sheet0.dxf\n");
    row.add(own, bare);
  }
  print(row);
}

}  // namespace bench
