// Every text of the module, as a user meets it: in the module's own English while the client has
// none to give, and in the client's language.

#include <windows.h>

#include <fstream>
#include <map>
#include <set>
#include <sstream>

#include "core/Text.h"
#include "module/StubbornKey.h"
#include "module/XrefSession.h"
#include "ui/resource.h"

namespace {

constexpr wchar_t open = L'\u00AB', close = L'\u00BB';

const std::string ownSection = "TessaroAcad;;";

std::map<int, std::wstring> textsIn(const fs::path& file) { return clientTexts(file, ownSection); }

/// A session in which each text is seen once.
class AllTexts : public XrefSession {
 public:
  explicit AllTexts(const std::string& before) {
    run(before + "@load\n");
    atTheStart();
    inXrefs();
    inTheDrawing();
    ofFailures();
  }
  /// The words that were shown, each with where they were.
  std::vector<std::wstring> seen() const {
    std::vector<std::wstring> texts;
    for (const wb::Transcript::Detail& detail : wb::Transcript::instance().details()) {
      for (const wchar_t* kind : {L"box: ", L"shown: ", L"menu: ", L"prompt: ", L"window: "}) {
        if (detail.line.rfind(kind, 0) == 0) texts.push_back(detail.line);
      }
    }
    return texts;
  }

 private:
  void TestBody() override {}

  void atTheStart() {
    for (const int control : {IDC_XREFS_LATEST, IDC_CHECKED_OUT_HERE, IDC_VERSION}) {
      wchar_t text[100] = L"";
      GetDlgItemTextW(statusWindow(), control, text, 100);
      wb::recordDetail(L"window", text);
    }
    run("@window\n@answer ok\nTessaro_lock\n@new\nTessaro_uninstall\nTessaro_install\n"
        "Tessaro_uninstall\n@answer cancel\nTessaro_settings\n@close\n");
    const StubbornKey applications(L"Software\\Workbench");
    run("@new\nTessaro_install\n@close\n");
  }
  void inXrefs() {
    const std::string sheet = "%WORK%\\View\\Site\\Sheet.dxf\n";
    const std::string tree = "%WORK%\\View\\Xrefs\\Tree.dxf";
    run("@open " + sheet +
        "@pick Grid\n@menu\n@pick Grid\nTessaro_lockxref\n@pick Grid\n@menu\n"
        "@pick\n@select Grid\n@answer cancel\nTessaro_getxrefversion\n"
        "@pick Grid\n@answer ok\nTessaro_properties\n"
        "@pick Plain\nTessaro_getxrefversion\n@pick Grid Tree\nTessaro_getxrefver2\n"
        "@pick Grid\n_Tessaro_getxrefver2 1 \n@pick\n"
        "@vault checkout " +
        tree +
        " user eva computer OTHER folder D:\\View\n"
        "@select Tree\nTessaro_editxref\n@vault undo " +
        tree +
        "\n"
        "@fail VaultFileLegacy.isCheckedOut E_FAIL\n@answer ok\n@select Tree\nTessaro_editxref\n"
        "@fail VaultFileLegacy.checkOut E_FAIL\n@answer ok\n@pick Tree\nTessaro_lockxref\n"
        "@fail VaultFileLegacy.isCheckedOutHere E_QVT_FILE_SHARE_ERROR\n@answer ok\n@pick Grid\n"
        "Tessaro_unlockxref\n@pick\n@select Tree\nTessaro_editxref\n@activate " +
        sheet +
        "@select Tree\nTessaro_editxref\n@fail VaultClientLegacy.login E_FAIL\n@answer ok\n"
        "Tessaro_update\n@client version 4 9\n@answer ok\nTessaro_update\n@client version 9 0\n"
        "@open %WORK%\\Loose.dxf\n@answer ok\nTessaro_update\n");
  }
  void inTheDrawing() {
    const std::string plan = "%WORK%\\View\\Plan.dxf\n";
    run("@reg set EditWarning 0\n@reg set Autolock 1\n@answer no\n@opendialog " + plan +
        "@answer no\nTessaro_lock\n@edit\n@answer no\nTessaro_lock\n@vault checkout " + plan +
        "@answer no\nTessaro_unlock\n@vault undo " + plan +
        "@reg set EditWarning 1\n@answer no\nTessaro_asklock\n@answer ok\n"
        "Tessaro_telllockedelsewhere\n@answer no\n@close\n");
  }
  void ofFailures() {
    const StubbornKey settings(L"Software\\Halvern");
    run("@answer ok\n@opendialog %WORK%\\View\\Plan.dxf\n");
    run("@client missing\n@answer ok\nTessaro_lock\n@client present\n");
  }
};

std::vector<std::wstring> seenAfter(const std::string& before) { return AllTexts(before).seen(); }

std::vector<std::wstring> seenIn(const std::wstring& language) {
  return seenAfter("@client language " + wb::toUtf8(language) + "\n");
}

/// Takes the numbers in their marks out of a line, and keeps them.
std::wstring withoutNumbers(const std::wstring& line, std::set<int>& numbers) {
  std::wstring text;
  for (size_t at = 0; at < line.size(); ++at) {
    if (line[at] != open) {
      text += line[at];
      continue;
    }
    const size_t end = line.find(close, at);
    numbers.insert(std::stoi(line.substr(at + 1, end - at - 1)));
    at = end;
  }
  return text;
}

// The client's English is what the module is meant to say. In a language that puts a text's number
// before it, the same words have to come under the right number wherever the user looks.
TEST(Texts, TheModulesOwnEnglishIsTheClientsEverywhere) {
  const auto english = textsIn(ModuleSession::workbenchFile(L"client/language-en.txt"));
  const auto numbered = std::filesystem::temp_directory_path() / L"numbered.txt";
  {
    std::ofstream file(numbered, std::ios::binary);
    for (const auto& [number, text] : english) {
      file << ownSection << number << '=' << wb::toUtf8(open + std::to_wstring(number) + close)
           << wb::toUtf8(text) << '\n';
    }
  }
  const auto own = seenAfter("@fail VaultTextService.text E_FAIL always\n");
  const auto clients = seenIn(numbered.wstring());
  std::set<int> numbers;
  ASSERT_EQ(own.size(), clients.size());
  for (size_t at = 0; at < own.size(); ++at) {
    EXPECT_EQ(wb::toUtf8(own[at]), wb::toUtf8(withoutNumbers(clients[at], numbers)));
  }
  for (const auto& [number, text] : english) {
    EXPECT_EQ(numbers.count(number), 1u) << number << " wasn't seen: " << wb::toUtf8(text);
  }
}

TEST(Texts, TheSecondLanguageIsSeenWhereverTheFirstOneIs) {
  const std::wstring file = ModuleSession::workbenchFile(L"client/language-de.txt");
  std::wstring seen;
  for (const std::wstring& line : seenIn(file)) seen += line + L"\n";
  for (const auto& [number, text] : textsIn(file)) {
    // As far as nothing is put in and nothing is written in another way.
    const std::wstring words = text.substr(0, text.find_first_of(L"%\\"));
    EXPECT_NE(seen.find(words), std::wstring::npos) << number << ": " << wb::toUtf8(words);
  }
}

using BoxTitle = ModuleSession;

TEST_F(BoxTitle, IsTheProductsNameAsTheRegistryHasItNow) {
  const std::string key = "\\Software\\Halvern\\Applications\\Quillstone Suite\\(default)\" ";
  const std::string machine = "@reg set \"HKLM" + key, user = "@reg set \"HKCU" + key;
  run("@load\n");
  const std::vector<std::pair<std::string, std::wstring>> steps = {
      {"", L"Tessaro"},
      {user + "Drawings of mine as text\n", L"Drawings of mine"},
      {machine + "Plant Drawings as text\n", L"Plant Drawings"},
  };
  for (const auto& [setting, title] : steps) {
    step(setting + "@answer ok\nTessaro_lock\n");  // nothing is open
    EXPECT_EQ(count(L" title=\"" + title + L"\" text=\"This command"), 1) << recent();
  }
}

}  // namespace
