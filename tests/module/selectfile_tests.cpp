#include "editor/Host.h"
#include "foundation/AddinSettings.h"
#include "shared/ModuleSession.h"

namespace {

const std::string plan = "%WORK%\\View\\Plan.dxf";
const std::wstring question = questionBox(
    L"This file is not checked out in Tessaro. Do you want to check out it before opening?\"");

class SelectFile : public ModuleSession {
 protected:
  /// The status window and the edit guard ask the vault as well; they are out of the way.
  void load(const std::string& before) {
    run("@reg set StatusWnd 0\n@reg set EditWarning 0\n" + before + "@load\n");
    mark();
  }
  int clientCallsBeforeOpening() const {
    int calls = 0;
    for (const std::wstring& line : lines()) {
      if (line.rfind(L"doc: opened", 0) == 0) break;
      calls += line.rfind(L"client: ", 0) == 0;
    }
    return calls;
  }
};

struct OfferCase {
  const char* name;
  const char* before;
  bool asksTheVault;
  const char* answer = "";  ///< empty: no box may come
  bool checksOut = false;
  const char* pick = "%WORK%\\View\\Plan.dxf";
};

const OfferCase cases[] = {
    {"SettingMissing", "", false},
    {"SettingZero", "@reg set Autolock 0\n", false},
    {"SettingTooLong", "@reg set Autolock 1 as long-number\n", false},
    {"Agreed", "@reg set Autolock 1\n", true, "@answer yes\n", true},
    {"Refused", "@reg set Autolock 1\n", true, "@answer no\n"},
    {"AnyNumber", "@reg set Autolock 0x80000000\n", true, "@answer yes\n", true},
    {"HeldHere", "@reg set Autolock 1\n@vault checkout %WORK%\\View\\Plan.dxf\n", true},
    {"HeldByAnother",
     "@reg set Autolock 1\n@vault checkout %WORK%\\View\\Plan.dxf user eva computer ELSEWHERE\n",
     true},
    {"Outside", "@reg set Autolock 1\n", true, "", false, "%WORK%\\small.dxf"},
    {"Offline", "@reg set Autolock 1\n@vault offline on\n", true},
    {"LookupFails", "@reg set Autolock 1\n@fail VaultClient.fileFromPath E_FAIL\n", true},
};

class Offer : public SelectFile, public testing::WithParamInterface<OfferCase> {};

TEST_P(Offer, ComesBeforeTheFileIsOpened) {
  const OfferCase& each = GetParam();
  load(each.before);
  run(std::string(each.answer) + "@opendialog " + each.pick + "\n");
  EXPECT_EQ(count(L"dialog: select file flags=0x41102"), 1) << recent();
  EXPECT_EQ(clientCallsBeforeOpening() > 0, each.asksTheVault) << recent();
  EXPECT_EQ(count(question), *each.answer ? 1 : 0) << recent();
  EXPECT_EQ(count(L"VaultFile.checkOut("), each.checksOut ? 1 : 0) << recent();
  EXPECT_EQ(count(L"doc: opened"), 1) << recent();
  if (each.checksOut) {
    expectOrder({L"dialog: select file", question + L" answer=yes",
                 L"VaultFile.checkOut(folder=1, parent=main, flags=0) -> S_OK", L"doc: opened"});
    EXPECT_EQ(count(L"read-only"), 0) << recent();
  }
}

INSTANTIATE_TEST_SUITE_P(Table, Offer, testing::ValuesIn(cases),
                         [](const auto& info) { return std::string(info.param.name); });

TEST_F(SelectFile, WithoutTheSettingsKeyNothingIsOfferedAndTheKeyIsMade) {
  load("");
  ASSERT_EQ(ERROR_SUCCESS, RegDeleteTreeW(HKEY_CURRENT_USER, tessaro::addinSettingsKey));
  run("@opendialog " + plan + "\n");
  EXPECT_EQ(count(L"box: "), 0) << recent();
  HKEY made = nullptr;
  EXPECT_EQ(ERROR_SUCCESS,
            RegOpenKeyExW(HKEY_CURRENT_USER, tessaro::addinSettingsKey, 0, KEY_READ, &made));
  RegCloseKey(made);
}

TEST_F(SelectFile, CancelReachesTheHostUntouched) {
  load("@reg set Autolock 1\n");
  run("@opendialog cancel\n");
  EXPECT_EQ(count(L"dialog: select file"), 1) << recent();
  EXPECT_EQ(count(L"client: ") + count(L"reg: ") + count(L"doc: "), 0) << recent();
  run("@answer yes\n@opendialog " + plan + "\n");
  EXPECT_EQ(count(question), 1) << "the next selection is met again\n" << recent();
}

TEST_F(SelectFile, FailureOfTheVaultIsToldAndTheFileOpenedAllTheSame) {
  load("@reg set Autolock 1\n");
  run("@fail VaultFile.isCheckedOut E_QVT_PERMISSION_DENIED\n@answer ok\n@opendialog " + plan +
      "\n");
  expectOrder({informationBox(L"Error getting check out data.\\n"),
               L"doc: opened <work>\\View\\Plan.dxf read-only"});
  run("@close\n");
  step("@fail VaultFile.checkOut E_QVT_FILE_SHARE_ERROR\n@answer yes\n@answer ok\n@opendialog " +
       plan + "\n");
  expectOrder({question,
               L"text=\"Error checking out file.\\nMake sure the file or any of it's "
               L"external references isn't opened in another window.\"",
               L"doc: opened <work>\\View\\Plan.dxf read-only"});
}

TEST_F(SelectFile, OtherSelectionsAreLeftToTheHost) {
  load("@reg set Autolock 1\n@open " + plan + "\n");
  mark();
  wb::Host::queuePick((workFolder() / L"View" / L"Copy.dxf").wstring());
  run("SAVEAS\n");
  EXPECT_EQ(count(L"dialog: select file"), 1) << recent();
  EXPECT_EQ(count(L"box: ") + count(L"checkOut"), 0) << recent();
}

TEST_F(SelectFile, UnloadedModuleIsNotAsked) {
  load("@reg set Autolock 1\n");
  run("@unload\n");
  step("@opendialog " + plan + "\n");
  EXPECT_EQ(count(L"client: ") + count(L"box: "), 0) << recent();
  EXPECT_EQ(count(L"doc: opened"), 1) << recent();
}

}  // namespace
