#include "shared/ModuleSession.h"

namespace {

class Fault : public ModuleSession {
 protected:
  void SetUp() override {
    run("@vault add %WORK%\\View\\Other.dxf from %WORK%\\small.dxf\n@load\n"
        "@reg set EditWarning 0\n");
  }
  /// Another drawing goes out and in as if nothing had been.
  void otherDrawingWorks() {
    const size_t versions = stored(L"Other.dxf").versions.size();
    run("@open %WORK%\\View\\Other.dxf\n@answer yes\nTessaro_lock\n");
    EXPECT_TRUE(stored(L"Other.dxf").holder) << recent();
    run("@edit\n@answer yes\n@answer ok\nTessaro_unlock\n");
    EXPECT_FALSE(stored(L"Other.dxf").holder) << recent();
    EXPECT_EQ(stored(L"Other.dxf").versions.size(), versions + 1);
  }
};

/// What happens between the command's steps to the drawing itself.
TEST_F(Fault, ADrawingThatVanishesInBetweenIsToldAndLosesNothing) {
  run("@open %WORK%\\View\\Plan.dxf\n");
  const auto plan = viewFolder() / L"Plan.dxf";
  std::filesystem::permissions(plan, std::filesystem::perms::all);
  std::filesystem::remove(plan);
  mark();
  // The check-out fetches the file anew, so that it is there again when the drawing is opened.
  run("@answer yes\nTessaro_lock\n");
  expectOrder({L"VaultFile.checkOut(", L"doc: opened <work>\\View\\Plan.dxf"});
  EXPECT_TRUE(std::filesystem::exists(plan));
  run("@close\n@vault undo %WORK%\\View\\Plan.dxf\n@open %WORK%\\View\\Plan.dxf\n");

  std::filesystem::permissions(plan, std::filesystem::perms::all);
  std::filesystem::remove(plan);
  step("@fail checkOut E_FAIL\n@answer yes\n@answer ok\nTessaro_lock\n");
  expectOrder({L"text=\"Error checking out file.", L"doc: destroyed",
               L"doc: refused: opening <work>\\View\\Plan.dxf: the file doesn't exist"});
  EXPECT_EQ(stored().versions.size(), 1u);
  otherDrawingWorks();
}

TEST_F(Fault, APathBeyondWhatWindowsTakesIsRefusedInPlainWords) {
  const std::string folder(120, 'f');
  const std::string path = "%WORK%\\View\\" + folder + "\\" + folder + "\\Plan.dxf";
  mark();
  EXPECT_FALSE(session.run("@vault add " + path + " from %WORK%\\small.dxf\n"));
  EXPECT_EQ(count(L"error: line 1: "), 1) << recent();
  mark();
  session.run("@open " + path + "\n");
  EXPECT_EQ(count(L"doc: refused: opening ") + count(L"error: "), 1) << recent();
  otherDrawingWorks();
}

}  // namespace
