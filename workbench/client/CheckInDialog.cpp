#include "client/CheckInDialog.h"

#include "client/resource.h"
#include "client/Results.h"
#include "client/TypeLibrary.h"

namespace wb {
namespace {

class CheckInDialog {
 public:
  explicit CheckInDialog(const std::wstring& fileName) : fileName(fileName) {}

  std::optional<CheckInChoice> run(HWND owner) {
    const INT_PTR closed = DialogBoxParamW(clientModule(), MAKEINTRESOURCEW(IDD_CHECK_IN), owner,
                                           &procedure, reinterpret_cast<LPARAM>(this));
    if (closed == -1) throw ClientFailure(HRESULT_FROM_WIN32(GetLastError()));
    if (closed != IDOK) return std::nullopt;
    return choice;
  }

 private:
  static INT_PTR CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
      SetWindowLongPtrW(window, DWLP_USER, lParam);
      reinterpret_cast<CheckInDialog*>(lParam)->init(window);
      return TRUE;
    }
    const auto self = reinterpret_cast<CheckInDialog*>(GetWindowLongPtrW(window, DWLP_USER));
    if (!self || message != WM_COMMAND) return FALSE;
    const WORD id = LOWORD(wParam);
    if (id != IDOK && id != IDCANCEL) return FALSE;
    if (id == IDOK) self->read(window);
    EndDialog(window, id);
    return TRUE;
  }

  void init(HWND window) const {
    SetWindowTextW(window, (L"Check in " + fileName).c_str());
    centre(window);
  }

  static void centre(HWND window) {
    const HWND owner = GetWindow(window, GW_OWNER);
    RECT area = {};
    // An owner without an extent, as a hidden or minimised one, is no place to be centred on.
    if (!owner || !GetWindowRect(owner, &area) || IsRectEmpty(&area)) {
      SystemParametersInfoW(SPI_GETWORKAREA, 0, &area, 0);
    }
    RECT own = {};
    GetWindowRect(window, &own);
    const int x = area.left + ((area.right - area.left) - (own.right - own.left)) / 2;
    const int y = area.top + ((area.bottom - area.top) - (own.bottom - own.top)) / 2;
    SetWindowPos(window, nullptr, x > 0 ? x : 0, y > 0 ? y : 0, 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
  }

  void read(HWND window) {
    const HWND edit = GetDlgItem(window, IDC_COMMENT);
    std::wstring text(static_cast<size_t>(GetWindowTextLengthW(edit)) + 1, L'\0');
    text.resize(
        static_cast<size_t>(GetWindowTextW(edit, text.data(), static_cast<int>(text.size()))));
    choice.comment.clear();
    // A multi-line field breaks its lines with both characters, the vault with one.
    for (const wchar_t letter : text) {
      if (letter != L'\r') choice.comment += letter;
    }
    choice.keepCheckedOut = IsDlgButtonChecked(window, IDC_KEEP_CHECKED_OUT) == BST_CHECKED;
  }

  const std::wstring& fileName;
  CheckInChoice choice;
};

}  // namespace

std::optional<CheckInChoice> askForCheckIn(HWND owner, const std::wstring& fileName) {
  return CheckInDialog(fileName).run(owner);
}

}  // namespace wb
