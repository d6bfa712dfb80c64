#include <fstream>

#include "core/Text.h"
#include "shared/ModuleSession.h"

namespace {

/// The words and titles of boxes, as a person sees them.
class Words : public ModuleSession {
 protected:
  void writeLanguage(const std::string& lines) {
    const std::filesystem::path file = workFolder() / L"language.txt";
    std::ofstream(file, std::ios::binary) << lines;
    run("@client language " + wb::toUtf8(file.wstring()) + "\n");
  }
};

TEST_F(Words, TheTitleIsTheProductsNameAsTheRegistryHasItNow) {
  const std::string key = "\\Software\\Halvern\\Applications\\Quillstone Suite\\(default)\" ";
  const std::string machine = "@reg set \"HKLM" + key, user = "@reg set \"HKCU" + key;
  run("@load\n");
  const std::vector<std::pair<std::string, std::wstring>> steps = {
      {"", L"Tessaro"},
      {user + "Drawings of mine as text\n", L"Drawings of mine"},
      {machine + "Plant Drawings as text\n", L"Plant Drawings"},
  };
  for (const auto& [setting, title] : steps) {
    mark();
    run(setting + "@answer ok\nTessaro_lock\n");  // nothing is open
    EXPECT_EQ(count(L" title=\"" + title + L"\" text=\"This command"), 1) << recent();
  }
}

TEST_F(Words, PlaceholdersThatDoNotFitDoNoHarm) {
  run("@load\n@open %WORK%\\View\\Plan.dxf\n@reg set EditWarning 0\n");
  const std::vector<std::pair<std::string, std::wstring>> translations = {
      {"no name at all", L"no name at all"},
      {"twice: %s and %s", L"twice: Plan.dxf and %s"},
      {"%s: a number %d", L"Plan.dxf: a number %d"},
      {"100% of %s", L"100% of Plan.dxf"},
      {"%n%n%n%p %s", L"%n%n%n%p Plan.dxf"},
      {"%999999999s", L"%999999999s"},
      {"%s %", L"Plan.dxf %"},
      {"", L""},
  };
  for (const auto& [translation, shown] : translations) {
    writeLanguage("TessaroAcad;;62=" + translation + "\n");
    mark();
    run("@answer no\nTessaro_lock\n");
    EXPECT_EQ(count(L"flags=MB_YESNO|MB_ICONQUESTION title=\"Tessaro\" text=\"" + shown +
                    L"\" answer=no"),
              1)
        << recent();
    EXPECT_EQ(count(L"VaultFile.checkOut("), 0);
  }
}

}  // namespace
