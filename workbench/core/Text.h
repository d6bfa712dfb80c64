#pragma once

#include <windows.h>

#include <string>
#include <string_view>
#include <vector>

namespace wb {

/// Wide text as UTF-8 and back; what isn't valid comes out as the replacement character.
std::string toUtf8(std::wstring_view text);
std::wstring fromUtf8(std::string_view text);

/// The lines of a UTF-8 text with any line ends, with or without a byte order mark.
std::vector<std::string> linesOf(std::string_view utf8);

/// "0x" and the number in hexadecimal, in capitals.
/// @param digits at the least
std::wstring hexText(unsigned long number, int digits = 1);

/// Compares names and paths as Windows' file systems do: by their characters, ignoring case, and by
/// no language's rules.
/// @return CSTR_LESS_THAN, CSTR_EQUAL or CSTR_GREATER_THAN
inline int compareNames(std::wstring_view left, std::wstring_view right) {
  return CompareStringOrdinal(left.data(), static_cast<int>(left.size()), right.data(),
                              static_cast<int>(right.size()), TRUE);
}

/// Equal ignoring case, as the editor compares names and Windows compares file names.
inline bool sameName(std::wstring_view left, std::wstring_view right) {
  return compareNames(left, right) == CSTR_EQUAL;
}

struct LessIgnoringCase {
  bool operator()(const std::wstring& left, const std::wstring& right) const {
    return compareNames(left, right) == CSTR_LESS_THAN;
  }
};

}  // namespace wb
