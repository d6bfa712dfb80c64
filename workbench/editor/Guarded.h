#pragma once

#include <string>
#include <string_view>

namespace wb {

/// Describes the exception that is being handled, for `tell`; to be called in a catch block.
std::wstring describeCurrentException();

/// Tells, in a catch block, that `what` (a command, an event) was ended by an exception.
void tellUncaught(std::wstring_view what);

/// Runs code of an application on its behalf. The editor survives whatever leaves it: a COM
/// error, a standard exception or any value thrown. False if something did.
template <class Call>
bool runGuarded(std::wstring_view what, Call&& call) {
  try {
    call();
    return true;
  } catch (...) {
    tellUncaught(what);
    return false;
  }
}

}  // namespace wb
