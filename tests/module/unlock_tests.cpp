#include <windows.h>

#include "database/Drawing.h"
#include "dialogs/Answers.h"
#include "editor/Host.h"
#include "shared/ModuleSession.h"

namespace {

const std::wstring plan = L"<work>\\View\\Plan.dxf";
const std::wstring question = questionBox(
    L"This will save  your changes to the file 'Plan.dxf' and close it before checking in. Are you "
    L"sure you want to continue?\" answer=");
const std::wstring mismatch =
    informationBox(L"File name mismatch when checking in document. Aborting.\" answer=ok");

class Unlock : public ModuleSession {
 protected:
  void openHeldPlan(const std::string& holder = "") {
    run("@vault checkout %WORK%\\View\\Plan.dxf" + holder + "\n@reg set EditWarning 0\n");
    openPlan();
  }
  /// A save of Plan.dxf fails from here on, as when somebody protects the file meanwhile.
  static void protectFile(bool on) {
    ASSERT_TRUE(SetFileAttributesW((viewFolder() / L"Plan.dxf").c_str(),
                                   on ? FILE_ATTRIBUTE_READONLY : FILE_ATTRIBUTE_NORMAL));
  }
};

TEST_F(Unlock, UnchangedIsClosedAndHandedInWithoutSaving) {
  openHeldPlan();
  run("@answer yes\n@fill 1201 Nothing new\n@answer ok\nTessaro_unlock\n");
  expectOrder({L"command: Tessaro_unlock", L"isCheckedOut() -> S_OK = true",
               L"VaultObject.name() -> S_OK = \"Plan.dxf\"", question + L"yes",
               L"doc: to be destroyed " + plan, L"doc: destroyed " + plan, L"VaultClient.login(",
               L"VaultClient.fileFromPath(", L"VaultObject.name()",
               L"dialog: \"Dialog\" (no controls)", L"IShellFolder.ParseDisplayName(",
               L"IShellFolder.GetUIObjectOf(", L"dialog: \"Check in Plan.dxf\"",
               L"IContextMenu.InvokeCommand(verb=\"Unlock\", file=\"Plan.dxf\") -> S_OK"});
  EXPECT_EQ(count(L"QSAVE") + count(L"doc: saved") + count(L"send: ") + count(L"doc: opened"), 0)
      << recent();
  EXPECT_EQ(count(L"box: "), 1) << recent();
  EXPECT_FALSE(stored().holder);
  EXPECT_EQ(stored().versions.size(), 2u);
}

TEST_F(Unlock, ChangedIsSavedFirstAndTheVaultHasTheNewVersion) {
  openHeldPlan();
  wb::Drawing& drawing = *wb::Host::instance().documents().active()->drawing();
  ASSERT_TRUE(drawing.erase(drawing.entities(L"#1").at(0)));
  step(
      "@answer yes\n@fill 1201 Walls moved\n@answer ok\nTessaro_unlock\n@vault show "
      "%WORK%\\View\\Plan.dxf\n");
  expectOrder({question + L"yes", L"command: QSAVE", L"doc: saved " + plan,
               L"doc: destroyed " + plan, L"InvokeCommand(verb=\"Unlock\"",
               L"file: version 2 by engineer: Walls moved", L"file: not checked out"});
  EXPECT_EQ(count(L"QSAVE"), 1) << recent();
  expectDetails({L"argument: \"_QSAVE\" of 8 bits"});
  // The second version is the drawing without its line, the first stays what it was.
  run("@vault fetch %WORK%\\View\\Plan.dxf 1\n");
  EXPECT_EQ(file_size(viewFolder() / L"Plan.dxf"), file_size(workFolder() / L"small.dxf"));
  run("@vault fetch %WORK%\\View\\Plan.dxf 2\n");
  EXPECT_LT(file_size(viewFolder() / L"Plan.dxf"), file_size(workFolder() / L"small.dxf"));
}

TEST_F(Unlock, RefusedLeavesEverythingAsItIs) {
  openHeldPlan();
  run("@edit\n");
  step("@answer no\nTessaro_unlock\n");
  EXPECT_EQ(count(question + L"no"), 1) << recent();
  EXPECT_EQ(count(L"QSAVE") + count(L"doc: "), 0) << recent();
  EXPECT_TRUE(stored().holder);
  // No note was left: the closing that follows starts no check-in.
  run("@answer no\n@close\n");
  EXPECT_EQ(count(L"InvokeCommand") + count(L"mismatch"), 0) << recent();
  EXPECT_TRUE(stored().holder) << "closed by other means, and still checked out";
}

TEST_F(Unlock, NothingToCheckInIsNoOccasionForAQuestion) {
  writeDrawing(L"View\\Unknown.dxf");
  run("@load\n@reg set EditWarning 0\n");
  for (const char* before : {
           "@open %WORK%\\View\\Plan.dxf\n",
           "@open %WORK%\\small.dxf\n",
           "@open %WORK%\\View\\Unknown.dxf\n",
           "@vault offline on\n@open %WORK%\\View\\Plan.dxf\n",
           "@vault offline off\n@open %WORK%\\View\\Plan.dxf\n@fail login E_FAIL\n",
       }) {
    run(before);
    step("Tessaro_unlock\n");
    EXPECT_EQ(count(L"box: ") + count(L"doc: ") + count(L"VaultTextService"), 0) << recent();
    run("@fail clear\n@close\n");
    EXPECT_EQ(count(L"InvokeCommand"), 0) << recent();
  }
  // The command needs a document, so the host itself refuses it without one.
  step("Tessaro_unlock\n");
  EXPECT_EQ(count(L"Tessaro_unlock refused: no drawing is open"), 1) << recent();
}

// Who holds it is the vault's own business: its verb refuses, with words of its own.
TEST_F(Unlock, HeldElsewhereGoesOnToTheVaultsVerb) {
  openHeldPlan(" user eve computer PC7");
  run("@answer yes\n@answer ok\nTessaro_unlock\n");
  expectOrder(
      {question + L"yes", L"doc: destroyed " + plan, L"dialog: \"Dialog\" (no controls)",
       L"box: title=\"Check in Plan.dxf\" text=\"The file in question is checked out by "
       L"another user.\"",
       L"InvokeCommand(verb=\"Unlock\", file=\"Plan.dxf\") -> E_QVT_LOCKED_BY_ANOTHER_USER"});
  EXPECT_EQ(count(L"VaultFile.checkIn("), 0) << recent();
  EXPECT_EQ(stored().holder.value_or(wb::Holder{}).user, L"eve");
  EXPECT_EQ(stored().versions.size(), 1u);
}

TEST_F(Unlock, TheOutcomeOfTheVerbIsTheVaultsAlone) {
  openHeldPlan();
  run("@answer yes\n@answer cancel\nTessaro_unlock\n");
  expectOrder({L"doc: destroyed " + plan, L"dialog: \"Check in Plan.dxf\"",
               L"InvokeCommand(verb=\"Unlock\", file=\"Plan.dxf\") -> E_QVT_CANCELLED_BY_USER"});
  EXPECT_EQ(count(L"box: "), 1) << recent();
  EXPECT_EQ(count(L"doc: opened"), 0) << recent();
  EXPECT_TRUE(stored().holder);

  for (const char* fault :
       {"IContextMenu.InvokeCommand E_FAIL", "IShellFolder.ParseDisplayName E_FAIL",
        "IShellFolder.GetUIObjectOf E_FAIL", "VaultClient.fileFromPath E_FAIL after 1",
        "VaultClient.login E_FAIL after 1"}) {
    // The status window opens the file as well, so that the faults come only once it is closed.
    step("@reg set StatusWnd 0\n@open %WORK%\\View\\Plan.dxf\n@fail " + std::string(fault) +
         "\n@answer yes\nTessaro_unlock\n@fail clear\n");
    EXPECT_EQ(count(L"E_FAIL"), 1) << recent();
    EXPECT_EQ(count(L"box: "), 1) << recent();
    EXPECT_EQ(count(L"VaultFile.checkIn(") + count(L"uncaught"), 0) << recent();
    EXPECT_TRUE(stored().holder);
  }
  // What is typed there is the vault's, and the file may stay checked out.
  wb::Answers::instance().queue(L"yes");
  wb::Answers::instance().queue(
      L"ok", {wb::fillControl(1201, L"line one\r\nline two"), wb::checkControl(1202, true)});
  run("@open %WORK%\\View\\Plan.dxf\nTessaro_unlock\n");
  EXPECT_EQ(count(L"1201=\"line one\\r\\nline two\" 1202=on answer=ok"), 1) << recent();
  EXPECT_TRUE(stored().holder);
  EXPECT_EQ(stored().latest().comment, L"line one\nline two");
  step("@open %WORK%\\View\\Plan.dxf\n@answer yes\n@answer ok\nTessaro_unlock\n");
  EXPECT_FALSE(stored().holder) << recent();
  EXPECT_EQ(stored().latest().number, 3);
}

TEST_F(Unlock, ANoteThatIsLeftIsConsumedByTheNextDrawingToGo) {
  openHeldPlan();
  run("@open %WORK%\\small.dxf\n@activate %WORK%\\View\\Plan.dxf\n@edit\n");
  protectFile(true);
  mark();
  // The save fails, so that the host asks at the closing, and the user keeps the drawing.
  run("@answer yes\n@answer cancel\nTessaro_unlock\n");
  expectOrder({question + L"yes", L"command: QSAVE", L"was not saved",
               L"text=\"Save changes to " + plan, L"doc: refused: closing " + plan});
  EXPECT_EQ(count(L"doc: saved") + count(L"destroyed"), 0) << recent();

  step("@answer ok\n@close %WORK%\\small.dxf\n");
  expectOrder({L"doc: destroyed <work>\\small.dxf", mismatch});
  EXPECT_EQ(count(L"InvokeCommand"), 0) << recent();

  // The note is gone: neither another drawing nor this one starts anything.
  mark();
  protectFile(false);
  run("@open %WORK%\\small.dxf\n@close\n@answer no\n@close %WORK%\\View\\Plan.dxf\n");
  EXPECT_EQ(count(mismatch) + count(L"InvokeCommand"), 0) << recent();
  EXPECT_TRUE(stored().holder);
}

TEST_F(Unlock, ALaterClosingOfTheDrawingGoesOnWithTheCheckIn) {
  openHeldPlan();
  run("@edit\n");
  protectFile(true);
  run("@answer yes\n@answer cancel\nTessaro_unlock\n");
  protectFile(false);
  mark();
  // Saved under the same name in another case, which is the same file.
  wb::Host::queuePick((viewFolder() / L"PLAN.DXF").wstring());
  run("SAVEAS\n@answer ok\n@close\n");
  expectOrder({L"doc: destroyed <work>\\View\\PLAN.DXF", L"InvokeCommand("});
  EXPECT_EQ(count(mismatch), 0) << recent();
  EXPECT_FALSE(stored().holder);
}

TEST_F(Unlock, AFailureAheadOfTheQuestionLeavesNoNote) {
  openHeldPlan();
  for (const char* operation : {"VaultFile.isCheckedOut", "VaultObject.name"}) {
    step(std::string("@fail ") + operation + " E_FAIL\nTessaro_unlock\n@fail clear\n");
    EXPECT_EQ(count(L"Tessaro_unlock ended by an uncaught error 0x80004005"), 1) << recent();
    EXPECT_EQ(count(L"box: ") + count(L"doc: "), 0) << recent();
  }
  run("@close\n");
  EXPECT_EQ(count(L"InvokeCommand("), 0) << recent();
}

}  // namespace
