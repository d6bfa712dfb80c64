// The command `settings` through the controls of its dialog.

#include <algorithm>

#include "core/Text.h"
#include "editor/Host.h"
#include "module/StubbornKey.h"
#include "shared/ModuleSession.h"

namespace {

/// The ids of the dialog's controls: 1000 prompt at open, 1022 edit warning, 1001 status window,
/// 1002 interval.
class Settings : public ModuleSession {
 protected:
  void expectStored(const std::vector<std::wstring>& settings) {
    step("@reg show\n");
    const std::vector<std::wstring> told = lines();
    for (const std::wstring& setting : settings) {
      EXPECT_NE(std::find(told.begin(), told.end(), L"reg: " + setting), told.end())
          << wb::toUtf8(setting) << " is missing\n"
          << recent();
    }
  }
  void expectWindow(const std::wstring& part) {
    step("@window\n");
    EXPECT_EQ(count(part), 1) << recent();
  }
};

TEST_F(Settings, DefaultsAreShownAndWrittenInTheirOrder) {
  openPlan();
  run("@answer ok\nTessaro_settings\n");
  expectDetails({L"1023=\"Add-in version : 12.0.0.408\"",
                 L"place: \"Tessaro add-in settings\" in the "
                 L"middle of its owner"});
  expectOrder({L"dialog: \"Tessaro add-in settings\"", L"XrefMonitoringInterval=5", L"StatusWnd=1",
               L"Autolock=0", L"EditWarning=1"});
}

TEST_F(Settings, AnyNonZeroValueShowsCheckedAndIsWrittenAsOne) {
  openPlan();
  run("@reg set Autolock 7\n@reg set EditWarning 0\n@reg set StatusWnd 4294967295\n"
      "@reg set XrefMonitoringInterval 4294967295\n@answer ok\nTessaro_settings\n");
  expectStored({L"Autolock=1", L"EditWarning=0", L"StatusWnd=1", L"XrefMonitoringInterval=-1"});
  // A value longer than four bytes isn't read: the default holds.
  run("@reg set XrefMonitoringInterval ten as text\n@answer ok\nTessaro_settings\n");
  expectStored({L"XrefMonitoringInterval=5"});
}

TEST_F(Settings, AValueOfFewerThanFourBytesIsTheDefaultForEveryReader) {
  const wchar_t key[] = L"Software\\Halvern\\Applications\\Quillstone Suite\\TessaroACAD";
  for (const DWORD size : {0, 1, 3}) {
    for (const wchar_t* name : {L"StatusWnd", L"XrefMonitoringInterval", L"EditWarning"}) {
      ASSERT_EQ(RegSetKeyValueW(HKEY_CURRENT_USER, key, name, REG_DWORD, "\0\0", size), 0);
    }
    ASSERT_EQ(RegSetKeyValueW(HKEY_CURRENT_USER, key, L"Autolock", REG_DWORD, "\1\0", size), 0);
    // An offer at open would be a box without an answer, which fails the script.
    run("@load\n@opendialog %WORK%\\View\\Plan.dxf\n");
    expectWindow(L"timer=300000");
    expectWindow(L" shown, ");
    step("@answer no\n@edit\n");
    EXPECT_EQ(count(L"send: \"_Tessaro_asklock \""), 1) << recent();
    run("@answer ok\nTessaro_settings\n");
    expectStored({L"StatusWnd=1", L"XrefMonitoringInterval=5", L"EditWarning=1", L"Autolock=0"});
    run("@answer no\n@close\n@unload\n");
  }
}

TEST_F(Settings, WhatTheUserEntersAppliesAtOnce) {
  openPlan();
  const struct {
    const char* entry;
    std::vector<std::wstring> stored;
    const wchar_t* timer;
  } cases[] = {
      {"@fill IDC_INTERVAL 2", {L"XrefMonitoringInterval=2"}, L"timer=120000"},
      // 70,000 minutes still fit into 32 bits of milliseconds; 71,583 begin anew.
      {"@fill IDC_INTERVAL 70000", {L"XrefMonitoringInterval=70000"}, L"timer=4200000000 ms"},
      {"@fill IDC_INTERVAL 71583", {L"XrefMonitoringInterval=71583"}, L"timer=12704 ms"},
      {"@fill IDC_INTERVAL 99999999999", {L"XrefMonitoringInterval=0"}, L"timer=off"},
      {"@fill IDC_INTERVAL 3", {L"XrefMonitoringInterval=3"}, L"timer=180000"},
      {"@fill IDC_INTERVAL", {L"XrefMonitoringInterval=0"}, L"timer=off"},
      {"@fill IDC_INTERVAL 4\n@check IDC_SHOW_STATUS off",
       {L"StatusWnd=0", L"XrefMonitoringInterval=4"},
       L" hidden, "},
      {"@check IDC_SHOW_STATUS on\n@check IDC_AUTOLOCK on\n@check IDC_EDIT_WARNING off",
       {L"Autolock=1", L"EditWarning=0", L"StatusWnd=1", L"XrefMonitoringInterval=4"},
       L"timer=240000"},
  };
  for (const auto& each : cases) {
    run(std::string(each.entry) + "\n@answer ok\nTessaro_settings\n");
    expectStored(each.stored);
    expectWindow(each.timer);
  }
}

TEST_F(Settings, AnythingButOkChangesNothing) {
  openPlan();
  for (const char* way : {"cancel", "close"}) {
    step("@fill IDC_INTERVAL 9\n@check IDC_SHOW_STATUS off\n@check IDC_AUTOLOCK on\n@answer " +
         std::string(way) + "\nTessaro_settings\n");
    EXPECT_EQ(count(L"reg: set") + count(L"reg: create"), 0) << recent();
    expectWindow(L"timer=300000");
    expectWindow(L" shown, ");
  }
}

TEST_F(Settings, TheDialogIsWholeOnTheScreenWhereverTheEditorStands) {
  openPlan();
  const HWND editor = wb::Host::instance().mainWindow();
  RECT before{};
  GetWindowRect(editor, &before);
  for (const auto& [left, top] : {std::pair(1100, 700), {-900, -500}}) {
    mark();
    SetWindowPos(editor, nullptr, left, top, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    run("@answer cancel\nTessaro_settings\n");
    expectDetails({L"place: \"Tessaro add-in settings\" whole on the screen"});
  }
  SetWindowPos(editor, nullptr, before.left, before.top, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
}

TEST_F(Settings, WhatTheRegistryRefusesIsSkippedWithoutAWord) {
  openPlan();
  const StubbornKey refusing(L"Software\\Halvern");
  run("@fill IDC_INTERVAL 2\n@check IDC_SHOW_STATUS on\n@answer ok\nTessaro_settings\n");
  const std::wstring create =
      L"reg: create HKCU\\Software\\Halvern\\Applications\\Quillstone Suite\\TessaroACAD -> "
      L"Windows error " +
      std::to_wstring(ERROR_CHILD_MUST_BE_VOLATILE);
  EXPECT_EQ(count(create), 4) << recent();
  EXPECT_EQ(count(L"reg: set") + count(L"box: "), 0) << recent();
  expectWindow(L"timer=120000");
  run("@window close\n");
  expectWindow(L" hidden, ");
}

}  // namespace
