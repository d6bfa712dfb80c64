#include <windows.h>

#include "core/Text.h"
#include "editor/Host.h"
#include "module/XrefSession.h"

namespace {

class EditXref : public OpenSheet {
 protected:
  void edit(const char* name) {
    run(std::string("@pick\n@select ") + name + "\nTessaro_editxref\n");
  }
  /// The path in capitals, as the edit window bears it.
  static std::string upper(std::wstring path) {
    CharUpperW(path.data());
    return wb::toUtf8(path);
  }
  std::string windowOf(const wchar_t* file) const { return upper(view / L"Xrefs" / file); }
  std::string sheet() const { return wb::toUtf8((view / L"Site" / L"Sheet.dxf").wstring()); }
  void backToSheet() { step("@activate " + sheet() + "\n"); }
};

TEST_F(EditXref, AFreeFileIsLetGoCheckedOutAndOpenedInItsOwnWindow) {
  edit("Grid");
  expectOrder({L"prompt: \"Select Xref: ", L"isCheckedOut() -> S_OK = false",
               L"xref: unloaded Grid", L"VaultFileLegacy.checkOut(",
               L"doc: opened <work>\\VIEW\\XREFS\\GRID.DXF"});
  EXPECT_EQ(count(L"read-only"), 0) << recent();
  backToSheet();
  EXPECT_EQ(count(L"xref: loaded"), 0) << "its window is still open";
  run("@activate " + windowOf(L"Grid.dxf") + "\n@close " + windowOf(L"Grid.dxf") + "\n");
  EXPECT_EQ(count(L"xref: loaded Grid"), 1) << "the sheet came to the top again, " << recent();
  run("@open %WORK%\\View\\Plan.dxf\n");
  backToSheet();
  EXPECT_EQ(count(L"xref: loaded"), 0) << "once is enough";
}

TEST_F(EditXref, AFileHeldHereOrOutsideTheVaultIsOpenedAsItIs) {
  run("@vault checkout %WORK%\\View\\Xrefs\\Tree.dxf\n");
  edit("Tree");
  backToSheet();
  edit("Loose");
  EXPECT_EQ(count(L"checkOut("), 0) << recent();
  expectOrder({L"xref: unloaded Loose", L"doc: opened "});
}

TEST_F(EditXref, AFileThatIsOpenForWritingOrHeldElsewhereIsRefused) {
  edit("Grid");
  backToSheet();
  mark();
  edit("Grid");
  run("@open %WORK%\\View\\Site\\Twins.dxf\n");
  edit("Twin");
  EXPECT_EQ(count(L"prompt: \"An instance of this Xref is already open for editing."), 2);
  EXPECT_EQ(count(L"xref: unloaded"), 0) << recent();
  backToSheet();
  run("@vault checkout %WORK%\\View\\Xrefs\\Tree.dxf user eva computer OTHER folder D:\\View\n");
  mark();
  edit("Tree");
  EXPECT_EQ(count(L"prompt: \"Cannot edit Xref. File is checked out elsewhere."), 1) << recent();
  EXPECT_EQ(count(L"xref: unloaded"), 0) << recent();
}

TEST_F(EditXref, AReadOnlyWindowOnTheFileDoesNotCount) {
  run("@open %WORK%\\View\\Xrefs\\Grid.dxf readonly\n");
  backToSheet();
  edit("Grid");
  EXPECT_EQ(count(L"already open"), 0) << recent();
  expectOrder({L"xref: unloaded Grid", L"checkOut("});
}

TEST_F(EditXref, OfTwoEditedXrefsTheOneWhoseWindowHasGoneIsLoadedAgain) {
  edit("Grid");
  backToSheet();
  edit("Loose");
  run("@open %WORK%\\View\\Plan.dxf\n");
  step("@close " + upper(workFolder() / L"Loose.dxf") + "\n");
  EXPECT_EQ(count(L"xref: loaded"), 0) << "another drawing is on top, " << recent();
  backToSheet();
  EXPECT_EQ(count(L"xref: loaded Loose"), 1) << recent();
  EXPECT_EQ(count(L"xref: loaded Grid"), 0) << recent();
  run("@close " + windowOf(L"Grid.dxf") + "\n@activate %WORK%\\View\\Plan.dxf\n");
  backToSheet();
  EXPECT_EQ(count(L"xref: loaded Grid"), 1) << recent();
  EXPECT_EQ(count(L"xref: loaded Loose"), 0) << recent();
}

TEST_F(EditXref, AParentThatIsClosedMeanwhileIsForgotten) {
  edit("Grid");
  run("@save " + sheet() + "\n@close " + sheet() + "\n");
  step("@close " + windowOf(L"Grid.dxf") + "\n@open %WORK%\\View\\Plan.dxf\n");
  EXPECT_EQ(count(L"xref: "), 0) << recent();
  run("@open " + sheet() + "\n");
  EXPECT_EQ(count(L"xref: loaded Grid"), 1) << recent();
}

TEST_F(EditXref, AReloadThatWaitedForAClosedParentIsNotThatOfAnotherAtItsAddress) {
  wb::Host::instance().documents().reuseAddresses();
  edit("Grid");
  run("@save " + sheet() + "\n@close " + sheet() + "\n@open " + sheet() + "\n");
  step("@close " + windowOf(L"Grid.dxf") + "\n");
  EXPECT_EQ(count(L"xref: loaded"), 0) << recent();
}

TEST_F(EditXref, AFailedCheckOutIsToldAndTheFileOpensWithoutIt) {
  run("@fail VaultFileLegacy.checkOut E_QVT_PERMISSION_DENIED\n@answer ok\n@select Grid\n"
      "Tessaro_editxref\n");
  expectOrder({L"xref: unloaded Grid", L"Error checking out file.\\n", L"doc: opened "});
  EXPECT_EQ(count(L"read-only"), 1) << recent();
  run("@activate " + sheet() + "\n");
}

TEST_F(EditXref, AFileThatCantBeOpenedIsTriedAgainWithTheNextActivation) {
  writeDrawing(L"Outside.dxf", {{L"Gone", L"Gone.dxf"}});
  run("@open %WORK%\\Outside.dxf\n");
  session.run("@select Gone\nTessaro_editxref\n");
  run("@open %WORK%\\View\\Plan.dxf\n");
  step("@activate %WORK%\\Outside.dxf\n");
  EXPECT_EQ(count(L"xref: unresolved Gone"), 1) << recent();
}

}  // namespace
