#include "editor/Host.h"
#include "shared/ModuleSession.h"

namespace {

const std::string plan = "%WORK%\\View\\Plan.dxf";

/// A drawing that is opened after another one was closed lies at the same address: nothing of what
/// the module remembered of the old one may be left.
class ReopenedDrawing : public ModuleSession {
 protected:
  void SetUp() override { wb::Host::instance().documents().reuseAddresses(); }

  static const AcApDocument* top() { return wb::Host::instance().documents().active(); }

  /// Closes the drawing on top, answers first, and opens the other one in its place.
  void replaceBy(const std::string& path, const std::string& answers = "") {
    const AcApDocument* const before = top();
    run(answers + "@close\n");
    mark();
    run("@open " + path + "\n");
    ASSERT_EQ(top(), before);
  }
};

TEST_F(ReopenedDrawing, IsWarnedOfAgain) {
  run("@reg set StatusWnd 0\n@load\n@open " + plan + "\n@answer no\n@edit\n");
  EXPECT_EQ(count(L"send: \"_Tessaro_asklock \""), 1) << recent();
  replaceBy(plan, "@answer no\n");
  run("@answer no\n@edit\n");
  EXPECT_EQ(count(L"send: \"_Tessaro_asklock \""), 1) << recent();
}

TEST_F(ReopenedDrawing, IsNewToTheStatusWindow) {
  run("@vault add %WORK%\\View\\Other.dxf from %WORK%\\small.dxf\n@load\n@open " + plan + "\n");
  replaceBy("%WORK%\\View\\Other.dxf");
  EXPECT_GT(count(L"VaultClient.login"), 0) << recent();
}

}  // namespace
