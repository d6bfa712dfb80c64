#include <windows.h>

#include <aced.h>
#include <adscodes.h>

#include <cctype>
#include <filesystem>

#include "core/Text.h"
#include "dialogs/Answers.h"
#include "editor/Host.h"
#include "shared/ModuleSession.h"
#include "store/Store.h"
#include "ui/resource.h"

namespace {

const std::string plan = "%WORK%\\View\\Plan.dxf";
const std::string other = "%WORK%\\View\\Other.dxf";

/// What the window shows, in the words of @window.
struct Shown {
  const char* xrefs;
  const char* held;
  const char* version;
  const char* rest = "enabled";  ///< of the version, the button and, if disabled, of the box 1006
  const char* timer = "300000 ms";
};

const Shown outside = {"unchecked disabled", "unchecked", "-/-", "disabled"};
const Shown noXrefs = {"unchecked disabled", "unchecked", "1/1"};

class StatusWindow : public ModuleSession {
 protected:
  StatusWindow() {
    run("@reg set EditWarning 0\n");
    addSite();
  }
  std::string window() {
    run("@window\n");
    return wb::toUtf8(session.transcript().back());
  }
  void expectShown(const Shown& shown) {
    const std::string rest = shown.rest;
    EXPECT_EQ(window(), std::string("window: \"Tessaro Status\" shown, 1005=") + shown.xrefs +
                            ", 1006=" + shown.held + " " + rest +
                            ", 1007=\"Version: " + shown.version + "\" " + rest + ", 1021=" + rest +
                            ", timer=" + shown.timer)
        << recent();
  }
  static RECT place() {
    RECT place{};
    GetWindowRect(statusWindow(), &place);
    return place;
  }
  bool timerRuns() { return window().find("timer=off") == std::string::npos; }
  bool isShown() { return window().find(" shown, ") != std::string::npos; }
  void makePartStale() {
    run("@vault newversion %WORK%\\View\\Part.dxf from %WORK%\\small.dxf\n"
        "@vault date %WORK%\\View\\Part.dxf 2030-01-01 10:00:00\n");
  }
};

struct StateCase {
  const char* name;
  const char* before;
  Shown shown;
  const char* drawing = "%WORK%\\View\\Plan.dxf";
};

const char site[] = "%WORK%\\View\\Site.dxf";
const Shown elsewhere = {"unchecked disabled", "indeterminate", "1/1"};

const StateCase cases[] = {
    {"NoXrefs", "", noXrefs},
    {"Latest", "", {"checked enabled", "unchecked", "1/1"}, site},
    {"NotLatest",
     "@vault newversion %WORK%\\View\\Part.dxf from %WORK%\\small.dxf\n"
     "@vault date %WORK%\\View\\Part.dxf 2030-01-01 10:00:00\n",
     {"unchecked enabled", "unchecked", "1/1"},
     site},
    {"HeldHere",
     "@vault checkout %WORK%\\View\\Plan.dxf\n",
     {"unchecked disabled", "checked", "1/1"}},
    {"HeldOnAnotherComputer", "@vault checkout %WORK%\\View\\Plan.dxf computer ELSEWHERE\n",
     elsewhere},
    {"HeldInAnotherFolder", "@vault checkout %WORK%\\View\\Plan.dxf folder C:\\Copy\n", elsewhere},
    {"OlderLocalCopy",
     "@vault newversion %WORK%\\View\\Plan.dxf from %WORK%\\part.dxf\n",
     {"unchecked disabled", "unchecked", "1/2"}},
    {"Outside", "", outside, "%WORK%\\small.dxf"},
    {"NotAddedToTheVault", "", outside, "%WORK%\\View\\Loose.dxf"},
    {"Offline", "@vault offline on\n", outside},
    {"Denied", "@vault deny %WORK%\\View\\Plan.dxf\n", outside},
    {"MonitoringOff",
     "@reg set XrefMonitoringInterval 0\n",
     {"unchecked disabled", "unchecked", "1/1", "enabled", "off"},
     site},
    {"PeriodBeyond32Bits",
     "@reg set XrefMonitoringInterval 71583\n",
     {"unchecked disabled", "unchecked", "1/1", "enabled", "12704 ms"}},
};

class StatusWindowState : public StatusWindow, public testing::WithParamInterface<StateCase> {};

TEST_P(StatusWindowState, IsShown) {
  writeDrawing(L"View\\Loose.dxf");
  run(GetParam().before);
  run(std::string("@load\n@open ") + GetParam().drawing + "\n");
  expectShown(GetParam().shown);
  run("@close\n");
  EXPECT_NE(window().find("1005=unchecked disabled, 1006=unchecked disabled, 1007=\"Version: -/-\" "
                          "disabled, 1021=disabled"),
            std::string::npos);
}

INSTANTIATE_TEST_SUITE_P(Table, StatusWindowState, testing::ValuesIn(cases),
                         [](const auto& info) { return std::string(info.param.name); });

TEST_F(StatusWindow, ComputersAreToldApartByTheirWholeNamesInAnyCase) {
  const std::string computer = wb::toUtf8(wb::Store::thisComputer());
  std::string otherCase;
  for (const unsigned char letter : computer) {
    otherCase +=
        static_cast<char>(std::isupper(letter) ? std::tolower(letter) : std::toupper(letter));
  }
  run("@vault checkout " + plan + " computer " + otherCase + "\n@vault checkout " + other +
      " computer " + computer + "X\n@load\n@open " + plan + "\n");
  expectShown({"unchecked disabled", "checked", "1/1"});
  run("@open " + other + "\n");
  expectShown(elsewhere);
}

TEST_F(StatusWindow, BeforeAnyDrawingNothingIsKnown) {
  run("@load\n");
  EXPECT_EQ(window(),
            "window: \"Tessaro Status\" shown, 1005=indeterminate enabled, 1006=unchecked enabled, "
            "1007=\"Version -/-\" enabled, 1021=enabled, timer=300000 ms");
  step("@tick\n@click IDC_REFRESH\n@click IDC_XREFS_LATEST\n@new\n@tick\n");
  EXPECT_EQ(count(L"VaultQuery.") + count(L"error: "), 0) << recent();
}

TEST_F(StatusWindow, SwitchingShowsTheLastKnownStateWithoutAskingTheVault) {
  run("@load\n@open " + plan + "\n@vault checkout " + other + "\n@open " + other + "\n");
  expectShown({"unchecked disabled", "checked", "1/1"});
  step("@activate " + plan + "\n");
  expectShown(noXrefs);
  run("@activate " + other + "\n");
  expectShown({"unchecked disabled", "checked", "1/1"});
  EXPECT_EQ(count(L"VaultClient.") + count(L"CoCreateInstance"), 0) << recent();
  run("@close\n");
  expectShown(noXrefs);
}

TEST_F(StatusWindow, SavingReadsAnewAndInTheBackgroundShowsNothing) {
  for (const wchar_t* file : {L"Plan.dxf", L"Other.dxf"}) makeWritable(file);
  run("@load\n@open " + plan + "\n@open " + other + "\n");
  run("@vault checkout " + plan + " computer ELSEWHERE\n");
  step("@save " + plan + "\n");
  EXPECT_EQ(count(L"VaultFile.localVersion"), 1) << recent();
  EXPECT_EQ(count(L"VaultQuery."), 0) << recent();
  expectShown(noXrefs);
  run("@answer no\n@click IDC_CHECKED_OUT_HERE\n");
  expectOrder({L"send: \"_Tessaro_lock \""});
  run("@vault checkout " + other + " folder C:\\Copy\n@save\n");
  expectShown(elsewhere);
  step("@vault undo " + plan + "\n@activate " + plan + "\n");
  EXPECT_EQ(count(L"VaultClient."), 0) << recent();
  expectShown(elsewhere);
}

TEST_F(StatusWindow, TickShowsWhatBecameOfTheXrefs) {
  run("@load\n@open %WORK%\\View\\Site.dxf\n");
  makePartStale();
  run("@tick\n");
  expectShown({"unchecked enabled", "unchecked", "1/1"});
  step("@click IDC_XREFS_LATEST\n");
  EXPECT_EQ(count(L"getLocalCopy"), 1) << recent();
  expectShown({"checked enabled", "unchecked", "1/1"});
  run("@tick\n");
  expectShown({"checked enabled", "unchecked", "1/1"});
}

TEST_F(StatusWindow, ErrorOfTheVaultStopsTheTimerUntilTheNextRefresh) {
  run("@load\n@open %WORK%\\View\\Site.dxf\n");
  step("@fail VaultQuery.execute E_QVT_PERMISSION_DENIED\n@answer ok\n@tick\n");
  EXPECT_EQ(count(informationBox(L"Error reading xref information from database.\\nCause:")), 1)
      << recent();
  expectShown({"checked enabled", "unchecked", "1/1", "enabled", "off"});
  run("@click IDC_REFRESH\n");
  expectShown({"checked enabled", "unchecked", "1/1"});
  // A lock that is refused is no error: the display stays and the period starts anew.
  makePartStale();
  for (const char* action : {"@tick\n", "@click IDC_XREFS_LATEST\n"}) {
    step("@refuse-locks 1\n" + std::string(action));
    EXPECT_EQ(count(L"doc: refused: a lock of"), 1) << recent();
    expectShown({"checked enabled", "unchecked", "1/1"});
  }
}

TEST_F(StatusWindow, FailingStatusTurnsTheLowerPartOff) {
  run("@load\n@open " + plan + "\n");
  run("@fail VaultFile.latestVersion E_QVT_PERMISSION_DENIED\n@answer ok\n@tick\n");
  expectShown(outside);
  run("@tick\n");
  expectShown(noXrefs);
}

TEST_F(StatusWindow, ClickOnTheLockBoxSendsTheCommandThatFits) {
  run("@load\n@open " + plan + "\n");
  step("@answer yes\n@click IDC_CHECKED_OUT_HERE\n");
  expectOrder({L"send: \"_Tessaro_lock \"", L"VaultFile.checkOut(", L"doc: opened"});
  expectShown({"unchecked disabled", "checked", "1/1"});
  step("@answer no\n@click IDC_CHECKED_OUT_HERE\n");
  expectOrder({L"send: \"_Tessaro_unlock \""});
  run("@vault checkout " + other + " computer ELSEWHERE\n@open " + other + "\n");
  step("@click IDC_CHECKED_OUT_HERE\n");
  EXPECT_EQ(count(L"send: "), 0) << recent();
  expectShown(elsewhere);
}

TEST_F(StatusWindow, WithMonitoringOffOnlyAClickChecks) {
  run("@reg set XrefMonitoringInterval 0\n@load\n");
  makePartStale();
  step("@open %WORK%\\View\\Site.dxf\n");
  EXPECT_EQ(count(L"VaultQuery."), 0) << recent();
  run("@click IDC_REFRESH\n");
  EXPECT_EQ(count(L"VaultQuery.execute"), 1) << recent();
  expectShown({"unchecked enabled", "unchecked", "1/1", "enabled", "off"});
}

TEST_F(StatusWindow, AsksTheHostToLeaveItTheKeyboardAndBelongsToItsWindow) {
  run("@load\n");
  const HWND shown = statusWindow();
  EXPECT_EQ(GetWindow(shown, GW_OWNER), wb::Host::instance().mainWindow());
  EXPECT_EQ(SendMessageW(shown, WM_ACAD_KEEPFOCUS, 0, 0), 1);
  EXPECT_EQ(SendMessageW(shown, WM_ACAD_KEEPFOCUS + 1, 0, 0), 0);
}

// On a disabled button Windows shows all that isn't white.
TEST_F(StatusWindow, TheButtonsPictureHasAWhiteGround) {
  run("@load\n");
  const HDC context = CreateCompatibleDC(nullptr);
  const HGDIOBJ before =
      SelectObject(context, reinterpret_cast<HBITMAP>(SendDlgItemMessageW(
                                statusWindow(), IDC_REFRESH, BM_GETIMAGE, IMAGE_BITMAP, 0)));
  EXPECT_EQ(GetPixel(context, 0, 0), RGB(255, 255, 255));
  SelectObject(context, before);
  DeleteDC(context);
}

TEST_F(StatusWindow, AStepDoesNotBeginInTheMiddleOfAnother) {
  run("@load\n@open %WORK%\\View\\Site.dxf\n@fail VaultQuery.execute E_FAIL always\n");
  mark();
  // The box of a failed check lets messages through, such as this one.
  PostMessageW(statusWindow(), WM_TIMER, 1, 0);
  wb::Answers::instance().queue(L"ok");
  SendMessageW(statusWindow(), WM_COMMAND, MAKEWPARAM(IDC_REFRESH, BN_CLICKED), 0);
  EXPECT_EQ(count(L"VaultQuery.execute("), 1) << recent();
  EXPECT_EQ(count(L"box: "), 1) << recent();
  run("@fail clear\n");
}

TEST_F(StatusWindow, SettingsTakeEffectAtOnce) {
  run("@load\n@open %WORK%\\View\\Site.dxf\n@fill IDC_INTERVAL 0\n@answer ok\nTessaro_settings\n");
  expectShown({"unchecked disabled", "unchecked", "1/1", "enabled", "off"});
  run("@fill IDC_INTERVAL 7\n@answer ok\nTessaro_settings\n");
  expectShown({"checked enabled", "unchecked", "1/1", "enabled", "420000 ms"});
  // The registry is read at the start alone.
  run("@reg set XrefMonitoringInterval 9\n@tick\n");
  expectShown({"checked enabled", "unchecked", "1/1", "enabled", "420000 ms"});
  run("@check IDC_SHOW_STATUS off\n@answer ok\nTessaro_settings\n");
  EXPECT_FALSE(isShown());
  EXPECT_FALSE(timerRuns());
  run("@check IDC_SHOW_STATUS on\n@answer ok\nTessaro_settings\n");
  expectShown({"checked enabled", "unchecked", "1/1", "enabled", "540000 ms"});
}

TEST_F(StatusWindow, AfterAPauseOfTheMonitorTheXrefsOfOtherDrawingsAreUnknown) {
  run("@load\n@open %WORK%\\View\\Site.dxf\n@open " + plan +
      "\n@window close\n@check IDC_SHOW_STATUS on\n@answer ok\nTessaro_settings\n");
  expectShown(noXrefs);
  makePartStale();
  run("@activate %WORK%\\View\\Site.dxf\n");
  expectShown({"indeterminate enabled", "unchecked", "1/1"});
}

TEST_F(StatusWindow, ClosingLastsUntilTheSettingsBringItBack) {
  run("@load\n@open %WORK%\\View\\Site.dxf\n@window move 123 -7\n");
  const RECT moved = place();
  run("@window close\n");
  EXPECT_FALSE(isShown());
  EXPECT_FALSE(timerRuns());
  step("@unload\n");
  expectOrder({L"WndPosX=123", L"WndPosY=-7"});
  run("@load\n");
  step("@close\n@open %WORK%\\View\\Site.dxf\n");
  EXPECT_EQ(count(L"VaultQuery."), 0) << recent();
  EXPECT_FALSE(isShown());
  EXPECT_FALSE(timerRuns());
  run("@check IDC_SHOW_STATUS on\n@answer ok\nTessaro_settings\n");
  expectShown({"checked enabled", "unchecked", "1/1"});
  const RECT restored = place();
  EXPECT_TRUE(EqualRect(&restored, &moved)) << "as large as before, too";
  step("@unload\n");
  expectOrder({L"WndPosX=123", L"WndPosY=-7"});
}

}  // namespace
