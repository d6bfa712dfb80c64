#include "gate/HostCall.h"

#include <string_view>

#include "core/Transcript.h"
#include "faults/Faults.h"

namespace wb {

static std::wstring countedName(Signature function) {
  std::wstring name = function.name();
  const size_t colons = name.find(L"::");
  if (colons == std::wstring::npos) return L"host." + name;
  const std::wstring method = name.substr(colons + 2);
  if (method.front() == L'~' || name.compare(0, colons, method) == 0) return L"host." + method;
  name.replace(colons, 2, L".");
  return name;
}

std::wstring Signature::name() const {
  constexpr std::string_view convention = "__cdecl ";
  std::string_view full = text;
  full.remove_prefix(full.find(convention) + convention.size());
  full = full.substr(0, full.find('('));
  // A class that isn't the host's own is one of notserved/Classes.h.
  constexpr std::string_view base = "wb::NotServed";
  if (full.substr(0, base.size()) == base) full.remove_prefix(base.size());
  return {full.begin(), full.end()};
}

HostCall::HostCall(Signature function, Sweep sweep)
    : name(countedName(function)), refused_(FAILED(takeFault(name, sweep == swept))) {}

HostCall::HostCall(std::wstring_view name, Sweep sweep)
    : name(name), refused_(FAILED(takeFault(name, sweep == swept))) {}

void HostCall::reportLackOfMemory() const { report(Event::error, name + L" lacks memory"); }

NotServed::NotServed(Signature function) {
  if (HostCall(function).refused()) return;
  report(Event::error, function.name() + L" isn't served by this host");
}

}  // namespace wb
