#pragma once

#include <acadstrc.h>

#include <new>
#include <type_traits>

#include "core/StandInTime.h"
#include "gate/HostError.h"

namespace wb {

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

  /// @param name "Class.method", or "host.function", a literal
  explicit HostCall(const wchar_t* name, Sweep sweep = notSwept);

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
  const wchar_t* const name;
  const bool refused_;
};

}  // namespace wb
