#pragma once

#include <windows.h>

#include <stdexcept>
#include <string>

#include "core/ResultCodes.h"

namespace wb {

/// A failure of an operation. A text that isn't empty reaches the caller as the thread's error
/// object (SetErrorInfo).
class ClientFailure : public std::exception {
 public:
  explicit ClientFailure(HRESULT code, std::wstring text = {})
      : code(code), text(std::move(text)) {}

  const char* what() const noexcept override { return "the client refused the operation"; }

  HRESULT code;
  std::wstring text;
};

}  // namespace wb
