#include <windows.h>

#include "core/Text.h"
#include "module/XrefSession.h"

namespace {

class Properties : public OpenSheet {
 protected:
  /// Runs the command for a pick and gives the dialog's line of texts, empty without a dialog.
  std::wstring shownFor(const std::string& picked) {
    step("@pick " + picked + "\n@texts-next\n@answer ok\nTessaro_properties\n");
    for (const std::wstring& line : lines()) {
      if (line.find(L"- Properties\" texts") != std::wstring::npos) return line;
    }
    return {};
  }
};

TEST_F(Properties, AFileThatNobodyHolds) {
  EXPECT_EQ(shownFor("Grid"),
            L"dialog: \"Grid.dxf - Properties\" texts 1015=\"Location:\" "
            L"1008=\"<work>\\View\\Xrefs\\Grid.dxf\" 1016=\"Local version:\" 1009=\"1\" "
            L"1017=\"Latest version:\" 1011=\"3\" 1018=\"Checked out by:\" 1013=\"\" "
            L"1019=\"Checked out in:\" 1014=\"\" 1020=\"Workflow state:\" "
            L"1012=\"Work in progress\"");
}

TEST_F(Properties, AFileThatAnotherHolds) {
  run("@vault checkout %WORK%\\View\\Xrefs\\Grid.dxf user eva computer OTHER folder D:\\View\n");
  const std::wstring shown = shownFor("Grid");
  EXPECT_NE(shown.find(L" 1013=\"eva\" "), std::wstring::npos) << recent();
  EXPECT_NE(shown.find(L" 1014=\"<OTHER> D:\\View"), std::wstring::npos) << recent();
}

TEST_F(Properties, TheDrawingItselfIsShownWhereNoXrefIsPicked) {
  for (const char* picked : {"", "#1", "Plain", "Grid Tree"}) {
    EXPECT_EQ(shownFor(picked).rfind(L"dialog: \"Sheet.dxf - Properties\"", 0), 0u)
        << picked << recent();
    EXPECT_EQ(count(L"prompt: "), *picked ? 1 : 0) << picked << recent();
  }
}

TEST_F(Properties, OutsideTheVaultNothingIsShown) {
  run("@pick Loose\nTessaro_properties\n@new\nTessaro_properties\n");
  EXPECT_EQ(count(L"dialog: ") + count(L"box: "), 0) << recent();
}

TEST_F(Properties, AFileWithoutALocalCopyShowsADash) {
  run("@close\n");
  const std::filesystem::path grid = view / L"Xrefs" / L"Grid.dxf";
  SetFileAttributesW(grid.c_str(), FILE_ATTRIBUTE_NORMAL);
  ASSERT_TRUE(std::filesystem::remove(grid));
  run("@open %WORK%\\View\\Site\\Sheet.dxf\n");
  EXPECT_NE(shownFor("Grid").find(L" 1009=\"-\" 1017=\"Latest version:\" 1011=\"3\""),
            std::wstring::npos)
      << recent();
}

TEST_F(Properties, AFailureOfTheClientIsToldInPlaceOfTheDialog) {
  run("@fail VaultFile.currentState E_QVT_FILE_NOT_FOUND\n@answer ok\n@pick Grid\n"
      "Tessaro_properties\n");
  EXPECT_EQ(count(informationBox(L"The file could not be found.\"")), 1) << recent();
  EXPECT_EQ(count(L"dialog: "), 0) << recent();
}

}  // namespace
