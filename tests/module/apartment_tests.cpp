// How deep the module is in COM when it asks the client: a level of its own in a command, in a step
// of the status window and in the right-click menu, none in the host's events.

#include "core/Text.h"
#include "module/XrefSession.h"
#include "watch/ImportWatch.h"

namespace {

class Apartments : public XrefSession {
 protected:
  // The menu has left its level when it asks for its texts.
  static bool asksTheVault(const std::wstring& line) {
    return line.rfind(L"client: ", 0) == 0 && line.find(L"VaultTextService") == std::wstring::npos;
  }
  void expectLevel(int level, const std::string& script) {
    step(script);
    int calls = 0;
    for (const wb::Transcript::Detail& detail : details()) {
      if (!asksTheVault(detail.line)) continue;
      ++calls;
      EXPECT_EQ(detail.apartments, before + level) << script << wb::toUtf8(detail.line);
    }
    EXPECT_GT(calls, 0) << script << "asked nothing";
  }

  // A command that an error has ended keeps its level for the life of the session.
  const int before = wb::apartmentBalance();
};

TEST_F(Apartments, AreOfTheCommandTheWindowAndTheMenuAlone) {
  run("@reg set EditWarning 0\n@reg set Autolock 1\n");
  openSheet();
  expectLevel(1, "@pick Grid\n@menu\n");
  expectLevel(1, "@pick Grid\nTessaro_lockxref\n");
  for (const char* action : {"@tick\n", "@click IDC_XREFS_LATEST\n", "@click IDC_REFRESH\n"}) {
    expectLevel(1, action);
  }
  expectLevel(0, "@save %WORK%\\View\\Site\\Sheet.dxf\n");
  expectLevel(0, "@answer no\n@opendialog %WORK%\\View\\Plan.dxf\n");
  run("@reg set EditWarning 1\n");
  step("@answer no\n@edit\n");
  int guarding = 0;
  for (const wb::Transcript::Detail& detail : details()) {
    if (detail.line.rfind(L"sent: ", 0) == 0) break;
    if (!asksTheVault(detail.line)) continue;
    ++guarding;
    EXPECT_EQ(detail.apartments, before) << wb::toUtf8(detail.line);
  }
  EXPECT_GT(guarding, 0);
}

}  // namespace
