#include "foundation/CString.h"

#include <windows.h>

namespace tessaro {

bool equalIgnoringCase(const CString& left, const CString& right) {
  return CompareStringOrdinal(left.c_str(), static_cast<int>(left.size()), right.c_str(),
                              static_cast<int>(right.size()), TRUE) == CSTR_EQUAL;
}

}  // namespace tessaro
