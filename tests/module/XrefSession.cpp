#include "module/XrefSession.h"

#include "core/Text.h"

XrefSession::XrefSession() {
  const std::wstring loose = writeDrawing(L"Loose.dxf").wstring();
  writeDrawing(L"src/Second.dxf", {{L"Plain", L""}});
  writeDrawing(L"src/Tree.dxf", {{L"Zeta", L"Zeta.dxf"}, {L"Alpha", L"Alpha.dxf"}});
  writeDrawing(L"src/Alpha.dxf", {{L"Beta", L"Beta.dxf"}});
  writeDrawing(L"src/Sheet.dxf", {{L"Grid", L"..\\Xrefs\\Grid.dxf"},
                                  {L"Tree", L"..\\Xrefs\\Tree.dxf"},
                                  {L"Loose", loose},
                                  {L"Plain", L""}});
  writeDrawing(L"View/Site/Twins.dxf",
               {{L"Grid", L"..\\Xrefs\\Grid.dxf"}, {L"Twin", L"..\\XREFS\\GRID.DXF"}});
  run("@vault add %WORK%\\View\\Xrefs\\Grid.dxf from %WORK%\\small.dxf comment ignored\n"
      "@vault newversion %WORK%\\View\\Xrefs\\Grid.dxf from %WORK%\\src\\Second.dxf comment R&D "
      "5%\n"
      "@vault newversion %WORK%\\View\\Xrefs\\Grid.dxf from %WORK%\\small.dxf\n"
      "@vault add %WORK%\\View\\Xrefs\\Beta.dxf from %WORK%\\small.dxf\n"
      "@vault add %WORK%\\View\\Xrefs\\Zeta.dxf from %WORK%\\small.dxf\n"
      "@vault add %WORK%\\View\\Xrefs\\Alpha.dxf from %WORK%\\src\\Alpha.dxf\n"
      "@vault add %WORK%\\View\\Xrefs\\Tree.dxf from %WORK%\\src\\Tree.dxf\n"
      "@vault add %WORK%\\View\\Site\\Sheet.dxf from %WORK%\\src\\Sheet.dxf\n"
      "@vault checkout %WORK%\\View\\Site\\Sheet.dxf\n");
}

void XrefSession::openSheet() {
  run("@load\n@open %WORK%\\View\\Site\\Sheet.dxf\n");
  mark();
}

void XrefSession::reopenSheet() {
  run("@save %WORK%\\View\\Site\\Sheet.dxf\n@close %WORK%\\View\\Site\\Sheet.dxf\n");
  step("@open %WORK%\\View\\Site\\Sheet.dxf\n");
  for (const wchar_t* name : {L"Grid", L"Tree", L"Loose", L"Alpha", L"Beta", L"Zeta"}) {
    EXPECT_EQ(count(std::wstring(L"xref: loaded ") + name + L" "), 1) << recent();
  }
}

std::vector<std::string> XrefSession::undoOfGrid() {
  const std::string sheet = "%WORK%\\View\\Site\\Sheet.dxf\n";
  return {"@save " + sheet + "@close " + sheet, "@vault undo %WORK%\\View\\Xrefs\\Grid.dxf\n",
          "@open " + sheet};
}
