#include "module/XrefSession.h"

namespace {

using XrefLock = OpenSheet;

TEST_F(XrefLock, EachFreeXrefIsLetGoCheckedOutAndLoadedInTheSetsOrder) {
  run("@select Tree Grid\nTessaro_lockxref\n");
  expectOrder({L"prompt: \"\\nSelect objects: ", L"xref: unloaded Tree",
               L"VaultFileLegacy.checkOut(", L"xref: loaded Tree", L"xref: unloaded Grid",
               L"VaultFileLegacy.checkOut(", L"xref: loaded Grid"});
  step("@pick Tree Grid\nTessaro_lockxref\n");
  EXPECT_EQ(count(L"xref: "), 0) << "held already, " << recent();
  EXPECT_EQ(count(L"isCheckedOutHere"), 0) << "by whom doesn't count";

  step("@pick Grid Tree\n@answer ok\n@answer ok\nTessaro_unlockxref\n");
  expectOrder({L"ParseDisplayName(name=\"Grid.dxf\")", L"verb=\"Unlock\"",
               L"ParseDisplayName(name=\"Tree.dxf\")", L"verb=\"Unlock\""});
  EXPECT_EQ(count(L"xref: "), 0) << "they stay loaded, " << recent();
  step("@pick Grid Tree\nTessaro_unlockxref\n");
  EXPECT_EQ(count(L"Unlock"), 0) << "neither is held any more, " << recent();
}

TEST_F(XrefLock, AnythingElseInTheSetEndsTheCommandForAll) {
  for (const char* set : {"#1 Grid", "Grid #1", "Grid Plain Tree", "none"}) {
    step(std::string("@pick\n@select ") + set + "\nTessaro_lockxref\n");
    EXPECT_EQ(count(L"client: ") + count(L"box: "), 0) << recent();
  }
}

TEST_F(XrefLock, TheSameFileTwiceIsCheckedOutOnce) {
  run("@close\n@open %WORK%\\View\\Site\\Twins.dxf\n");
  step("@pick Grid Twin\nTessaro_lockxref\n");
  EXPECT_EQ(count(L"VaultFileLegacy.checkOut("), 1) << recent();
  EXPECT_EQ(count(L"xref: unloaded"), 1) << recent();
}

TEST_F(XrefLock, OutsideTheVaultAndHeldByOthersArePassedOver) {
  run("@vault checkout %WORK%\\View\\Xrefs\\Grid.dxf user eva computer OTHER folder D:\\View\n"
      "@pick Loose Grid Tree\nTessaro_lockxref\n");
  EXPECT_EQ(count(L"xref: unloaded Tree"), 1) << recent();
  EXPECT_EQ(count(L"xref: unloaded Grid") + count(L"xref: unloaded Loose"), 0) << recent();
  step("@pick Grid Loose\nTessaro_unlockxref\n");
  EXPECT_EQ(count(L"Unlock") + count(L"box: "), 0) << recent();
}

TEST_F(XrefLock, AFailedCheckOutIsToldAndTheNextXrefFollows) {
  run("@fail VaultFileLegacy.checkOut E_QVT_PERMISSION_DENIED\n@answer ok\n"
      "@pick Grid Tree\nTessaro_lockxref\n");
  expectOrder({L"xref: unloaded Grid", L"checkOut(", L"Error checking out file.\\n",
               L"xref: loaded Grid", L"xref: unloaded Tree", L"xref: loaded Tree"});
  step(
      "@fail VaultFileLegacy.isCheckedOutHere E_FAIL\n@answer ok\n@pick Tree\n"
      "Tessaro_unlockxref\n");
  EXPECT_EQ(count(L"text=\"Error checking in file.\\n"), 1) << recent();
}

TEST_F(XrefLock, ALoginThatFailsEndsTheCommandBeforeAnythingIsLetGo) {
  for (const char* command : {"Tessaro_lockxref", "Tessaro_unlockxref", "Tessaro_editxref"}) {
    step(std::string("@fail VaultClientLegacy.login E_QVT_LOGIN_FAILED\n@pick\n@select Grid\n") +
         command + "\n@fail clear\n");
    EXPECT_EQ(count(L" ended by an uncaught error 0x80040200"), 1) << recent();
    EXPECT_EQ(count(L"box: ") + count(L"xref: ") + count(L"fileFromPath("), 0) << recent();
  }
}

}  // namespace
