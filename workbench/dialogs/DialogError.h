#pragma once

#include <exception>
#include <string>

namespace wb {

/// Something that can't be done on the screen: a control isn't there, a picture can't be written.
class DialogError : public std::exception {
 public:
  explicit DialogError(std::wstring reason) : reason(std::move(reason)) {}

  const char* what() const noexcept override { return "it can't be done on the screen"; }

  std::wstring reason;
};

}  // namespace wb
