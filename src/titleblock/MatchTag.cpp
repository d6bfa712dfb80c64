#include "titleblock/MatchTag.h"

#include <windows.h>

#include <cwchar>

namespace tessaro {

bool MatchTag(const CString& tag, const CString& pattern) {
  if (pattern.find(L'*') == CString::npos) return _wcsicmp(tag.c_str(), pattern.c_str()) == 0;

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
