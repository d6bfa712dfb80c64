#pragma once

#include <acadstrc.h>

#include <exception>
#include <string>

namespace wb {

/// Something that the host can't do. Where an application asked for it, the gate turns it into the
/// code; where the user did, the editor shows him the reason.
class HostError : public std::exception {
 public:
  explicit HostError(std::wstring reason, Acad::ErrorStatus code = Acad::eFilerError)
      : reason(std::move(reason)), code(code) {}

  const char* what() const noexcept override { return "the host can't do it"; }

  std::wstring reason;
  Acad::ErrorStatus code;
};

}  // namespace wb
