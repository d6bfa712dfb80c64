#pragma once

#include <acadstrc.h>

#include <new>
#include <string>
#include <type_traits>

#include "core/StandInTime.h"
#include "gate/HostError.h"

/// The function in which it stands, as HostCall takes it.
#define THIS_FUNCTION (wb::Signature{__FUNCSIG__})
/// The result of a function that this host doesn't serve: a failure of the function's type. The
/// call is reported as an `error`, so that it is always seen.
#define NOT_SERVED (wb::NotServed(THIS_FUNCTION))

namespace wb {

/// A function of the host's interface as the compiler writes it: "RESULT __cdecl NAME(ARGUMENTS)".
struct Signature {
  const char* text;

  /// "Class::method", or "function".
  std::wstring name() const;
};

/// One call of the host's interface by an application: every function and method that the host
/// offers is run through it, as the client's are through ClientCall. The call's time counts as the
/// stand-in's, the call is counted by its name, fails if a fault was ordered for that name, and
/// what the body throws becomes a failure of the function's own type.
///
/// Exceptions of an application that the body calls pass through: the gate takes only the host's.
class HostCall {
 public:
  enum Sweep {
    notSwept,
    swept  ///< can fail in practice, so the sweep lets it
  };

  /// The name is "Class.method", "host.function", "host.Class" or "host.~Class".
  explicit HostCall(Signature function, Sweep sweep = notSwept);
  /// For a method of the host's own class, and one of several functions of a name.
  explicit HostCall(std::wstring_view name, Sweep sweep = notSwept);

  /// Whether a fault was ordered for this call.
  bool refused() const { return refused_; }

  /// Runs the call.
  /// @param failure what it returns if it fails
  template <class Result, class Body>
  Result run(Result failure, const Body& body) const {
    if (refused_) return failure;
    try {
      return body();
    } catch (const HostError& error) {
      if constexpr (std::is_same_v<Result, Acad::ErrorStatus>) return error.code;
      return failure;
    } catch (const std::bad_alloc&) {
      reportLackOfMemory();
      if constexpr (std::is_same_v<Result, Acad::ErrorStatus>) return Acad::eOutOfMemory;
      return failure;
    }
  }

  /// Runs a call that has no result.
  template <class Body>
  void run(const Body& body) const {
    run(false, [&] {
      body();
      return true;
    });
  }

 private:
  void reportLackOfMemory() const;

  const InStandIn inside;
  const std::wstring name;
  const bool refused_;
};

/// See NOT_SERVED.
class NotServed {
 public:
  explicit NotServed(Signature function);

  operator Acad::ErrorStatus() const { return Acad::eNotImplementedYet; }
  /// Null, false, 0, a null id.
  template <class T>
  operator T() const {
    return T();
  }
};

}  // namespace wb
