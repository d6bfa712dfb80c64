#pragma once

#include <acadstrc.h>

#include <exception>
#include <optional>
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

/// Runs work that may raise a HostError.
/// @return its reason, nothing if the work succeeded
template <class Work>
std::optional<std::wstring> whyFailed(const Work& work) {
  try {
    work();
    return std::nullopt;
  } catch (const HostError& error) {
    return error.reason;
  }
}

}  // namespace wb
