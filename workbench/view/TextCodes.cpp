#include "view/TextCodes.h"

#include <algorithm>
#include <cwctype>

namespace wb {

namespace {

constexpr wchar_t noBreakBlank = 0xA0;

bool isDigit(wchar_t c) { return c >= L'0' && c <= L'9'; }

/// Reads one code behind a backslash at `at`, and goes behind it. Adds what is seen of it.
void readCode(std::wstring_view text, size_t& at, std::vector<std::wstring>& lines) {
  std::wstring& line = lines.back();
  const wchar_t code = text[at++];
  const size_t end = std::min(text.find(L';', at), text.size());
  switch (code) {
    case L'P':
    case L'N':
      lines.emplace_back();
      return;
    case L'~':
      line += noBreakBlank;
      return;
    case L'S': {
      // A stack: upper and lower part with "^", "#" or "/" between them.
      std::wstring stack(text.substr(at, end - at));
      std::replace(stack.begin(), stack.end(), L'^', L'/');
      std::replace(stack.begin(), stack.end(), L'#', L'/');
      line += stack;
      break;
    }
    case L'A':
    case L'C':
    case L'c':
    case L'F':
    case L'f':
    case L'H':
    case L'Q':
    case L'T':
    case L'W':
    case L'p':
      break;
    case L'K':
    case L'k':
    case L'L':
    case L'l':
    case L'O':
    case L'o':
      return;
    default:
      line += code;
      return;
  }
  at = std::min(end + 1, text.size());
}

}  // namespace

std::wstring shownText(std::wstring_view text) {
  std::wstring result;
  for (size_t at = 0; at < text.size();) {
    if (text.substr(at, 2) != L"%%" || at + 2 >= text.size()) {
      result += text[at] == L'\t' ? L' ' : text[at];
      ++at;
      continue;
    }
    const auto code = static_cast<wchar_t>(std::towlower(static_cast<wint_t>(text[at + 2])));
    at += 3;
    if (code == L'c') {
      result += L'\u00D8';
    } else if (code == L'd') {
      result += L'\u00B0';
    } else if (code == L'p') {
      result += L'\u00B1';
    } else if (isDigit(code)) {
      size_t digits = at - 1;
      unsigned number = 0;
      for (; digits < std::min(at + 2, text.size()) && isDigit(text[digits]); ++digits) {
        number = number * 10 + static_cast<unsigned>(text[digits] - L'0');
      }
      result += static_cast<wchar_t>(number);
      at = digits;
    } else if (code != L'u' && code != L'o' && code != L'k') {
      result += text[at - 1];
    }
  }
  return result;
}

std::vector<std::wstring> shownLines(std::wstring_view text) {
  std::vector<std::wstring> lines(1);
  for (size_t at = 0; at < text.size();) {
    const wchar_t c = text[at++];
    if (c == L'\\' && at < text.size()) {
      readCode(text, at, lines);
    } else if (c == L'\n') {
      lines.emplace_back();
    } else if (c != L'{' && c != L'}' && c != L'\r') {
      lines.back() += c;
    }
  }
  for (std::wstring& line : lines) line = shownText(line);
  return lines;
}

}  // namespace wb
