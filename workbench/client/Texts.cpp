// The client's texts, and the string service that reads them.

#include <windows.h>

#include <fstream>
#include <map>
#include <optional>
#include <regex>
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
  explicit TextTable(std::string_view utf8) {
    int number = 0;
    for (const std::string& line : linesOf(utf8)) {
      ++number;
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
  bool add(const std::string& line) {
    static const std::regex form("([^;]*;[^;]*;)(-?[0-9]{1,9})=(.*)");
    std::smatch parts;
    if (!std::regex_match(line, parts, form)) return false;
    texts[fromUtf8(parts.str(1)) + std::to_wstring(std::stol(parts.str(2)))] =
        unescaped(fromUtf8(parts.str(3)));
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
    return TextTable({text, SizeofResource(module, found)});
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

/// The numbers of the texts for result codes, from a list of names and numbers.
std::map<std::wstring, long> textNumbers(const wchar_t* list) {
  std::map<std::wstring, long> numbers;
  std::wistringstream stream(list);
  for (std::wstring name; stream >> name;) stream >> numbers[name];
  return numbers;
}

/// The texts of a product's module, or of a section of the client; which one is the state.
struct TextServicePart : Dual<VaultTextService, std::optional<std::wstring>> {
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
    // A product keeps the service of its module for its life, even if the call fails.
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
  static const auto general = textNumbers(
      L"S_OK 0 S_FALSE 1 E_QVT_LOGIN_FAILED 2 E_QVT_NOT_INITIALIZED 3 E_QVT_PERMISSION_DENIED 5 "
      L"E_QVT_NOT_LOGGED_IN 6 E_QVT_CANT_OPEN_DATABASE 8 E_QVT_END_OF_LIST 10 E_QVT_RCE_ERROR 11 "
      L"E_QVT_LOCKED 12 E_QVT_FILE_SHARE_ERROR 13 E_QVT_NAME_ALREADY_EXISTS 17 "
      L"E_QVT_FILE_NOT_LOCKED_BY_YOU 18 E_QVT_FILE_IS_LOCKED 19 E_QVT_LOCKED_BY_ANOTHER_USER 20 "
      L"E_QVT_FILE_NOT_FOUND 21 E_QVT_FOLDER_NOT_FOUND 22 E_QVT_LOCKED_ON_OTHER_COMPUTER 23 "
      L"E_QVT_KEY_NOT_FOUND 30 E_POINTER 32 E_OUTOFMEMORY 33 E_INVALIDARG 34 "
      L"E_QVT_CANCELLED_BY_USER 40 E_QVT_VERSION_MISMATCH 47 E_NOTIMPL 64 E_FAIL 66 "
      L"E_UNEXPECTED 66");
  static const auto ofDatabase =
      textNumbers(L"E_QVT_SERVER_NOT_FOUND 207 E_QVT_DATASOURCE_NOT_FOUND 209");
  const std::wstring name = resultName(code);
  std::optional<std::wstring> text;
  if (const auto found = general.find(name); found != general.end()) {
    text = findText(L"QvtInterface", L"ErrorCodes", found->second);
  } else if (const auto other = ofDatabase.find(name); other != ofDatabase.end()) {
    text = findText(L"Database", L"Error Messages", other->second);
  }
  return text.value_or(L"");
}

}  // namespace wb
