#include "gate/NotServed.h"

#include <string>

#include "core/Transcript.h"

namespace wb {

NotServed::NotServed(const wchar_t* function) {
  const HostCall call(function);
  if (call.refused()) return;
  std::wstring name = function;
  name.replace(name.find(L'.'), 1, L"::");
  tell(Event::error, name + L" isn't served by this host");
}

}  // namespace wb
