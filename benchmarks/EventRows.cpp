// What the module does in the host's events.

#include <windows.h>

#include <axlock.h>
#include <dbapserv.h>

#include <stdexcept>

#include "foundation/AddinSettings.h"
#include "Measure.h"
#include "Rows.h"

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

}  // namespace

void activation(BenchSession& session) {
  session.openSheet(10);
  session.openSheet(100);
  session.clearTranscript();
  Row calls("Client calls for ten activations of known drawings / ten", "calls", 0);
  for (int round = 0; round < 5; ++round) {
    session.run("@activate %WORK%\\View\\Sheet10.dxf\n@activate %WORK%\\View\\Sheet100.dxf\n");
  }
  calls.add(static_cast<double>(session.clientCalls().ofVault), 10);
  print(calls);
  session.closeAll();
}

void editGuard(BenchSession& session) {
  session.openSheet(10);
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
  session.clearTranscript();
  print(row);
  session.closeAll();
}

}  // namespace bench
