#pragma once

#include <acadstrc.h>

namespace wb {

/// The answer of a host function that the workbench doesn't serve: a failure of the function's
/// type. Making one tells the use as an `error`, so that it can't go unseen.
class NotServed {
 public:
  /// @param function class and name, a literal
  explicit NotServed(const wchar_t* function);

  operator Acad::ErrorStatus() const { return Acad::eNotImplementedYet; }
  /// Null, false, 0, a null id.
  template <class T>
  operator T() const {
    return T();
  }
};

}  // namespace wb
