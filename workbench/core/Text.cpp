#include "core/Text.h"

#include <cwchar>
#include <iterator>
#include <sstream>

namespace wb {

std::string toUtf8(std::wstring_view text) {
  // A character of UTF-16 is at most three bytes of UTF-8.
  std::string result(text.size() * 3, '\0');
  result.resize(static_cast<size_t>(
      WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), result.data(),
                          static_cast<int>(result.size()), nullptr, nullptr)));
  return result;
}

std::wstring fromUtf8(std::string_view text) {
  std::wstring result(text.size(), L'\0');
  result.resize(static_cast<size_t>(
      MultiByteToWideChar(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), result.data(),
                          static_cast<int>(result.size()))));
  return result;
}

std::vector<std::string> linesOf(std::string_view utf8) {
  constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
  const bool isMarked = utf8.substr(0, byteOrderMark.size()) == byteOrderMark;
  std::istringstream stream(std::string(utf8.substr(isMarked ? byteOrderMark.size() : 0)));
  std::vector<std::string> lines;
  for (std::string line; std::getline(stream, line); lines.push_back(line)) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
  }
  return lines;
}

std::wstring hexText(unsigned long number, int digits) {
  wchar_t text[16];
  std::swprintf(text, std::size(text), L"0x%0*lX", digits, number);
  return text;
}

}  // namespace wb
