// The verbs of a file in the shell, and the dialog that asks how to check it in.

#include <algorithm>
#include <optional>

#include "client/ClientCall.h"
#include "client/Objects.h"
#include "client/resource.h"
#include "core/Text.h"

namespace wb {
namespace {

std::wstring fileNameIn(const std::wstring& path) { return path.substr(path.rfind(L'\\') + 1); }

/// Asks the user how to check a file in: the modal dialog "Check in <name>".
class CheckInDialog {
 public:
  explicit CheckInDialog(const std::wstring& path) : title(L"Check in " + fileNameIn(path)) {}

  const std::wstring title;
  std::wstring comment;
  bool keepCheckedOut = false;

  /// @param owner may be null
  /// @return false if the user cancelled
  /// @throws ClientFailure if Windows can't show the dialog
  bool run(HWND owner) {
    const INT_PTR closed = DialogBoxParamW(clientModule(), MAKEINTRESOURCEW(IDD_CHECK_IN), owner,
                                           &procedure, reinterpret_cast<LPARAM>(this));
    if (closed == -1) throw ClientFailure(HRESULT_FROM_WIN32(GetLastError()));
    return closed == IDOK;
  }

 private:
  static INT_PTR CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
      SetWindowLongPtrW(window, DWLP_USER, lParam);
      SetWindowTextW(window, reinterpret_cast<CheckInDialog*>(lParam)->title.c_str());
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

  void read(HWND window) {
    const HWND edit = GetDlgItem(window, IDC_COMMENT);
    comment.resize(static_cast<size_t>(GetWindowTextLengthW(edit)) + 1);
    comment.resize(static_cast<size_t>(
        GetWindowTextW(edit, comment.data(), static_cast<int>(comment.size()))));
    // A multi-line field breaks its lines with both characters, the vault with one.
    comment.erase(std::remove(comment.begin(), comment.end(), L'\r'), comment.end());
    keepCheckedOut = IsDlgButtonChecked(window, IDC_KEEP_CHECKED_OUT) == BST_CHECKED;
  }
};

std::wstring verbOf(const CMINVOKECOMMANDINFO& command) {
  // A number in place of a name is a position in a menu that QueryContextMenu never made.
  if (IS_INTRESOURCE(command.lpVerb)) return {};
  const int size = MultiByteToWideChar(CP_ACP, 0, command.lpVerb, -1, nullptr, 0);
  std::wstring verb(static_cast<size_t>(size), L'\0');
  MultiByteToWideChar(CP_ACP, 0, command.lpVerb, -1, verb.data(), size);
  return verb.c_str();
}

HRESULT checkIn(HWND owner, const std::wstring& path) {
  CheckInDialog dialog(path);
  HRESULT result = S_OK;
  try {
    store().requireHeldHere(path);
    if (!dialog.run(owner)) return E_QVT_CANCELLED_BY_USER;
    result = ClientCall(L"VaultFile.checkIn")
                 .with(L"name", fileNameIn(path).c_str())
                 .with(L"comment", dialog.comment.c_str())
                 .with(L"keep", dialog.keepCheckedOut ? 1L : 0L)
                 .run([&] { store().checkIn(path, dialog.comment, dialog.keepCheckedOut); });
  } catch (const StoreError& error) {
    result = error.code();
  }
  if (SUCCEEDED(result)) return result;
  std::wstring text = errorText(result);
  if (text.empty()) text = resultName(result);
  MessageBoxW(owner, text.c_str(), dialog.title.c_str(), MB_OK | MB_ICONWARNING);
  return result;
}

/// @see fileMenu; the state is the file's path
struct FileMenuPart : Plain<IContextMenu, std::wstring> {
  STDMETHODIMP InvokeCommand(LPCMINVOKECOMMANDINFO command) override {
    if (!command || command->cbSize < sizeof(CMINVOKECOMMANDINFO)) return E_INVALIDARG;
    const std::wstring verb = verbOf(*command);
    return call().with(L"verb", verb.c_str()).with(L"file", fileNameIn(state).c_str()).run([&] {
      if (!sameName(verb, L"Unlock")) throw ClientFailure(E_INVALIDARG);
      return checkIn(command->hwnd, state);
    });
  }

  STDMETHODIMP QueryContextMenu(HMENU, UINT, UINT, UINT, UINT) override { return E_NOTIMPL; }
  STDMETHODIMP GetCommandString(UINT_PTR, UINT, UINT*, LPSTR, UINT) override { return E_NOTIMPL; }
};

}  // namespace

Owned<IContextMenu> fileMenu(const std::wstring& path) {
  return make<IContextMenu, FileMenuPart>(namedLabel(L"menu of", fileNameIn(path)), path);
}

}  // namespace wb
