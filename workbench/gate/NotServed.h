#pragma once

#include "gate/HostCall.h"

namespace wb {

/// The answer of a host function that the workbench doesn't serve: a failure of the function's
/// type. Making one is the call, which is reported as an `error`, so that it can't go unseen.
class NotServed {
 public:
  /// @param function "Class.method", a literal
  explicit NotServed(const wchar_t* function);

  operator Acad::ErrorStatus() const { return Acad::eNotImplementedYet; }
  /// Null, false, 0, a null id.
  template <class T>
  operator T() const {
    return T();
  }
};

}  // namespace wb
