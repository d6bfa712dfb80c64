#include "module/XrefSession.h"

namespace {

class XrefVersion : public OpenSheet {
 protected:
  bool secondIsHere() const {
    return bytesOf(view / L"Xrefs" / L"Grid.dxf") == bytesOf(workFolder() / L"src" / L"Second.dxf");
  }
};

TEST_F(XrefVersion, TheDialogShowsTheVersionsAndTheChosenOneComesIntoTheView) {
  run("@select Grid\n@texts-next\n@row 2\n@answer ok\nTessaro_getxrefversion\n");
  expectOrder({L"prompt: \"Select Xref: ",
               L"1010=\"Select version of Grid.dxf to get\" row1=\"3\",\"<No comment>\" "
               L"row2=\"2\",\"R&D 5%\" row3=\"1\",\"<Created>\"",
               L"row=2 answer=ok", L"isCheckedOutHere(", L"xref: unloaded Grid",
               L"ParseDisplayName(name=\"Grid.dxf\")",
               L"getVersion(reserved=0, item=\"Grid.dxf\", version=2) -> S_OK",
               L"xref: loaded Grid"});
  EXPECT_TRUE(secondIsHere());
  run("@window\n");
  EXPECT_EQ(count(L"1005=indeterminate"), 1) << recent();
  run("@pick Grid\n@activate-row 3\nTessaro_getxrefversion\n");
  EXPECT_FALSE(secondIsHere());
}

TEST_F(XrefVersion, CancelNoRowAndNoVersionsFetchNothing) {
  run("@pick Grid\n@row 2\n@answer cancel\nTessaro_getxrefversion\n"
      "@pick Grid\n@answer close\nTessaro_getxrefversion\n"
      "@pick Grid\n@answer ok\nTessaro_getxrefversion\n"
      "@pick Loose\n@texts-next\n@answer ok\nTessaro_getxrefversion\n"
      "@pick\n@select none\nTessaro_getxrefversion\n");
  EXPECT_EQ(count(L"xref: ") + count(L"getVersion(") + count(L"row1="), 0) << recent();
}

TEST_F(XrefVersion, WrongPicksAreToldAtTheCommandLine) {
  run("@select Plain\nTessaro_getxrefversion\n@pick #1\nTessaro_getxrefver2\n"
      "@pick Grid Tree\nTessaro_getxrefver2\n");
  EXPECT_EQ(count(L"prompt: \"Selected object must be a Xref."), 2) << recent();
  EXPECT_EQ(count(L"prompt: \"This command only works on one object."), 1) << recent();
  EXPECT_EQ(count(L"client: VaultClient"), 0) << recent();
  step("@pick\nTessaro_getxrefver2\n");
  EXPECT_EQ(count(L"prompt: "), 0) << "nothing is preselected: not a word";
}

TEST_F(XrefVersion, ANumberTypedBehindTheCommandIsFetchedAsItStands) {
  run("@pick Grid\n_Tessaro_getxrefver2 2 \n");
  EXPECT_TRUE(secondIsHere());
  step("@pick Grid\n_Tessaro_getxrefver2 7 \n");
  EXPECT_EQ(count(L"version=7) -> E_"), 1) << recent();
  EXPECT_EQ(count(L"xref: loaded"), 0) << "a failed version leaves it unloaded, " << recent();
  reopenSheet();
  run("@pick Grid\n_Tessaro_getxrefver2 -3 \n@pick Loose\n_Tessaro_getxrefver2 1 \n");
  expectOrder({L"version=-3) -> E_", L"prompt: \"Xref was not located in any filevault."});
}

TEST_F(XrefVersion, TheWholeTreeIsUnloadedBeforeAndLoadedAfter) {
  run("@vault newversion %WORK%\\View\\Xrefs\\Tree.dxf from %WORK%\\src\\Tree.dxf\n"
      "@pick Tree\n_Tessaro_getxrefver2 2 \n");
  // Parted by the host already: what is nested goes with what it is nested in.
  expectOrder({L"xref: unloaded Alpha", L"xref: unloaded Tree", L"getVersion(", L"xref: loaded"});
  EXPECT_EQ(count(L"getVersion("), 1) << recent();
  reopenSheet();
}

TEST_F(XrefVersion, AFileWithTwoBlocksIsFetchedForEitherOfThem) {
  run("@close\n@open %WORK%\\View\\Site\\Twins.dxf\n");
  step("@pick Grid\n_Tessaro_getxrefver2 2 \n");
  EXPECT_TRUE(secondIsHere()) << recent();
  run("@pick Twin\n_Tessaro_getxrefver2 1 \n");
  EXPECT_FALSE(secondIsHere()) << recent();
  // The other block keeps what was read for it.
  for (const wchar_t* name : {L"Grid", L"Twin"}) {
    EXPECT_EQ(count(std::wstring(L"xref: unloaded ") + name), 1) << recent();
    EXPECT_EQ(count(std::wstring(L"xref: loaded ") + name + L" "), 1) << recent();
  }
}

TEST_F(XrefVersion, AHeldXrefTakesTheVersionAllTheSame) {
  run("@vault checkout %WORK%\\View\\Xrefs\\Tree.dxf\n@pick Tree\n_Tessaro_getxrefver2 1 \n");
  EXPECT_EQ(count(L"getVersion("), 1) << recent();
}

TEST_F(XrefVersion, AVersionThatDoesNotComeLeavesTheTreeUnloaded) {
  run("@fail VaultFolderActions.getVersion E_FAIL\n@pick Tree\n_Tessaro_getxrefver2 1 \n");
  expectOrder({L"xref: unloaded Tree", L"getVersion(",
               L"Tessaro_getxrefver2 ended by an uncaught error 0x80004005"});
  EXPECT_EQ(count(L"xref: loaded"), 0) << recent();
  reopenSheet();
}

}  // namespace
