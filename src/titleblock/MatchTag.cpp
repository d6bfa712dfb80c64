#include "titleblock/MatchTag.h"

#include <windows.h>

#include <cwchar>

namespace tessaro {

namespace {

/// Whether two texts first differ at two ASCII characters that aren't one letter in its two cases.
/// No locale's rules make such texts equal. It saves most calls of _wcsicmp, which looks up the
/// locale for every character.
bool differInAscii(const wchar_t* left, const wchar_t* right) {
  while (*left == *right && *left != L'\0') {
    ++left;
    ++right;
  }
  constexpr unsigned caseBit = 0x20, asciiEnd = 0x80;
  return *left < asciiEnd && *right < asciiEnd && ((*left ^ *right) & ~caseBit) != 0;
}

bool equalTags(const wchar_t* tag, const wchar_t* pattern) {
  return !differInAscii(tag, pattern) && _wcsicmp(tag, pattern) == 0;
}

}  // namespace

bool MatchTag(const wchar_t* tag, const CString& pattern) {
  if (pattern.find(L'*') == CString::npos) return equalTags(tag, pattern.c_str());

  CString rest = pattern;
  bool leading = false, trailing = false;
  if (rest.front() == L'*') {
    rest.erase(0, 1);
    leading = rest.empty() || rest.front() != L'*';
  }
  if (rest.size() >= 2 && rest.back() == L'*') {
    rest.pop_back();
    trailing = rest.back() != L'*';
  }
  CString upperTag = tag;
  CharUpperW(rest.data());
  CharUpperW(upperTag.data());

  const bool longEnough = upperTag.size() >= rest.size();
  if (leading && trailing) return upperTag.find(rest) != CString::npos;
  if (leading) {
    return longEnough && upperTag.compare(upperTag.size() - rest.size(), rest.size(), rest) == 0;
  }
  if (trailing) return longEnough && upperTag.compare(0, rest.size(), rest) == 0;
  return upperTag == rest;
}

}  // namespace tessaro
