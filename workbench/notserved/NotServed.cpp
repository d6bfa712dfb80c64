#include "notserved/NotServed.h"

#include <string>

#include "core/Transcript.h"

namespace wb {

NotServed::NotServed(const wchar_t* function) {
  tell(Event::error, std::wstring(function) + L" isn't served by this host");
}

}  // namespace wb
