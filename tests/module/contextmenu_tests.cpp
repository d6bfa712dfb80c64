#include "core/Text.h"
#include "module/XrefSession.h"

namespace {

class ContextMenu : public OpenSheet {
 protected:
  using Lines = std::vector<std::wstring>;

  /// The entries for a right-click on these.
  Lines menuOn(const std::string& picked) {
    step("@pick " + picked + "\n@menu\n");
    Lines menu;
    for (const std::wstring& line : lines()) {
      if (line.rfind(L"menu: ", 0) == 0) menu.push_back(line.substr(6));
    }
    return menu;
  }
  const Lines none{L"no entries"};
  const Lines checkIn{L"\"Check in this Xref\" id=2"};
  const Lines checkOut{L"\"Check out this Xref\" id=1"};
};

TEST_F(ContextMenu, OneXrefHasItsVersionsNewestFirst) {
  Lines expected{L"\"Check out this Xref\" id=1",
                 L"\"Edit this Xref\" id=3",
                 L"\"Get Version\" submenu",
                 L"\"3. <No comment>\" id=13 in \"Get Version\"",
                 L"\"2. R&D 5%\" id=12 in \"Get Version\"",
                 L"\"1. <Created>\" id=11 in \"Get Version\"",
                 L"\"Tessaro Properties...\" id=4"};
  EXPECT_EQ(menuOn("Grid"), expected);
  EXPECT_EQ(menuOn("Grid"), expected) << "the menu is made anew each time";
  run("@pick Grid\nTessaro_lockxref\n");
  expected[0] = checkIn[0];
  EXPECT_EQ(menuOn("Grid"), expected);
  for (const std::string& line : undoOfGrid()) run(line);
  run("@vault checkout %WORK%\\View\\Xrefs\\Grid.dxf user eva computer OTHER folder D:\\View\n");
  expected[0] = checkIn[0] + L" grayed";
  EXPECT_EQ(menuOn("Grid"), expected);
  EXPECT_FALSE(session.run("@pick Grid\n@menu\n@choose Check in this Xref\n"));
  EXPECT_TRUE(session.reported(L"the menu's item is grayed: Check in this Xref"));
}

TEST_F(ContextMenu, EveryXrefOfASetHasAVetoAndAnythingElseEndsIt) {
  EXPECT_EQ(menuOn("Loose"), none);
  EXPECT_EQ(menuOn("Plain"), none);
  EXPECT_EQ(menuOn("Plain Grid"), none);
  EXPECT_EQ(menuOn("Grid Plain"), none);
  EXPECT_EQ(menuOn("#1 Grid"), none);
  EXPECT_EQ(menuOn("Grid Tree"), checkOut);
  EXPECT_EQ(menuOn("Grid Loose Tree"), none);
  EXPECT_EQ(menuOn("Loose Tree"), none);
  run("@pick Grid\nTessaro_lockxref\n");
  EXPECT_EQ(menuOn("Grid Tree"), none);
  EXPECT_EQ(menuOn("Tree Grid"), none);
  EXPECT_EQ(menuOn("Grid Loose"), none);
  run("@vault checkout %WORK%\\View\\Xrefs\\Tree.dxf user eva computer OTHER folder D:\\View\n");
  EXPECT_EQ(menuOn("Grid Tree"), Lines{checkIn[0] + L" grayed"});
  EXPECT_EQ(menuOn("Tree Grid"), Lines{checkIn[0] + L" grayed"});
  run("@open %WORK%\\View\\Site\\Twins.dxf\n");
  EXPECT_EQ(menuOn("Grid Twin"), checkIn);
}

TEST_F(ContextMenu, CommentsAreShownAsTheyAreOnOneLine) {
  const std::string longText(500, 'x');
  const std::string add = "@vault newversion %WORK%\\View\\Xrefs\\Zeta.dxf from %WORK%\\small.dxf";
  run(add + " comment 100%s && \"R&D\" &\n" + add + " comment one\ttwo\n" + add + " comment " +
      longText + "\n");
  writeDrawing(L"View/Site/Other.dxf", {{L"Zeta", L"..\\Xrefs\\Zeta.dxf"}});
  run("@open %WORK%\\View\\Site\\Other.dxf\n");
  const Lines menu = menuOn("Zeta");
  ASSERT_EQ(menu.size(), 8u);
  EXPECT_EQ(menu[3], L"\"4. " + wb::fromUtf8(longText) + L"\" id=14 in \"Get Version\"");
  EXPECT_EQ(menu[4], L"\"3. one two\" id=13 in \"Get Version\"");
  EXPECT_EQ(menu[5], L"\"2. 100%s && \\\"R&D\\\" &\" id=12 in \"Get Version\"");
}

TEST_F(ContextMenu, AChosenItemSendsItsCommandForTheSelectionThatIsStillThere) {
  run("@pick Grid\n@menu shot %WORK%\\menu.png open Get Version\n"
      "@choose Get Version > 2. R&D 5%\n");
  expectOrder({L"file: picture \"<work>\\menu.png\"", L"send: \"_Tessaro_getxrefver2 2 \"",
               L"command: Tessaro_getxrefver2", L"version=2) -> S_OK"});
  step("@pick Grid Tree\n@menu\n@choose Check out this Xref\n");
  expectOrder({L"send: \"_Tessaro_lockxref \"", L"xref: unloaded Grid", L"xref: unloaded Tree"});
  run("@pick Grid Tree\n@menu\n@answer cancel\n@answer cancel\n@choose Check in this Xref\n");
  EXPECT_EQ(count(L"send: \"_Tessaro_unlockxref \""), 1) << recent();
  run("@pick Tree\n@menu\n@answer ok\n@choose Tessaro Properties...\n");
  EXPECT_EQ(count(L"send: \"_Tessaro_properties \""), 1) << recent();
  run("@pick Tree\n@menu\n@choose Edit this Xref\n");
  expectOrder({L"send: \"_Tessaro_editxref \"", L"xref: unloaded Tree", L"doc: opened "});
}

struct WrongChoice {
  const char* script;
  const wchar_t* told;
};

TEST_F(ContextMenu, AScriptCanOnlyChooseWhatIsThere) {
  const WrongChoice wrong[] = {
      {"@pick\n@menu\n", L"nothing is picked"},
      {"@pick Nobody\n", L"nothing more of that name on Model: Nobody"},
      {"@pick Grid\n@choose Edit this Xref\n", L"no menu is open on the pick set"},
      {"@pick Grid\n@menu shot %WORK%\\menu.png open Edit this Xref\n",
       L"the menu has no submenu \"Edit this Xref\""},
      {"@pick Grid\n@menu\n@choose Edit\n", L"the menu has no item \"Edit\""},
      {"@pick Grid\n@menu\n@choose Get Version\n", L"that opens a submenu"},
      {"@pick Grid\n@menu\n@pick Tree\n@choose Edit this Xref\n", L"no menu is open"},
      {"@select Grid\n", L"nothing asked for the answer: select Grid"},
  };
  for (const WrongChoice& one : wrong) {
    mark();
    EXPECT_FALSE(session.run(one.script)) << one.script;
    EXPECT_EQ(count(one.told), 1) << one.script << recent();
  }
}

TEST_F(ContextMenu, AFailureOfTheClientIsToldAndLeavesNoEntries) {
  run("@fail VaultFileLegacy.isCheckedOut E_QVT_PERMISSION_DENIED\n@answer ok\n@pick "
      "Grid\n@menu\n");
  expectOrder({informationBox(L"You don't have permission to perform this action.\""),
               L"menu: no entries"});
  EXPECT_EQ(count(L"uncaught"), 0) << recent();
}

}  // namespace
