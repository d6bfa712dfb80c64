#include "core/Text.h"

#include <windows.h>

#include <sstream>

namespace wb {

std::string toUtf8(std::wstring_view text) {
  const int length = static_cast<int>(text.size());
  std::string result(
      WideCharToMultiByte(CP_UTF8, 0, text.data(), length, nullptr, 0, nullptr, nullptr), '\0');
  WideCharToMultiByte(CP_UTF8, 0, text.data(), length, result.data(),
                      static_cast<int>(result.size()), nullptr, nullptr);
  return result;
}

std::wstring fromUtf8(std::string_view text) {
  const int length = static_cast<int>(text.size());
  std::wstring result(MultiByteToWideChar(CP_UTF8, 0, text.data(), length, nullptr, 0), L'\0');
  MultiByteToWideChar(CP_UTF8, 0, text.data(), length, result.data(),
                      static_cast<int>(result.size()));
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

}  // namespace wb
