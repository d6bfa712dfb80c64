#include "foundation/FailureBox.h"

#include <iterator>

#include "foundation/AppMessageBox.h"

namespace tessaro {

namespace {

/// Writes Windows' message for the code, without a line break at its end.
/// @param room the number of characters that fit; a longer message fails and the code is written
void appendSystemMessage(wchar_t* text, int room, HRESULT code) noexcept {
  constexpr DWORD language = MAKELANGID(LANG_NEUTRAL, SUBLANG_DEFAULT);
  DWORD length =
      FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                     static_cast<DWORD>(code), language, text, static_cast<DWORD>(room), nullptr);
  while (length > 0 && (text[length - 1] == L'\n' || text[length - 1] == L'\r')) text[--length] = 0;
  if (length == 0) wsprintfW(text, L"Unknown error 0x%0lX", code);
}

}  // namespace

void plainFailureBox(const wchar_t* context, HRESULT code) noexcept {
  constexpr int contextRoom = 512;
  wchar_t text[2 * contextRoom] = {};
  int length = 0;
  if (context != nullptr) {
    lstrcpynW(text, context, contextRoom - 1);
    length = lstrlenW(text);
    text[length++] = L'\n';
  }
  appendSystemMessage(text + length, static_cast<int>(std::size(text)) - length, code);
  appMessageBox(text, MB_ICONINFORMATION);
}

}  // namespace tessaro
