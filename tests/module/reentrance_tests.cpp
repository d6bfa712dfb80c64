// What comes into the module while it is waiting for something: messages, events, the documents'
// end.
#include <windows.h>

#include <shlwapi.h>

#include <acdocman.h>
#include <acedads.h>
#include <axlock.h>

#include <functional>

#include "core/Text.h"
#include "database/Drawing.h"
#include "dialogs/Answers.h"
#include "editor/Host.h"
#include "editor/Selection.h"
#include "shared/ModuleSession.h"
#include "watch/ImportWatch.h"

namespace {

const std::string plan = "%WORK%\\View\\Plan.dxf";
const std::string other = "%WORK%\\View\\Other.dxf";
const std::wstring asked = L"send: \"_Tessaro_asklock \"";

wb::Host& host() { return wb::Host::instance(); }

/// Something that is done once.
class Once {
 public:
  Once(const Once&) = delete;
  Once& operator=(const Once&) = delete;

 protected:
  explicit Once(std::function<void()> what) { action = std::move(what); }
  ~Once() { EXPECT_FALSE(action) << "the occasion hasn't come"; }

  static void happen() {
    if (action) std::exchange(action, nullptr)();
  }

 private:
  static inline std::function<void()> action;
};

/// Does something in the next message loop of this thread: that of a box, for one.
class InNextLoop : Once {
 public:
  explicit InNextLoop(std::function<void()> what) : Once(std::move(what)) {
    PostMessageW(nullptr, WM_TIMER, SetTimer(nullptr, 0, USER_TIMER_MAXIMUM, onTimer),
                 reinterpret_cast<LPARAM>(onTimer));
  }

 private:
  static void CALLBACK onTimer(HWND, UINT, UINT_PTR timer, DWORD) {
    KillTimer(nullptr, timer);
    happen();
  }
};

/// Does something when the module next makes a call of Windows: what a client that shows windows of
/// its own could let through there.
class AtCall : Once {
 public:
  template <class Result, class... Arguments>
  AtCall(const char* name, Result(WINAPI* function)(Arguments...), std::function<void()> what)
      : Once(std::move(what)) {
    original<Result, Arguments...> = function;
    const auto slots =
        wb::patchImports(GetModuleHandleW(L"TessaroAcad.arx"),
                         {{name, wb::observerOf(observer<Result, Arguments...>, function)}});
    if (!slots.empty()) patched = slots.back();
  }
  ~AtCall() {
    DWORD protection = 0;
    VirtualProtect(patched.slot, sizeof(void*), PAGE_READWRITE, &protection);
    *patched.slot = patched.original;
    VirtualProtect(patched.slot, sizeof(void*), protection, &protection);
  }

 private:
  template <class Result, class... Arguments>
  static inline Result(WINAPI* original)(Arguments...) = nullptr;
  template <class Result, class... Arguments>
  static Result WINAPI observer(Arguments... arguments) {
    happen();
    return original<Result, Arguments...>(arguments...);
  }

  wb::PatchedSlot patched{};
};

class Reentrance : public ModuleSession {
 protected:
  Reentrance() { addSite(); }

  /// A command of another application in the drawing on top.
  static void command(const wchar_t* name, std::function<void()> work) {
    wb::Command one;
    one.global = one.local = name;
    one.work = std::move(work);
    host().runner().run(one, host().documents().active());
    host().runUntilIdle();
  }
  static void editByHand() { host().documents().active()->drawing()->edit(); }
  static void tick() { SendMessageW(statusWindow(), WM_TIMER, 1, 0); }
  static std::wstring pathOf(const wchar_t* file) { return (viewFolder() / file).wstring(); }
  static void closeFile(const wchar_t* file) {
    host().documents().close(host().documents().find(pathOf(file)), false);
  }
  static void clickXrefs() {
    SendMessageW(statusWindow(), WM_COMMAND, MAKEWPARAM(1005, BN_CLICKED), 0);
  }
  std::string window() {
    run("@window\n");
    return wb::toUtf8(session.transcript().back());
  }
  void openUnwatched() {
    run("@reg set StatusWnd 0\n@load\n@open " + plan + "\n");
    mark();
  }
  /// Closes the drawing on top, answers first, and opens another one, which lies at its address:
  /// nothing of what the module remembered of the old one may be left.
  void replaceBy(const std::string& path, const std::string& answers = "") {
    const AcApDocument* const before = host().documents().active();
    host().documents().reuseAddresses();
    run(answers + "@close\n");
    step("@open " + path + "\n");
    ASSERT_EQ(host().documents().active(), before);
  }
};

class GuardReentrance : public Reentrance {};

TEST_F(GuardReentrance, ACommandThatPromptsDoesNotEatTheWarning) {
  // Changed while the guard was off, so that there is something to warn of from the first lock on.
  run("@reg set EditWarning 0\n");
  openUnwatched();
  run("@edit\n@reg set EditWarning 1\n");
  mark();
  int number = 0;
  host().type(L"5");
  wb::Answers::instance().queue(L"no");
  command(L"OFFSET", [&] {
    {
      const AcAxDocLock nested(host().documents().active()->database());
    }
    acedGetInt(L"Number: ", &number);
  });
  EXPECT_EQ(number, 5) << recent();
  expectOrder({L"prompt: \"Number: \"", asked, L"box: flags=MB_YESNO|MB_ICONQUESTION"});
  EXPECT_EQ(count(asked), 1) << recent();
}

TEST_F(GuardReentrance, AChangeWithoutALockIsSeenBeforeItIsSaved) {
  makeWritable(L"Plan.dxf");
  openUnwatched();
  editByHand();
  run("@answer no\n@save\n");
  expectOrder({asked, L"doc: saved", L"box: flags=MB_YESNO|MB_ICONQUESTION"});
}

TEST_F(GuardReentrance, ADrawingSavedInTheBackgroundIsNotChangedByTheOneOnTop) {
  openUnwatched();
  AcDbDatabase* const unchanged = host().documents().active()->database();
  run("@vault checkout " + other + "\n@open " + other + "\n@edit\n");
  mark();
  host().editor().beginSave(unchanged, pathOf(L"Plan.dxf").c_str());
  host().runUntilIdle();
  EXPECT_EQ(count(L"client: ") + count(L"send: "), 0) << recent();
  // On top it is looked at.
  run("@activate " + plan + "\n@answer no\n@edit\n");
  EXPECT_EQ(count(asked), 1) << recent();
}

TEST_F(GuardReentrance, ADocumentThatGoesWhileTheVaultIsAskedIsLeftAlone) {
  run("@vault checkout " + plan + " computer ELSEWHERE\n");
  for (const bool atFirstLook : {true, false}) {
    run("@reg set StatusWnd 0\n@load\n@open " + plan + "\n");
    if (!atFirstLook) run("Tessaro_getlatestxrefs\n");
    editByHand();
    mark();
    {
      const AtCall call("GetComputerNameW", GetComputerNameW, [] { closeFile(L"Plan.dxf"); });
      command(L"LINE", [] {});
    }
    EXPECT_EQ(count(L"send: ") + count(L"error: ") + count(L"uncaught"), 0) << recent();
    EXPECT_EQ(count(L"doc: destroyed"), 1) << recent();
    run("@unload\n");
  }
}

TEST_F(GuardReentrance, ADrawingAtTheAddressOfAClosedOneIsWarnedOfAgain) {
  openUnwatched();
  run("@answer no\n@edit\n");
  EXPECT_EQ(count(asked), 1) << recent();
  replaceBy(plan, "@answer no\n");
  run("@answer no\n@edit\n");
  EXPECT_EQ(count(asked), 1) << recent();
}

class WindowReentrance : public Reentrance {
 protected:
  WindowReentrance() { run("@reg set EditWarning 0\n"); }
};

TEST_F(WindowReentrance, OneCauseBringsOneBox) {
  run("@load\n@client missing\n");
  mark();
  {
    // A tick comes while the box of the opening is up.
    const InNextLoop loop([] { tick(); });
    wb::Answers::instance().queue(L"ok");
    host().documents().open(pathOf(L"Plan.dxf"), false);
  }
  EXPECT_EQ(count(L"box: "), 1) << recent();
  EXPECT_EQ(count(L"error: "), 0) << recent();
}

TEST_F(WindowReentrance, AnEventInTheMiddleOfAStepFollowsIt) {
  run("@load\n@open " + plan + "\n@vault checkout " + other + "\n");
  run("@fail VaultFile.latestVersion E_QVT_PERMISSION_DENIED\n");
  mark();
  {
    const InNextLoop loop([] { host().documents().open(pathOf(L"Other.dxf"), false); });
    wb::Answers::instance().queue(L"ok");
    tick();
  }
  expectOrder({L"doc: activated <work>\\View\\Other.dxf", L"box: ", L"VaultFile.localVersion"});
  EXPECT_EQ(count(L"box: "), 1) << recent();
  EXPECT_NE(window().find("1006=checked enabled, 1007=\"Version: 1/1\""), std::string::npos)
      << recent();
  // The first one's status wasn't had; it is asked for when the drawing comes to the top.
  run("@activate " + plan + "\n");
  EXPECT_NE(window().find("1006=unchecked enabled, 1007=\"Version: 1/1\""), std::string::npos)
      << recent();
}

TEST_F(WindowReentrance, ADrawingAtTheAddressOfAClosedOneIsNew) {
  run("@load\n@open " + plan + "\n");
  replaceBy(other);
  EXPECT_GT(count(L"VaultClient.login"), 0) << recent();
}

TEST_F(WindowReentrance, ADocumentThatGoesDuringACheckLeavesNothingBehind) {
  run("@load\n@open %WORK%\\View\\Site.dxf\n");
  {
    const AtCall call("CreateFileW", CreateFileW, [] { closeFile(L"Site.dxf"); });
    tick();
  }
  EXPECT_NE(window().find("1007=\"Version: -/-\" disabled"), std::string::npos);
  run("@open " + plan + "\n");
  EXPECT_NE(window().find("1007=\"Version: 1/1\" enabled"), std::string::npos);
}

TEST_F(WindowReentrance, WhatACheckFoundIsNotShownForTheDrawingThatCameToTheTopMeanwhile) {
  run("@load\n@open " + plan + "\n@open %WORK%\\View\\Site.dxf\n");
  {
    const AtCall call("CreateFileW", CreateFileW, [] {
      host().documents().activate(host().documents().find(pathOf(L"Plan.dxf")));
    });
    tick();
  }
  EXPECT_NE(window().find("1005=unchecked disabled, "), std::string::npos) << recent();
}

TEST_F(WindowReentrance, ASavedSideDatabaseIsNoneOfTheWindows) {
  run("@load\n@open " + plan + "\n");
  const std::string before = window();
  mark();
  host().editor().saveComplete(nullptr, L"C:\\Side.dwg");
  EXPECT_EQ(count(L"client: "), 0) << recent();
  // The host doesn't tell the name, the document does.
  host().editor().saveComplete(host().documents().active()->database(), nullptr);
  EXPECT_EQ(count(L"VaultFile.localVersion"), 1) << recent();
  EXPECT_EQ(count(L"uncaught"), 0) << recent();
  EXPECT_EQ(window(), before);
}

TEST_F(WindowReentrance, NothingChecksXrefsInTheMiddleOfAnotherCheck) {
  run("@load\n@open %WORK%\\View\\Site.dxf\n@vault newversion %WORK%\\View\\Part.dxf from "
      "%WORK%\\small.dxf\n@vault date %WORK%\\View\\Part.dxf 2030-01-01 10:00:00\n");
  mark();
  {
    const AtCall call("CreateFileW", CreateFileW, [] {
      tick();
      clickXrefs();
    });
    run("Tessaro_getlatestxrefs\n");
  }
  EXPECT_EQ(count(L"VaultQuery.execute("), 1) << recent();
  EXPECT_EQ(count(L"VaultFile.getLocalCopy("), 1) << recent();
  EXPECT_EQ(count(L"VaultFile.localVersion("), 0) << "a tick would ask for the status, too";
  {
    const AtCall call("CreateFileW", CreateFileW, [] {
      host().runner().run(*host().commands().find(L"Tessaro_getlatestxrefs"),
                          host().documents().active());
    });
    tick();
  }
  EXPECT_EQ(count(L"command: Tessaro_getlatestxrefs"), 2) << recent();
  EXPECT_EQ(count(L"VaultQuery.execute("), 2) << recent();
}

TEST_F(WindowReentrance, NothingChecksXrefsWhileOneIsFetchedOrCheckedIn) {
  run("@load\n@open %WORK%\\View\\Site.dxf\n");
  const auto tickAndClick = [] {
    tick();
    clickXrefs();
  };
  mark();
  {
    const AtCall call("PathFindFileNameW", PathFindFileNameW, tickAndClick);
    run("@pick Part\n_Tessaro_getxrefver2 1 \n");
  }
  run("@vault checkout %WORK%\\View\\Part.dxf\n");
  {
    // The client's dialog for the check-in is up.
    const InNextLoop loop(tickAndClick);
    wb::Selection::instance().answer({L"Part"});
    wb::Answers::instance().queue(L"cancel");
    host().runner().run(*host().commands().find(L"Tessaro_unlockxref"),
                        host().documents().active());
  }
  expectOrder({L"VaultFolderActions.getVersion(", L"IContextMenu.InvokeCommand("});
  EXPECT_EQ(count(L"VaultFile.localVersion("), 0) << "a tick would ask for it, " << recent();
  EXPECT_EQ(count(L"VaultQuery.execute("), 0) << "a click would ask for it, " << recent();
  tick();
  EXPECT_NE(count(L"VaultFile.localVersion("), 0) << recent();
}

TEST_F(WindowReentrance, WhatTheHostCallsAfterTheUnloadDoesNothing) {
  run("@load\n@open %WORK%\\View\\Site.dxf\n");
  mark();
  {
    // The host gets this to do later ahead of what the module hands to it.
    const AtCall call("CharUpperW", CharUpperW, [] {
      host().documents().executeInApplicationContext(
          [](void*) { host().unloadModule(options().module); }, nullptr);
    });
    session.run("@select Part\nTessaro_editxref\n");
  }
  EXPECT_EQ(count(L"doc: application unloaded"), 1) << recent();
  EXPECT_EQ(count(L"doc: opened"), 0) << recent();
  // The library waited for the call; now it may go.
  const HMODULE library = GetModuleHandleW(L"TessaroAcad.arx");
  ASSERT_TRUE(library);
  FreeLibrary(library);
  EXPECT_FALSE(GetModuleHandleW(L"TessaroAcad.arx"));
}

}  // namespace
