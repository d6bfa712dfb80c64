#pragma once

#include <windows.h>

#include <stdexcept>
#include <string>

namespace wb {

/// The client's own result codes, as far as it makes use of them.
namespace result {
constexpr HRESULT loginFailed = static_cast<HRESULT>(0x80040200);
constexpr HRESULT notInitialized = static_cast<HRESULT>(0x80040201);
constexpr HRESULT permissionDenied = static_cast<HRESULT>(0x80040203);
constexpr HRESULT notLoggedIn = static_cast<HRESULT>(0x80040204);
constexpr HRESULT endOfList = static_cast<HRESULT>(0x80040208);
constexpr HRESULT fileNotLockedByYou = static_cast<HRESULT>(0x80040210);
constexpr HRESULT lockedByAnotherUser = static_cast<HRESULT>(0x80040212);
constexpr HRESULT fileNotFound = static_cast<HRESULT>(0x80040213);
constexpr HRESULT folderNotFound = static_cast<HRESULT>(0x80040214);
constexpr HRESULT lockedOnOtherComputer = static_cast<HRESULT>(0x80040215);
constexpr HRESULT invalidType = static_cast<HRESULT>(0x80040225);
constexpr HRESULT cancelledByUser = static_cast<HRESULT>(0x80040226);
constexpr HRESULT keyNotFound = static_cast<HRESULT>(0x8004022B);
constexpr HRESULT invalidQuery = static_cast<HRESULT>(0x80040230);
constexpr HRESULT cardNotFound = static_cast<HRESULT>(0x8004027E);
}  // namespace result

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
