// What the module does at its start when Windows or the memory refuses something.
#include "core/Accounts.h"
#include "editor/Host.h"
#include "shared/ModuleSession.h"

namespace {

class Start : public ModuleSession {
 protected:
  static bool hasCommand(const wchar_t* name) {
    return wb::Host::instance().commands().find(name) != nullptr;
  }
  int registrations(const std::wstring& kind) const {
    int found = 0;
    for (const wb::Outstanding& one : wb::outstanding(before)) found += one.kind == kind ? 1 : 0;
    return found;
  }

  const wb::Ticket before = wb::nextTicket();
};

TEST_F(Start, WithoutAStatusWindowEverythingElseWorks) {
  mark();
  run("@fail module.CreateDialogParamW E_OUTOFMEMORY\n@answer ok\n@load\n");
  EXPECT_EQ(count(L"box: "), 1) << recent();
  EXPECT_FALSE(session.run("@window\n"));
  EXPECT_EQ(registrations(L"reactor"), 2);
  EXPECT_EQ(registrations(L"select-file callback"), 1);
  writeDrawing(L"part.dxf");
  writeDrawing(L"site.dxf", {{L"Part", L"Part.dxf"}});
  mark();
  run("@reg set EditWarning 0\n@vault add %WORK%\\View\\Part.dxf from %WORK%\\part.dxf\n"
      "@vault add %WORK%\\View\\Site.dxf from %WORK%\\site.dxf\n@open %WORK%\\View\\Site.dxf\n"
      "Tessaro_getlatestxrefs\n@select Part\n@row 1\n@answer ok\nTessaro_getxrefversion\n"
      "@pick Part\n_Tessaro_getxrefver2 1 \n@fill IDC_INTERVAL 7\n@answer ok\nTessaro_settings\n");
  EXPECT_EQ(count(L"VaultQuery.execute("), 1) << recent();
  EXPECT_EQ(count(L"VaultFolderActions.getVersion("), 2) << recent();
  EXPECT_EQ(count(L"XrefMonitoringInterval=7"), 1) << recent();
  EXPECT_EQ(count(L"uncaught"), 0) << recent();
  run("@unload\n");
  EXPECT_EQ(wb::outstanding(before).size(), 0u);
}

TEST_F(Start, AStepThatFailsKeepsNoOtherFromBeingDone) {
  // The first allocations of the start are those of the objects that it makes.
  for (unsigned number = 0; number < 60; number += number < 3 ? 1 : 8) {
    run("@answer-any 1\n@fail module.malloc E_OUTOFMEMORY after " + std::to_string(number) +
        "\n@load\n@fail clear\n");
    EXPECT_GE(registrations(L"command"), 16) << number;
    EXPECT_EQ(registrations(L"select-file callback"), 1) << number;
    EXPECT_GE(registrations(L"reactor") + registrations(L"context menu"), 2) << number;
    run("@unload\n");
    EXPECT_EQ(wb::outstanding(before).size(), 0u) << number;
  }
}

TEST_F(Start, MenusThatCouldNotBeMadeAreMadeLater) {
  writeDrawing(L"part.dxf");
  writeDrawing(L"site.dxf", {{L"Part", L"Part.dxf"}});
  run("@reg set EditWarning 0\n@vault add %WORK%\\View\\Part.dxf from %WORK%\\part.dxf\n"
      "@vault add %WORK%\\View\\Site.dxf from %WORK%\\site.dxf\n"
      "@fail module.CreatePopupMenu E_OUTOFMEMORY\n@fail module.CreatePopupMenu E_OUTOFMEMORY\n"
      "@load\n@open %WORK%\\View\\Site.dxf\n");
  mark();
  run("@pick Part\n@menu\n");
  EXPECT_EQ(count(L"menu: \"Check out this Xref\""), 1) << recent();
  EXPECT_EQ(count(L"menu: \"1. <Created>\""), 1) << recent();
}

}  // namespace
