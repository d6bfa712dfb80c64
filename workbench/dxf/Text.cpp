#include "dxf/Text.h"

#include <windows.h>

#include <algorithm>
#include <cctype>
#include <charconv>
#include <cstdio>
#include <iterator>
#include <optional>
#include <string>

namespace wb {

namespace {

struct NamedPage {
  std::string_view name;
  unsigned page;
};

// The names without their number in them, in lower case.
constexpr NamedPage namedPages[] = {
    {"ascii", 1252}, {"johab", 1361},    {"ksc5601", 949},  {"big5", 950},
    {"gb2312", 936}, {"utf-8", CP_UTF8}, {"utf8", CP_UTF8}, {"mac-roman", 10000},
};

// The first release with UTF-8, 2007.
constexpr std::string_view firstUtf8Release = "AC1021";

unsigned pageOf(std::string_view codePage) {
  std::string name(codePage);
  std::transform(name.begin(), name.end(), name.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  for (const auto& [known, page] : namedPages) {
    if (known == name) return page;
  }
  unsigned page = 0;
  const size_t digits = name.find_last_not_of("0123456789") + 1;
  std::from_chars(name.data() + digits, name.data() + name.size(), page);
  if (name.rfind("iso8859", 0) == 0) page += 28590;
  // Without a usable name the host takes the system's own; ours is the western one, so that a
  // drawing reads alike on every machine.
  return page && IsValidCodePage(page) ? page : 1252;
}

// The code pages of "\M+nXXXX", an older way to write an East Asian character.
constexpr unsigned multibytePages[] = {932, 950, 949, 1361, 936};

std::optional<unsigned> hexAt(std::wstring_view text, size_t position, size_t digits) {
  const std::wstring number(text.substr(std::min(position, text.size()), digits));
  if (number.size() < digits) return std::nullopt;
  if (number.find_first_not_of(L"0123456789ABCDEFabcdef") != std::wstring::npos) {
    return std::nullopt;
  }
  return std::stoul(number, nullptr, 16);
}

std::wstring convert(unsigned page, std::string_view text, DWORD flags) {
  const int length =
      MultiByteToWideChar(page, flags, text.data(), static_cast<int>(text.size()), nullptr, 0);
  std::wstring result(static_cast<size_t>(std::max(length, 0)), L'\0');
  MultiByteToWideChar(page, flags, text.data(), static_cast<int>(text.size()), result.data(),
                      length);
  return result;
}

// An escape at `position`: what it stands for, and its length. Nothing if there is none.
struct Escape {
  std::wstring text;
  size_t length;
};

std::optional<Escape> multibyteEscape(std::wstring_view text, size_t position) {
  const auto page = hexAt(text, position + 3, 1);
  const auto code = hexAt(text, position + 4, 4);
  if (!page || !code || *page < 1 || *page > std::size(multibytePages)) return std::nullopt;
  const char bytes[] = {static_cast<char>(*code >> 8), static_cast<char>(*code & 0xFF)};
  return Escape{convert(multibytePages[*page - 1], {bytes, 2}, 0), 8};
}

std::optional<Escape> escapeAt(std::wstring_view text, size_t position) {
  const std::wstring_view start = text.substr(position, 3);
  if (start == L"\\U+" || start == L"\\u+") {
    const auto code = hexAt(text, position + 3, 4);
    if (code) return Escape{std::wstring(1, static_cast<wchar_t>(*code)), 7};
  }
  if (start == L"\\M+" || start == L"\\m+") return multibyteEscape(text, position);
  if (text[position] == L'^' && position + 1 < text.size()) {
    const wchar_t next = text[position + 1];
    if (next == L' ') return Escape{L"^", 2};
    if (next >= L'@' && next <= L'_') {
      return Escape{std::wstring(1, static_cast<wchar_t>(next - L'@')), 2};
    }
  }
  return std::nullopt;
}

}  // namespace

DxfText::DxfText(std::string_view release, std::string_view codePage)
    : page(release >= firstUtf8Release ? CP_UTF8 : pageOf(codePage)) {}

std::wstring DxfText::widen(std::string_view text) const {
  if (text.empty()) return {};
  const std::wstring strict = convert(page, text, MB_ERR_INVALID_CHARS);
  // Some programs write 8-bit text whatever the release says.
  return strict.empty() ? convert(1252, text, 0) : strict;
}

std::wstring DxfText::decode(std::string_view text) const {
  std::wstring raw = widen(text);
  if (raw.find_first_of(L"\\^") == std::wstring::npos) return raw;
  std::wstring result;
  for (size_t position = 0; position < raw.size();) {
    if (const auto escape = escapeAt(raw, position)) {
      result += escape->text;
      position += escape->length;
    } else {
      result += raw[position++];
    }
  }
  return result;
}

bool DxfText::narrow(std::wstring_view character, std::string& result) const {
  char bytes[8];
  BOOL replaced = FALSE;
  const bool utf8 = page == CP_UTF8;
  // Windows refuses both of these arguments for UTF-8, which has every character anyway.
  const int length = WideCharToMultiByte(page, utf8 ? WC_ERR_INVALID_CHARS : WC_NO_BEST_FIT_CHARS,
                                         character.data(), static_cast<int>(character.size()),
                                         bytes, sizeof bytes, nullptr, utf8 ? nullptr : &replaced);
  if (length <= 0 || replaced) return false;
  result.append(bytes, static_cast<size_t>(length));
  return true;
}

std::string DxfText::encode(std::wstring_view text) const {
  std::string result;
  for (size_t position = 0; position < text.size(); ++position) {
    const wchar_t c = text[position];
    const bool surrogate = IS_HIGH_SURROGATE(c) || IS_LOW_SURROGATE(c);
    const bool pair = position + 1 < text.size() && IS_SURROGATE_PAIR(c, text[position + 1]);
    if (c < L' ') {
      result += {'^', static_cast<char>(c + '@')};
    } else if (c == L'^') {
      result += "^ ";
    } else if (c == L'\\' && escapeAt(text, position)) {
      result += "\\U+005C";
    } else if (pair && page == CP_UTF8) {
      narrow(text.substr(position++, 2), result);
    } else if (surrogate || !narrow(text.substr(position, 1), result)) {
      char escape[8];
      std::snprintf(escape, sizeof escape, "\\U+%04X", static_cast<unsigned>(c));
      result += escape;
    }
  }
  return result;
}

}  // namespace wb
