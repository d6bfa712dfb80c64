#include <filesystem>

#include "database/Drawing.h"
#include "editor/Host.h"
#include "shared/ModuleSession.h"

namespace {

const std::string plan = "%WORK%\\View\\Plan.dxf";
const std::wstring asked = L"send: \"_Tessaro_asklock \"";
const std::wstring told = L"send: \"_Tessaro_telllockedelsewhere \"";
const std::wstring opening = L"CoCreateInstance.Main()";

class Guard : public ModuleSession {
 protected:
  /// Without the status window the guard is the only one that asks the vault while the user works.
  void openUnwatched(const std::string& path = plan) {
    run("@reg set StatusWnd 0\n@load\n@open " + path + "\n");
    mark();
  }
  /// A command that locks the drawing and changes nothing; the drawing has no xrefs, so that the
  /// command itself doesn't ask the vault.
  void check() { run("Tessaro_getlatestxrefs\n"); }
  int warnings() const { return count(asked) + count(told); }
  int warningsAfter(const std::string& script) {
    step(script);
    return warnings();
  }
};

/// What the guard does at the first change.
struct Warning {
  const wchar_t* command = nullptr;  ///< null for nothing
  const char* answer = "";
  std::wstring box;
};
const Warning nothing;
const Warning asksToCheckOut = {
    L"asklock", "@answer no\n",
    questionBox(
        L"You are trying to modify this drawing without having it checked out in Tessaro.\\n"
        L"Do you want to check out the file '<work>\\View\\Plan.dxf' now?\" answer=no")};
const Warning tellsOfAnother = {
    L"telllockedelsewhere", "@answer ok\n",
    L"box: flags=MB_OK|MB_ICONWARNING title=\"Tessaro\" text=\"The drawing "
    L"'<work>\\View\\Plan.dxf' is checked out somewhere else.\\nYou will not be able to save this "
    L"file after making changes.\""};

struct GuardCase {
  const char* name;
  const char* before;  ///< the vault and the settings
  Warning warning;
  const char* drawing = "%WORK%\\View\\Plan.dxf";
  int firstOpenings = 1;  ///< of the vault, at the first check
};

const GuardCase cases[] = {
    {"Off", "@reg set EditWarning 0\n", nothing, plan.c_str(), 0},
    {"Outside", "", nothing, "%WORK%\\small.dxf"},
    {"NotAddedToTheVault", "", nothing, "%WORK%\\View\\Loose.dxf"},
    {"Offline", "@vault offline on\n", nothing},
    {"LoginFails", "@fail VaultClient.login E_FAIL always\n", nothing},
    {"HeldHere", "@vault checkout %WORK%\\View\\Plan.dxf\n", nothing},
    {"NotCheckedOut", "", asksToCheckOut},
    {"OfAnUnreadableSetting", "@reg set EditWarning nothing as text\n", asksToCheckOut},
    {"OnByAnyNumber", "@reg set EditWarning 2\n", asksToCheckOut},
    {"OnAnotherComputer", "@vault checkout %WORK%\\View\\Plan.dxf computer ELSEWHERE\n",
     tellsOfAnother},
    {"InAnotherFolder", "@vault checkout %WORK%\\View\\Plan.dxf folder C:\\Copy\n", tellsOfAnother},
};

class GuardDecision : public Guard, public testing::WithParamInterface<GuardCase> {};

TEST_P(GuardDecision, WarnsOnceAtMostAndAsksTheVaultTwiceAtMost) {
  const GuardCase& each = GetParam();
  writeDrawing(L"View\\Loose.dxf");
  run(each.before);
  openUnwatched(each.drawing);
  check();
  EXPECT_EQ(count(opening), each.firstOpenings) << recent();
  mark();
  check();
  check();
  EXPECT_EQ(count(L"client: "), 0) << recent();

  const Warning& warning = each.warning;
  const int expected = warning.command ? 1 : 0;
  run(warning.answer + std::string("@edit\n"));
  EXPECT_EQ(warnings(), expected) << recent();
  EXPECT_EQ(count(opening), expected) << recent();
  EXPECT_EQ(count(L"box: "), expected) << recent();
  if (warning.command) {
    const std::wstring text = L"_Tessaro_" + std::wstring(warning.command) + L" ";
    expectOrder({L"send: \"" + text + L"\"", L"command: Tessaro_" + std::wstring(warning.command),
                 warning.box});
  }
  step("@edit\n@edit\n");
  EXPECT_EQ(count(L"client: ") + count(L"send: "), 0) << recent();
}

INSTANTIATE_TEST_SUITE_P(Table, GuardDecision, testing::ValuesIn(cases),
                         [](const auto& info) { return std::string(info.param.name); });

TEST_F(Guard, YesGivesTheChangesUpAndChecksOut) {
  openUnwatched();
  run("@answer yes\n@edit\n");
  expectOrder({asked, L"answer=yes", L"send: \"\\e_Tessaro_locksilent \"", L"send: \"_CLOSE \"",
               L"VaultFile.checkOut(", L"doc: destroyed", L"doc: opened <work>\\View\\Plan.dxf"});
  EXPECT_EQ(count(L"box: "), 1) << recent();
  EXPECT_EQ(count(L"read-only") + count(L"doc: saved"), 0) << recent();
  EXPECT_EQ(wb::Host::instance().documents().active()->drawing()->dbmod(), 0);
  EXPECT_TRUE(stored().holder);
  EXPECT_EQ(warningsAfter("@edit\n@edit\n"), 0) << recent();
}

TEST_F(Guard, YesGivesTheChangesUpEvenIfTheVaultCantBeReachedThen) {
  openUnwatched();
  check();
  run("@fail VaultClient.vaultNameFromPath E_FAIL after 1\n@answer yes\n@edit\n");
  EXPECT_EQ(count(L"_CLOSE"), 0) << recent();
  EXPECT_EQ(wb::Host::instance().documents().active()->drawing()->dbmod(), 0) << recent();
}

TEST_F(Guard, ChangeOfTheSettingTakesEffectAtTheNextCheck) {
  run("@reg set EditWarning 0\n");
  openUnwatched();
  EXPECT_EQ(warningsAfter("@edit\n@edit\n"), 0);
  step("@reg set EditWarning 1\n@answer no\nTessaro_getlatestxrefs\n");
  EXPECT_EQ(count(asked), 1) << recent();
  EXPECT_EQ(count(opening), 1) << "changed already at its first check\n" << recent();
}

TEST_F(Guard, DrawingCheckedOutMeanwhileGetsNoWarning) {
  openUnwatched();
  check();
  EXPECT_EQ(warningsAfter("@vault checkout " + plan + "\n@edit\n"), 0) << recent();
  EXPECT_EQ(warningsAfter("@vault undo " + plan + "\n@edit\n"), 0) << recent();
}

TEST_F(Guard, EachDrawingIsWarnedOfOnItsOwn) {
  run("@vault add %WORK%\\View\\Other.dxf from %WORK%\\small.dxf\n"
      "@vault checkout %WORK%\\View\\Other.dxf computer ELSEWHERE\n");
  openUnwatched();
  EXPECT_EQ(warningsAfter("@open %WORK%\\View\\Other.dxf\n@answer ok\n@edit\n"), 1);
  EXPECT_EQ(count(told), 1) << recent();
  EXPECT_EQ(warningsAfter("@activate " + plan + "\n@answer no\n@edit\n"), 1);
  EXPECT_EQ(count(asked), 1) << recent();
  EXPECT_EQ(warningsAfter("@edit\n@activate %WORK%\\View\\Other.dxf\n@edit\n"), 0) << recent();
}

TEST_F(Guard, WarnsAgainOnlyOfADrawingOpenedAnew) {
  run("@vault checkout %WORK%\\View\\Plan.dxf computer ELSEWHERE\n");
  makeWritable(L"Plan.dxf");
  openUnwatched();
  EXPECT_EQ(warningsAfter("@answer ok\n@edit\n"), 1);
  EXPECT_EQ(warningsAfter("@save\n@edit\n@save\n@edit\n"), 0) << recent();
  EXPECT_EQ(count(L"doc: saved"), 2) << recent();
  EXPECT_EQ(warningsAfter("@answer no\n@close\n@open " + plan + "\n@answer ok\n@edit\n"), 1);
}

TEST_F(Guard, NewDrawingIsNeverLookedAt) {
  run("@reg set StatusWnd 0\n@load\n@new\n");
  step("@edit\n@edit\n");
  EXPECT_EQ(count(L"client: ") + count(L"send: "), 0) << recent();
}

TEST_F(Guard, ErrorOfTheVaultLeavesTheEventAndIsNotMetAgain) {
  for (const char* failing : {"VaultFile.isCheckedOut", "VaultObject.name"}) {
    openUnwatched();
    run("@fail " + std::string(failing) + " E_FAIL\n@edit\n");
    EXPECT_EQ(count(L"uncaught error 0x80004005"), 1) << recent();
    EXPECT_EQ(warnings(), 0) << recent();
    EXPECT_EQ(warningsAfter("@edit\n"), 0) << recent();
    EXPECT_EQ(count(L"client: "), 0) << recent();
    run("@answer no\n@close\n@unload\n");
  }
}

}  // namespace
