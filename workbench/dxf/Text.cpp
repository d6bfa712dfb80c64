#include "dxf/Text.h"

#include <windows.h>

#include <algorithm>
#include <cctype>
#include <cwchar>
#include <cwctype>
#include <optional>

#include "dxf/Groups.h"

namespace wb {

namespace {

struct NamedPage {
  std::string_view name;
  unsigned page;
};

// The names that don't tell their number, in lower case.
constexpr NamedPage namedPages[] = {
    {"ascii", 1252}, {"johab", 1361},    {"ksc5601", 949},  {"big5", 950},
    {"gb2312", 936}, {"utf-8", CP_UTF8}, {"utf8", CP_UTF8}, {"mac-roman", 10000},
};

// The first release with UTF-8, 2007.
constexpr std::string_view firstUtf8Release = "AC1021";

unsigned trailingNumber(std::string_view text) {
  const size_t last = text.find_last_not_of("0123456789");
  unsigned number = 0;
  for (const char digit : text.substr(last == std::string_view::npos ? 0 : last + 1)) {
    number = number * 10 + static_cast<unsigned>(digit - '0');
    if (number > 65535) return 0;
  }
  return number;
}

unsigned pageOf(std::string_view codePage) {
  std::string name(trimmed(codePage));
  std::transform(name.begin(), name.end(), name.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  for (const NamedPage& named : namedPages) {
    if (named.name == name) return named.page;
  }
  unsigned page = trailingNumber(name);
  if (name.rfind("iso8859", 0) == 0) page += 28590;
  // Without a usable name the host takes the system's own; ours is the western one, so that a
  // drawing reads alike on every machine.
  return page && IsValidCodePage(page) ? page : 1252;
}

// The code pages of "\M+nXXXX", an older way to write an East Asian character.
constexpr unsigned multibytePages[] = {932, 950, 949, 1361, 936};

std::optional<unsigned> hexAt(std::wstring_view text, size_t position, size_t digits) {
  if (text.size() < position + digits) return std::nullopt;
  unsigned value = 0;
  for (const wchar_t digit : text.substr(position, digits)) {
    if (!std::iswxdigit(static_cast<wint_t>(digit)) || digit > L'f') return std::nullopt;
    value = value * 16 + (std::iswdigit(static_cast<wint_t>(digit))
                              ? static_cast<unsigned>(digit - L'0')
                              : static_cast<unsigned>((digit | 0x20) - L'a' + 10));
  }
  return value;
}

std::wstring convert(unsigned page, std::string_view text, DWORD flags) {
  const int size = static_cast<int>(text.size());
  const int length = MultiByteToWideChar(page, flags, text.data(), size, nullptr, 0);
  std::wstring result(static_cast<size_t>(std::max(length, 0)), L'\0');
  MultiByteToWideChar(page, flags, text.data(), size, result.data(), length);
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
  const std::wstring character = convert(multibytePages[*page - 1], {bytes, 2}, 0);
  return Escape{character, 8};
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

bool isSurrogate(wchar_t c) { return c >= 0xD800 && c <= 0xDFFF; }

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
    const bool pair =
        isSurrogate(c) && position + 1 < text.size() && IS_SURROGATE_PAIR(c, text[position + 1]);
    if (c < L' ') {
      result += {'^', static_cast<char>(c + '@')};
    } else if (c == L'^') {
      result += "^ ";
    } else if (c == L'\\' && escapeAt(text, position)) {
      result += "\\U+005C";
    } else if (pair && page == CP_UTF8) {
      narrow(text.substr(position++, 2), result);
    } else if (isSurrogate(c) || !narrow(text.substr(position, 1), result)) {
      char escape[8];
      std::snprintf(escape, sizeof escape, "\\U+%04X", static_cast<unsigned>(c));
      result += escape;
    }
  }
  return result;
}

}  // namespace wb
