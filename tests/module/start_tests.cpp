// What the module does when Windows or the memory refuses something: at its start, and where the
// host or Windows calls it, outside of what reports failures of the client.
#include "core/Accounts.h"
#include "editor/Host.h"
#include "module/XrefSession.h"

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
  step("@fail module.CreateDialogParamW E_OUTOFMEMORY\n@answer ok\n@load\n");
  EXPECT_EQ(count(L"box: "), 1) << recent();
  EXPECT_FALSE(session.run("@window\n"));
  EXPECT_EQ(registrations(L"reactor"), 2);
  EXPECT_EQ(registrations(L"select-file callback"), 1);
  addSite();
  step(
      "@reg set EditWarning 0\n@open %WORK%\\View\\Site.dxf\n"
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
  addSite();
  run("@reg set EditWarning 0\n"
      "@fail module.CreatePopupMenu E_OUTOFMEMORY\n@fail module.CreatePopupMenu E_OUTOFMEMORY\n"
      "@load\n@open %WORK%\\View\\Site.dxf\n");
  step("@pick Part\n@menu\n");
  EXPECT_EQ(count(L"menu: \"Check out this Xref\""), 1) << recent();
  EXPECT_EQ(count(L"menu: \"1. <Created>\""), 1) << recent();
}

using OutOfMemory = XrefSession;

TEST_F(OutOfMemory, IsToldWhereNothingMayLeaveTheModule) {
  run("@reg set EditWarning 0\n@reg set Autolock 1\n");
  openSheet();
  for (const char* action :
       {"@pick Grid\n@menu\n", "@tick\n", "@click IDC_REFRESH\n",
        "@opendialog %WORK%\\View\\Plan.dxf\n", "@save %WORK%\\View\\Site\\Sheet.dxf\n"}) {
    step("@fail module.malloc E_OUTOFMEMORY\n@answer ok\n" + std::string(action) + "@fail clear\n");
    EXPECT_EQ(count(L"uncaught"), 0) << action << recent();
    EXPECT_EQ(count(informationBox(L"")), 1) << action << recent();
  }
  run("@activate %WORK%\\View\\Site\\Sheet.dxf\n@pick Grid\nTessaro_lockxref\n");
  EXPECT_TRUE(stored(L"Xrefs\\Grid.dxf").holder) << recent();
}

}  // namespace
