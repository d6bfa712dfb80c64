#include <windows.h>

#include <comdef.h>

#include <acedads.h>
#include <adscodes.h>

#include "database/Drawing.h"
#include "editor/Host.h"
#include "shared/ModuleSession.h"

namespace {

const std::wstring plan = L"<work>\\View\\Plan.dxf";

class Lock : public ModuleSession {
 protected:
  static int changeMark() {
    resbuf value = {};
    EXPECT_EQ(acedGetVar(L"DBMOD", &value), RTNORM);
    return value.resval.rint;
  }
  /// The guard's own question at the first change is no matter of these tests.
  void openChangedPlan() {
    openPlan();
    run("@reg set EditWarning 0\n@edit\n");
    EXPECT_NE(changeMark(), 0);
    mark();
  }
  static bool isHeld() { return stored().holder.has_value(); }
};

TEST_F(Lock, AgreedGivesTheDrawingUpChecksOutAndOpensAgain) {
  openPlan();
  EXPECT_EQ(session.count(L"opened " + plan + L" read-only"), 1);
  run("@answer yes\nTessaro_lock\n");
  expectOrder({L"isCheckedOut() -> S_OK = false", L"VaultObject.name() -> S_OK = \"Plan.dxf\"",
               questionBox(L"Are you sure you want to check out the file 'Plan.dxf'?\" answer=yes"),
               L"send: \"_CLOSE \"", L"VaultFile.checkOut(folder=1, parent=main, flags=0) -> S_OK",
               L"doc: destroyed " + plan, L"doc: opened " + plan});
  EXPECT_EQ(count(L"read-only"), 0) << recent();
  EXPECT_EQ(count(L"box: "), 1) << recent();
  EXPECT_TRUE(isHeld());
  EXPECT_EQ(changeMark(), 0);
}

// Each step once: no object is made, no vault entered and no file looked up a second time.
TEST_F(Lock, AsksTheClientNoMoreThanItNeeds) {
  openPlan();
  run("@answer yes\nTessaro_lock\n");
  std::vector<std::wstring> calls;
  for (const std::wstring& line : lines()) {
    if (line == L"command: CLOSE") break;
    if (line.rfind(L"client: ", 0) == 0) calls.push_back(line.substr(8, line.find(L'(') - 8));
  }
  EXPECT_EQ(calls,
            (std::vector<std::wstring>{
                L"CoCreateInstance.Main", L"VaultClient.vaultNameFromPath", L"VaultClient.login",
                L"VaultClient.fileFromPath", L"VaultFile.isCheckedOut", L"VaultObject.name",
                L"VaultTextService.text", L"VaultObject.id", L"VaultFile.checkOut"}))
      << recent();
}

TEST_F(Lock, ChangesAreGivenUpOnlyWithTheUsersWord) {
  openChangedPlan();
  const int changed = changeMark();
  run("@answer no\nTessaro_lock\n");
  expectOrder(
      {L"text=\"The file 'Plan.dxf' has been modified since opened. If you check out the "
       L"file now any changes you have made will be lost. Do you want to continue?\" "
       L"answer=no"});
  EXPECT_EQ(count(L"send: ") + count(L"checkOut(") + count(L"doc: "), 0) << recent();
  EXPECT_EQ(changeMark(), changed);
  EXPECT_FALSE(isHeld());

  // No question of the host's own about saving comes after the module's.
  step("@answer yes\nTessaro_lock\n");
  expectOrder({L"has been modified", L"send: \"_CLOSE \"", L"checkOut(", L"doc: destroyed " + plan,
               L"doc: opened " + plan});
  EXPECT_EQ(count(L"box: "), 1) << recent();
  EXPECT_EQ(count(L"doc: saved"), 0) << recent();
  EXPECT_EQ(changeMark(), 0);
  EXPECT_TRUE(isHeld());
}

struct Case {
  const char* name;
  const char* setup;    ///< before the drawing is opened
  const char* file;     ///< the drawing
  const char* after;    ///< once it is open
  const wchar_t* last;  ///< the last thing that the client is asked
};

class LockSaysNothing : public Lock, public testing::WithParamInterface<Case> {};

TEST_P(LockSaysNothing, AndChangesNothing) {
  const Case& one = GetParam();
  writeDrawing(L"View\\Unknown.dxf");
  run(std::string(one.setup) + "\n@load\n@reg set EditWarning 0\n@open " + one.file + "\n@edit\n" +
      one.after + "\n");
  const int changed = changeMark();
  for (const char* command : {"Tessaro_lock\n", "Tessaro_locksilent\n"}) {
    step(command);
    EXPECT_EQ(count(L"box: ") + count(L"send: ") + count(L"doc: ") + count(L"checkOut("), 0)
        << recent();
    ASSERT_FALSE(lines().empty());
    EXPECT_NE(lines().back().find(one.last), std::wstring::npos) << recent();
    EXPECT_EQ(changeMark(), changed);
  }
  run("@answer no\n@close\n");
}

const char planFile[] = "%WORK%\\View\\Plan.dxf";

INSTANTIATE_TEST_SUITE_P(
    Drawing, LockSaysNothing,
    testing::Values(
        Case{"HeldHere", "@vault checkout %WORK%\\View\\Plan.dxf", planFile, "", L"isCheckedOut"},
        Case{"HeldByAnother", "@vault checkout %WORK%\\View\\Plan.dxf user eve computer PC7",
             planFile, "", L"isCheckedOut"},
        Case{"HeldOnAnotherComputer", "@vault checkout %WORK%\\View\\Plan.dxf computer PC7",
             planFile, "", L"isCheckedOut"},
        Case{"OutsideAnyVault", "", "%WORK%\\small.dxf", "", L"vaultNameFromPath"},
        Case{"Offline", "@vault offline on", planFile, "", L"vaultNameFromPath"},
        Case{"NotInTheVault", "", "%WORK%\\View\\Unknown.dxf", "", L"fileFromPath"},
        Case{"Denied", "", planFile, "@vault deny %WORK%\\View\\Plan.dxf", L"fileFromPath"},
        Case{"LoginRefused", "", planFile, "@fail login E_QVT_PERMISSION_DENIED always", L"login"},
        Case{"LookupFails", "", planFile, "@fail fileFromPath E_FAIL always", L"fileFromPath"},
        Case{"VaultNameFails", "", planFile, "@fail vaultNameFromPath E_FAIL always",
             L"vaultNameFromPath"}),
    [](const auto& info) { return info.param.name; });

TEST_F(Lock, TellsWhatIsMissing) {
  run("@load\n");
  step("@answer ok\nTessaro_lock\n@answer ok\nTessaro_locksilent\n");
  EXPECT_EQ(count(informationBox(L"This command is only available if you have a drawing open.\"")),
            2)
      << recent();
  EXPECT_EQ(count(L"CoCreateInstance.Main"), 0) << recent();

  run("@open %WORK%\\View\\Plan.dxf\n@client missing\n");
  step("@answer ok\nTessaro_lock\n");
  EXPECT_EQ(
      count(informationBox(
          L"Can't create interface towards Tessaro.\\nIs Tessaro installed on this computer?\"")),
      1)
      << recent();
  EXPECT_EQ(count(L"doc: ") + count(L"send: "), 0) << recent();
}

TEST_F(Lock, GivesTheDrawingBackAfterAFailedCheckOut) {
  openChangedPlan();
  write(workFolder() / L"wordless.txt", "QvtInterface;ErrorCodes;5=\n");
  const std::wstring advice =
      L"Make sure the file or any of it's external references isn't opened in another window.";
  const struct {
    const char* before;
    const char* code;
    std::wstring cause;
    bool asksTheClient = true;
  } cases[] = {
      {"", "E_QVT_PERMISSION_DENIED", L"You don't have permission to perform this action."},
      {"@fail VaultClient.errorText E_FAIL\n", "E_ACCESSDENIED",
       _com_error(E_ACCESSDENIED).ErrorMessage()},
      {"@client language %WORK%\\wordless.txt\n", "E_QVT_PERMISSION_DENIED", L"IDispatch error #3"},
      // The module has an advice of its own.
      {"", "E_QVT_FILE_SHARE_ERROR", advice, false},
      {"", "E_QVT_RCE_ERROR", advice, false},
  };
  for (const auto& each : cases) {
    step(each.before + ("@fail VaultFile.checkOut " + std::string(each.code)) +
         "\n@answer yes\n@answer ok\nTessaro_lock\n");
    expectOrder({L"answer=yes", L"send: \"_CLOSE \"", L"VaultFile.checkOut(",
                 informationBox(L"Error checking out file.\\n" + each.cause + L"\""),
                 L"doc: destroyed " + plan, L"doc: opened " + plan + L" read-only"});
    EXPECT_EQ(count(L"errorText("), each.asksTheClient ? 1 : 0) << recent();
    EXPECT_FALSE(isHeld());
    EXPECT_EQ(changeMark(), 0) << "the changes are given up, as the question said";
  }
  step("@answer yes\nTessaro_lock\n");
  EXPECT_TRUE(isHeld()) << recent();
}

TEST_F(Lock, AFailureAheadOfTheQuestionLeavesTheDrawingAsItIs) {
  openChangedPlan();
  const int changed = changeMark();
  for (const char* operation : {"VaultFile.isCheckedOut", "VaultObject.name"}) {
    step(std::string("@fail ") + operation + " E_FAIL\nTessaro_lock\n@fail clear\n");
    EXPECT_EQ(count(L"Tessaro_lock ended by an uncaught error 0x80004005"), 1) << recent();
    EXPECT_EQ(count(L"box: ") + count(L"send: ") + count(L"doc: "), 0) << recent();
    EXPECT_EQ(changeMark(), changed);
    EXPECT_FALSE(isHeld());
  }
}

// Bits of DBMOD other than that of the drawing's objects: a view or a variable was changed.
TEST_F(Lock, AnyChangeCountsAsOne) {
  openPlan();
  for (const int change : {2, 4, 8, 16}) {
    mark();
    wb::Host::instance().documents().active()->drawing()->setDbmod(static_cast<short>(change));
    run("@answer no\nTessaro_lock\n");
    EXPECT_EQ(count(L"text=\"The file 'Plan.dxf' has been modified since opened. If you check out"),
              1)
        << recent();
  }
}

}  // namespace
