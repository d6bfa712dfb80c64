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
const std::string codeSection = "QvtInterface;ErrorCodes;";

/// The numbered texts of a section in a language file of the client.
std::map<int, std::wstring> textsIn(const std::wstring& file,
                                    const std::string& section = ownSection) {
  std::map<int, std::wstring> texts;
  std::ifstream stream(std::filesystem::path(file), std::ios::binary);
  for (std::string line; std::getline(stream, line);) {
    if (line.rfind(section, 0) != 0) continue;
    const size_t equals = line.find('=');
    texts[std::stoi(line.substr(section.size()))] = wb::fromUtf8(line.substr(equals + 1));
  }
  return texts;
}

/// Result codes by the number of their text.
const std::map<int, std::string> codes = {
    {2, "0x80040200"},  {3, "0x80040201"},   {5, "0x80040203"},   {6, "0x80040204"},
    {8, "0x80040206"},  {10, "0x80040208"},  {11, "0x80040209"},  {12, "0x8004020A"},
    {13, "0x8004020B"}, {17, "0x8004020F"},  {18, "0x80040210"},  {19, "0x80040211"},
    {20, "0x80040212"}, {21, "0x80040213"},  {22, "0x80040214"},  {23, "0x80040215"},
    {30, "0x8004022B"}, {40, "0x80040226"},  {47, "0x8004022E"},  {32, "0x80004003"},
    {33, "0x8007000E"}, {34, "0x80070057"},  {64, "0x80004001"},  {66, "0x80004005"},
    {54, "0x80040236"}, {115, "0x80040431"}, {288, "0x800404D5"},
};

/// A session in which each text is seen once.
class AllTexts : public XrefSession {
 public:
  using XrefSession::workbenchFile;

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
    const HWND window = findWindow();
    for (const int control : {IDC_XREFS_LATEST, IDC_CHECKED_OUT_HERE, IDC_VERSION}) {
      wchar_t text[100] = L"";
      GetDlgItemTextW(window, control, text, 100);
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
  static HWND findWindow() {
    HWND found = nullptr;
    EnumThreadWindows(
        GetCurrentThreadId(),
        [](HWND window, LPARAM result) {
          if (GetDlgItem(window, IDC_XREFS_LATEST)) *reinterpret_cast<HWND*>(result) = window;
          return TRUE;
        },
        reinterpret_cast<LPARAM>(&found));
    return found;
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
  const auto english = textsIn(AllTexts::workbenchFile(L"client/language-en.txt"));
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

/// The box about a failed check of the xrefs, with the module's words for each code.
class CodeTexts : public XrefSession {
 public:
  using XrefSession::workbenchFile;

  explicit CodeTexts(const std::string& before) {
    run("@reg set StatusWnd 0\n@reg set EditWarning 0\n" + before);
    openSheet();
  }
  std::wstring textOf(const std::string& code) {
    mark();
    run("@fail VaultQuery.execute " + code + "\n@answer ok\nTessaro_getlatestxrefs\n");
    const std::wstring cause = L"text=\"Error reading xref information from database.\\nCause:";
    for (const std::wstring& line : lines()) {
      const size_t at = line.find(cause);
      if (at == std::wstring::npos) continue;
      const size_t begin = at + cause.size();
      return line.substr(begin, line.find(L"\" answer=", begin) - begin);
    }
    return L"no box";
  }

 private:
  void TestBody() override {}
};

TEST(Texts, ResultCodesHaveTheClientsEnglishAndItsNumbers) {
  const auto english = textsIn(AllTexts::workbenchFile(L"client/language-en.txt"), codeSection);
  const auto numbered = std::filesystem::temp_directory_path() / L"numbered.txt";
  {
    std::ofstream file(numbered, std::ios::binary);
    for (const auto& [number, code] : codes) {
      file << codeSection << number << "=number " << number << '\n';
    }
  }
  {
    CodeTexts own("@fail VaultTextService.sectionText E_FAIL always\n");
    for (const auto& [number, code] : codes) {
      const auto text = english.find(number);
      if (text == english.end()) continue;
      EXPECT_EQ(own.textOf(code), text->second) << code;
    }
    EXPECT_EQ(own.textOf("0x80040220"), L"The server was not found.");
    EXPECT_EQ(own.textOf("0x80040222"), L"The ODBC data source was not found.");
  }
  CodeTexts clients("@client language " + wb::toUtf8(numbered.wstring()) + "\n");
  for (const auto& [number, code] : codes) {
    EXPECT_EQ(clients.textOf(code), L"number " + std::to_wstring(number)) << code;
  }
}

TEST(Texts, TheSecondLanguageIsSeenWhereverTheFirstOneIs) {
  const std::wstring file = AllTexts::workbenchFile(L"client/language-de.txt");
  std::wstring seen;
  for (const std::wstring& line : seenIn(file)) seen += line + L"\n";
  for (const auto& [number, text] : textsIn(file)) {
    // As far as nothing is put in and nothing is written in another way.
    const std::wstring words = text.substr(0, text.find_first_of(L"%\\"));
    EXPECT_NE(seen.find(words), std::wstring::npos) << number << ": " << wb::toUtf8(words);
  }
}

}  // namespace
