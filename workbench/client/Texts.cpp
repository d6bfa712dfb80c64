// The client's texts, and the string service that reads them.

#include <windows.h>

#include <charconv>
#include <fstream>
#include <map>
#include <optional>
#include <sstream>
#include <stdexcept>

#include "client/ClientCall.h"
#include "client/Objects.h"
#include "client/resource.h"
#include "core/SessionState.h"
#include "core/Text.h"

namespace wb {
namespace {

/// The numbered texts of one language.
///
/// Its form is UTF-8 text with one line for each: `section;key;number=text`. The section is a
/// product's module, with an empty key, or a section of the client. In the text \n stands for a
/// line break, \s for a blank and \\ for a backslash. Empty lines and lines with # in front are
/// passed over.
class TextTable {
 public:
  /// @throws std::runtime_error, which names the line, for one of another form
  explicit TextTable(std::string utf8) {
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    if (utf8.compare(0, byteOrderMark.size(), byteOrderMark) == 0) {
      utf8.erase(0, byteOrderMark.size());
    }
    std::istringstream lines(utf8);
    std::string line;
    for (int number = 1; std::getline(lines, line); ++number) {
      if (!line.empty() && line.back() == '\r') line.pop_back();
      if (line.empty() || line.front() == '#' || add(line)) continue;
      throw std::runtime_error("line " + std::to_string(number) +
                               " isn't of the form section;key;number=text");
    }
  }

  /// The text; sections and keys are compared ignoring case.
  std::optional<std::wstring> find(const std::wstring& section, const std::wstring& key,
                                   long number) const {
    const auto found = texts.find(section + L";" + key + L";" + std::to_wstring(number));
    if (found == texts.end()) return std::nullopt;
    return found->second;
  }

  bool hasSection(const std::wstring& section) const {
    const std::wstring begin = section + L";";
    const auto found = texts.lower_bound(begin);
    return found != texts.end() && sameName(found->first.substr(0, begin.size()), begin);
  }

 private:
  /// Whether the line has the right form.
  bool add(std::string_view line) {
    const size_t key = line.find(';');
    const size_t number = key == std::string_view::npos ? key : line.find(';', key + 1);
    const size_t text = number == std::string_view::npos ? number : line.find('=', number + 1);
    if (text == std::string_view::npos) return false;
    long value = 0;
    const char* const end = line.data() + text;
    const auto read = std::from_chars(line.data() + number + 1, end, value);
    if (read.ec != std::errc() || read.ptr != end) return false;
    texts[fromUtf8(line.substr(0, number + 1)) + std::to_wstring(value)] =
        unescaped(fromUtf8(line.substr(text + 1)));
    return true;
  }

  static std::wstring unescaped(const std::wstring& text) {
    std::wstring result;
    for (size_t i = 0; i < text.size(); ++i) {
      const bool isEscape = text[i] == L'\\' && i + 1 < text.size();
      const wchar_t letter = isEscape ? text[++i] : text[i];
      result += !isEscape ? letter : letter == L'n' ? L'\n' : letter == L's' ? L' ' : letter;
    }
    return result;
  }

  std::map<std::wstring, std::wstring, LessIgnoringCase> texts;  ///< by "section;key;number"
};

const TextTable& englishTexts() {
  static const TextTable table = [] {
    const HMODULE module = clientModule();
    const HRSRC found = FindResourceW(module, MAKEINTRESOURCEW(IDR_ENGLISH), RT_RCDATA);
    const HGLOBAL loaded = found ? LoadResource(module, found) : nullptr;
    const auto text = static_cast<const char*>(loaded ? LockResource(loaded) : nullptr);
    if (!text) throw std::runtime_error("the client's file lacks its English texts");
    return TextTable(std::string(text, SizeofResource(module, found)));
  }();
  return table;
}

/// Read anew at each use: the file may be exchanged, or edited, while the client is loaded.
std::optional<TextTable> languageTexts() {
  const auto& file = clientCondition().language;
  if (!file) return std::nullopt;
  std::ifstream stream(*file, std::ios::binary);
  std::ostringstream content;
  if (!stream || (stream.peek() != EOF && !(content << stream.rdbuf()))) {
    throw std::runtime_error("the language file " + toUtf8(file->wstring()) + " can't be read");
  }
  return TextTable(content.str());
}

/// The text in the client's language, or in English where that language has none.
std::optional<std::wstring> findText(const std::wstring& section, const std::wstring& key,
                                     long number) {
  if (const auto language = languageTexts()) {
    if (auto text = language->find(section, key, number)) return text;
  }
  return englishTexts().find(section, key, number);
}

bool hasSection(const std::wstring& section) {
  const auto language = languageTexts();
  return (language && language->hasSection(section)) || englishTexts().hasSection(section);
}

/// The texts of a product's module, or of a section of the client; which one is the state.
class TextServicePart : public Dual<VaultTextService, std::optional<std::wstring>> {
 public:
  using Dual::Dual;

  STDMETHODIMP text(LONG number, BSTR* result) override {
    return call().with(L"number", number).result(result, [&] {
      const auto found = findText(section(), L"", number);
      if (!found) throw ClientFailure(E_QVT_KEY_NOT_FOUND);
      return *found;
    });
  }

  STDMETHODIMP sectionText(LONG number, BSTR key, BSTR* result) override {
    return call().with(L"number", number).with(L"key", key).out(result).run([&] {
      if (const auto found = findText(section(), textOf(key), number)) assign(result, *found);
    });
  }

  STDMETHODIMP open(BSTR productName, BSTR sectionOrModule) override {
    const std::wstring name = textOf(sectionOrModule);
    // A product keeps the service of its module for its life, whether or not the call goes well.
    if (!sameName(name, L"QvtInterface") && !sameName(name, L"Database")) {
      dynamic_cast<LiveObject&>(*this).keepReferences();
    }
    return call().with(L"product", productName).with(L"section", sectionOrModule).run([&] {
      state = name;
      const bool isProduct = textOf(productName) == L"Halvern Vault Manager";
      return isProduct && hasSection(name) ? S_OK : S_FALSE;
    });
  }

 private:
  const std::wstring& section() const {
    if (!state) throw ClientFailure(E_QVT_NOT_INITIALIZED);
    return *state;
  }
};

}  // namespace

Owned<VaultTextService> textService() {
  return make<VaultTextService, TextServicePart>(L"TextService", std::optional<std::wstring>());
}

std::wstring errorText(HRESULT code) {
  static const std::map<std::wstring, long> generalTexts = {{L"S_OK", 0},
                                                            {L"S_FALSE", 1},
                                                            {L"E_QVT_LOGIN_FAILED", 2},
                                                            {L"E_QVT_NOT_INITIALIZED", 3},
                                                            {L"E_QVT_PERMISSION_DENIED", 5},
                                                            {L"E_QVT_NOT_LOGGED_IN", 6},
                                                            {L"E_QVT_CANT_OPEN_DATABASE", 8},
                                                            {L"E_QVT_END_OF_LIST", 10},
                                                            {L"E_QVT_RCE_ERROR", 11},
                                                            {L"E_QVT_LOCKED", 12},
                                                            {L"E_QVT_FILE_SHARE_ERROR", 13},
                                                            {L"E_QVT_NAME_ALREADY_EXISTS", 17},
                                                            {L"E_QVT_FILE_NOT_LOCKED_BY_YOU", 18},
                                                            {L"E_QVT_FILE_IS_LOCKED", 19},
                                                            {L"E_QVT_LOCKED_BY_ANOTHER_USER", 20},
                                                            {L"E_QVT_FILE_NOT_FOUND", 21},
                                                            {L"E_QVT_FOLDER_NOT_FOUND", 22},
                                                            {L"E_QVT_LOCKED_ON_OTHER_COMPUTER", 23},
                                                            {L"E_QVT_KEY_NOT_FOUND", 30},
                                                            {L"E_POINTER", 32},
                                                            {L"E_OUTOFMEMORY", 33},
                                                            {L"E_INVALIDARG", 34},
                                                            {L"E_QVT_CANCELLED_BY_USER", 40},
                                                            {L"E_QVT_VERSION_MISMATCH", 47},
                                                            {L"E_NOTIMPL", 64},
                                                            {L"E_FAIL", 66},
                                                            {L"E_UNEXPECTED", 66}};
  static const std::map<std::wstring, long> databaseTexts = {{L"E_QVT_SERVER_NOT_FOUND", 207},
                                                             {L"E_QVT_DATASOURCE_NOT_FOUND", 209}};
  const std::wstring name = resultName(code);
  const auto general = generalTexts.find(name);
  if (general != generalTexts.end()) {
    return findText(L"QvtInterface", L"ErrorCodes", general->second).value_or(L"");
  }
  const auto ofDatabase = databaseTexts.find(name);
  if (ofDatabase == databaseTexts.end()) return {};
  return findText(L"Database", L"Error Messages", ofDatabase->second).value_or(L"");
}

}  // namespace wb
