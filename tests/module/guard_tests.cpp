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
    mark();
    run(script);
    return warnings();
  }
};

struct GuardCase {
  const char* name;
  const char* before;   ///< the vault and the settings
  const char* drawing;  ///< opened
  int firstOpenings;    ///< of the vault, at the first check
  const wchar_t* sent;  ///< at the first change; null for nothing
  const char* answer;
};

const GuardCase cases[] = {
    {"Off", "@reg set EditWarning 0\n", "%WORK%\\View\\Plan.dxf", 0, nullptr, ""},
    {"Outside", "", "%WORK%\\small.dxf", 1, nullptr, ""},
    {"NotAddedToTheVault", "", "%WORK%\\View\\Loose.dxf", 1, nullptr, ""},
    {"Offline", "@vault offline on\n", "%WORK%\\View\\Plan.dxf", 1, nullptr, ""},
    {"LoginFails", "@fail VaultClient.login E_FAIL always\n", "%WORK%\\View\\Plan.dxf", 1, nullptr,
     ""},
    {"HeldHere", "@vault checkout %WORK%\\View\\Plan.dxf\n", "%WORK%\\View\\Plan.dxf", 1, nullptr,
     ""},
    {"NotCheckedOut", "", "%WORK%\\View\\Plan.dxf", 1, L"asklock", "@answer no\n"},
    {"OfAnUnreadableSetting", "@reg set EditWarning nothing as text\n", "%WORK%\\View\\Plan.dxf", 1,
     L"asklock", "@answer no\n"},
    {"OnByAnyNumber", "@reg set EditWarning 2\n", "%WORK%\\View\\Plan.dxf", 1, L"asklock",
     "@answer no\n"},
    {"OnAnotherComputer", "@vault checkout %WORK%\\View\\Plan.dxf computer ELSEWHERE\n",
     "%WORK%\\View\\Plan.dxf", 1, L"telllockedelsewhere", "@answer ok\n"},
    {"InAnotherFolder", "@vault checkout %WORK%\\View\\Plan.dxf folder C:\\Copy\n",
     "%WORK%\\View\\Plan.dxf", 1, L"telllockedelsewhere", "@answer ok\n"},
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

  run(each.answer + std::string("@edit\n"));
  EXPECT_EQ(warnings(), each.sent ? 1 : 0) << recent();
  EXPECT_EQ(count(opening), each.sent ? 1 : 0) << recent();
  EXPECT_EQ(count(L"box: "), each.sent ? 1 : 0) << recent();
  if (each.sent) {
    const std::wstring text = L"_Tessaro_" + std::wstring(each.sent) + L" ";
    expectOrder({L"send: \"" + text + L"\"", L"command: Tessaro_" + std::wstring(each.sent),
                 L"<work>\\View\\Plan.dxf"});
  }
  mark();
  run("@edit\n@edit\n");
  EXPECT_EQ(count(L"client: ") + count(L"send: "), 0) << recent();
}

INSTANTIATE_TEST_SUITE_P(Table, GuardDecision, testing::ValuesIn(cases),
                         [](const auto& info) { return std::string(info.param.name); });

TEST_F(Guard, WordsOfTheTwoBoxes) {
  openUnwatched();
  run("@answer no\n@edit\n");
  expectOrder(
      {L"box: flags=MB_YESNO|MB_ICONQUESTION title=\"Tessaro\" text=\"You are trying to modify "
       L"this drawing without having it checked out in Tessaro.\\nDo you want to check out the "
       L"file '<work>\\View\\Plan.dxf' now?\" answer=no"});
  run("@answer no\n@close\n@vault checkout %WORK%\\View\\Plan.dxf computer ELSEWHERE\n@open " +
      plan + "\n@answer ok\n@edit\n");
  expectOrder(
      {L"text=\"The drawing '<work>\\View\\Plan.dxf' is checked out somewhere else.\\nYou "
       L"will not be able to save this file after making changes.\""});
  EXPECT_EQ(count(L"flags=MB_OK|MB_ICONWARNING"), 1) << recent();
}

TEST_F(Guard, YesGivesTheChangesUpAndChecksOut) {
  openUnwatched();
  run("@answer yes\n@edit\n");
  expectOrder({asked, L"answer=yes", L"send: \"\\e_Tessaro_locksilent \"", L"send: \"_CLOSE \"",
               L"VaultFile.checkOut(", L"doc: destroyed", L"doc: opened <work>\\View\\Plan.dxf"});
  EXPECT_EQ(count(L"box: "), 1) << recent();
  EXPECT_EQ(count(L"read-only"), 0) << recent();
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
  mark();
  run("@reg set EditWarning 1\n@answer no\nTessaro_getlatestxrefs\n");
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
  std::filesystem::permissions(workFolder() / L"View" / L"Plan.dxf",
                               std::filesystem::perms::owner_write,
                               std::filesystem::perm_options::add);
  openUnwatched();
  EXPECT_EQ(warningsAfter("@answer ok\n@edit\n"), 1);
  EXPECT_EQ(warningsAfter("@save\n@edit\n@save\n@edit\n"), 0) << recent();
  EXPECT_EQ(count(L"doc: saved"), 2) << recent();
  EXPECT_EQ(warningsAfter("@answer no\n@close\n@open " + plan + "\n@answer ok\n@edit\n"), 1);
}

TEST_F(Guard, NewDrawingIsNeverLookedAt) {
  run("@reg set StatusWnd 0\n@load\n@new\n");
  mark();
  run("@edit\n@edit\n");
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
