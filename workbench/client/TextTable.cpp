#include "client/TextTable.h"

#include <windows.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <stdexcept>

#include "client/resource.h"
#include "client/TypeLibrary.h"
#include "core/SessionState.h"
#include "core/Text.h"

namespace wb {
namespace {

std::wstring folded(std::wstring_view text) {
  std::wstring result(text);
  if (!result.empty()) CharLowerBuffW(result.data(), static_cast<DWORD>(result.size()));
  return result;
}

std::wstring unescaped(std::wstring_view text) {
  std::wstring result;
  for (size_t i = 0; i < text.size(); ++i) {
    const bool escape = text[i] == L'\\' && i + 1 < text.size();
    if (!escape) {
      result += text[i];
      continue;
    }
    const wchar_t letter = text[++i];
    result += letter == L'n' ? L'\n' : letter == L's' ? L' ' : letter;
  }
  return result;
}

std::optional<long> wholeNumber(const std::wstring& text) {
  wchar_t* end = nullptr;
  const long value = std::wcstol(text.c_str(), &end, 10);
  if (text.empty() || *end) return std::nullopt;
  return value;
}

std::string readFile(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  std::string content{std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
  if (!stream.is_open() || stream.bad()) {
    throw std::runtime_error("the language file " + toUtf8(file.wstring()) + " can't be read");
  }
  return content;
}

const TextTable& englishTexts() {
  static const TextTable table = [] {
    const HMODULE module = clientModule();
    const HRSRC found = FindResourceW(module, MAKEINTRESOURCEW(IDR_ENGLISH), RT_RCDATA);
    const HGLOBAL loaded = found ? LoadResource(module, found) : nullptr;
    const auto text = static_cast<const char*>(loaded ? LockResource(loaded) : nullptr);
    if (!text) throw std::runtime_error("the client's file lacks its English texts");
    return TextTable::parse(std::string_view(text, SizeofResource(module, found)));
  }();
  return table;
}

/// Read anew at each use: the file may be exchanged, or edited, while the client is loaded.
std::optional<TextTable> languageTexts() {
  const auto& file = clientCondition().language;
  if (!file) return std::nullopt;
  return TextTable::parse(readFile(*file));
}

struct ErrorNumber {
  unsigned long code;
  long number;
  bool ofDatabase;
};

constexpr ErrorNumber errorNumbers[] = {
    {0x00000000, 0, false},  {0x00000001, 1, false},  {0x80040200, 2, false},
    {0x80040201, 3, false},  {0x80040203, 5, false},  {0x80040204, 6, false},
    {0x80040206, 8, false},  {0x80040221, 8, false},  {0x80040208, 10, false},
    {0x80040209, 11, false}, {0x8004020A, 12, false}, {0x8004020B, 13, false},
    {0x8004020F, 17, false}, {0x80040210, 18, false}, {0x80040211, 19, false},
    {0x80040212, 20, false}, {0x80040213, 21, false}, {0x80040214, 22, false},
    {0x80040215, 23, false}, {0x8004022B, 30, false}, {0x80040226, 40, false},
    {0x8004022E, 47, false}, {0x80040220, 207, true}, {0x80040222, 209, true},
    {0x80004003, 32, false}, {0x8007000E, 33, false}, {0x80070057, 34, false},
    {0x80004001, 64, false}, {0x80004005, 66, false}, {0x8000FFFF, 66, false},
};

}  // namespace

TextTable TextTable::parse(std::string_view utf8) {
  constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
  if (utf8.substr(0, byteOrderMark.size()) == byteOrderMark) {
    utf8.remove_prefix(byteOrderMark.size());
  }
  TextTable table;
  for (int number = 1; !utf8.empty(); ++number) {
    const size_t end = utf8.find('\n');
    std::string_view raw = utf8.substr(0, end);
    utf8.remove_prefix(end == std::string_view::npos ? utf8.size() : end + 1);
    if (!raw.empty() && raw.back() == '\r') raw.remove_suffix(1);
    if (raw.empty() || raw.front() == '#') continue;

    const std::wstring line = fromUtf8(raw);
    const size_t key = line.find(L';');
    const size_t id = key == std::wstring::npos ? key : line.find(L';', key + 1);
    const size_t text = id == std::wstring::npos ? id : line.find(L'=', id + 1);
    const auto value =
        text == std::wstring::npos ? std::nullopt : wholeNumber(line.substr(id + 1, text - id - 1));
    if (!value) {
      throw std::runtime_error("line " + std::to_string(number) +
                               " isn't of the form section;key;number=text");
    }
    table.texts[{folded(line.substr(0, key)), folded(line.substr(key + 1, id - key - 1)), *value}] =
        unescaped(line.substr(text + 1));
  }
  return table;
}

std::optional<std::wstring> TextTable::find(std::wstring_view section, std::wstring_view key,
                                            long number) const {
  const auto found = texts.find({folded(section), folded(key), number});
  if (found == texts.end()) return std::nullopt;
  return found->second;
}

bool TextTable::hasSection(std::wstring_view section) const {
  const std::wstring name = folded(section);
  return std::any_of(texts.begin(), texts.end(),
                     [&](const auto& entry) { return std::get<0>(entry.first) == name; });
}

std::optional<std::wstring> ClientTexts::find(std::wstring_view section, std::wstring_view key,
                                              long number) {
  if (const auto language = languageTexts()) {
    if (auto text = language->find(section, key, number)) return text;
  }
  return englishTexts().find(section, key, number);
}

bool ClientTexts::hasSection(std::wstring_view section) {
  const auto language = languageTexts();
  return (language && language->hasSection(section)) || englishTexts().hasSection(section);
}

std::wstring ClientTexts::errorText(long code) {
  for (const ErrorNumber& row : errorNumbers) {
    if (row.code != static_cast<unsigned long>(code)) continue;
    const auto text = row.ofDatabase ? find(L"Database", L"Error Messages", row.number)
                                     : find(L"QvtInterface", L"ErrorCodes", row.number);
    return text.value_or(L"");
  }
  return {};
}

}  // namespace wb
