#include "core/Text.h"

#include <windows.h>

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

}  // namespace wb
