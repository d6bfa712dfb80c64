// A lack of memory where the host or Windows calls into the module, outside of what reports
// failures of the client.

#include "module/XrefSession.h"

namespace {

using OutOfMemory = XrefSession;

TEST_F(OutOfMemory, IsToldWhereNothingMayLeaveTheModule) {
  run("@reg set EditWarning 0\n@reg set Autolock 1\n");
  openSheet();
  for (const char* step :
       {"@pick Grid\n@menu\n", "@tick\n", "@click IDC_REFRESH\n",
        "@opendialog %WORK%\\View\\Plan.dxf\n", "@save %WORK%\\View\\Site\\Sheet.dxf\n"}) {
    mark();
    run("@fail module.malloc E_OUTOFMEMORY\n@answer ok\n" + std::string(step) + "@fail clear\n");
    EXPECT_EQ(count(L"uncaught"), 0) << step << recent();
    EXPECT_EQ(count(L"box: flags=MB_OK|MB_ICONINFORMATION title=\"Tessaro\" text=\""), 1)
        << step << recent();
  }
  run("@activate %WORK%\\View\\Site\\Sheet.dxf\n@pick Grid\nTessaro_lockxref\n");
  EXPECT_TRUE(stored(L"Xrefs\\Grid.dxf").holder) << recent();
}

}  // namespace
