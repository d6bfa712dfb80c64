#include "client/FileMenu.h"

#include "client/CheckInDialog.h"
#include "client/ClientCall.h"
#include "client/FileObject.h"
#include "client/Results.h"
#include "client/TextTable.h"
#include "core/ResultNames.h"
#include "core/Text.h"
#include "store/Store.h"

namespace wb {
namespace {

std::wstring fileNameIn(const std::wstring& path) { return path.substr(path.rfind(L'\\') + 1); }

std::wstring verbOf(const CMINVOKECOMMANDINFO& command) {
  // A number in place of a name is a position in a menu that QueryContextMenu never made.
  if (IS_INTRESOURCE(command.lpVerb)) return {};
  const int size = MultiByteToWideChar(CP_ACP, 0, command.lpVerb, -1, nullptr, 0);
  if (size <= 0) return {};
  std::wstring verb(static_cast<size_t>(size), L'\0');
  MultiByteToWideChar(CP_ACP, 0, command.lpVerb, -1, verb.data(), size);
  verb.resize(static_cast<size_t>(size) - 1);
  return verb;
}

/// Why a file can't be checked in here and now; S_OK if it can.
HRESULT checkInObstacle(const std::wstring& path) {
  try {
    store().requireHeldHere(path);
    return S_OK;
  } catch (const StoreError& error) {
    return error.code();
  }
}

void showFailure(HWND owner, const std::wstring& path, HRESULT failure) {
  std::wstring text = ClientTexts::errorText(failure);
  if (text.empty()) text = resultName(failure);
  MessageBoxW(owner, text.c_str(), (L"Check in " + fileNameIn(path)).c_str(),
              MB_OK | MB_ICONWARNING);
}

HRESULT checkIn(const std::wstring& path, const CheckInChoice& choice) {
  return ClientCall(L"VaultFile.checkIn")
      .with(L"name", fileNameIn(path).c_str())
      .with(L"comment", choice.comment.c_str())
      .with(L"keep", choice.keepCheckedOut ? 1L : 0L)
      .runVoid([&] { store().checkIn(path, choice.comment, choice.keepCheckedOut); });
}

HRESULT unlock(HWND owner, const std::wstring& path) {
  HRESULT outcome = checkInObstacle(path);
  if (SUCCEEDED(outcome)) {
    const auto choice = askForCheckIn(owner, fileNameIn(path));
    if (!choice) return E_QVT_CANCELLED_BY_USER;
    outcome = checkIn(path, *choice);
  }
  if (FAILED(outcome)) showFailure(owner, path, outcome);
  return outcome;
}

class FileMenuPart : public Plain<IContextMenu> {
 public:
  explicit FileMenuPart(const std::wstring& path) : path(path) {}

  STDMETHODIMP InvokeCommand(LPCMINVOKECOMMANDINFO command) override {
    if (!command || command->cbSize < sizeof(CMINVOKECOMMANDINFO)) return E_INVALIDARG;
    const std::wstring verb = verbOf(*command);
    return ClientCall(L"IContextMenu.InvokeCommand")
        .with(L"verb", verb.c_str())
        .with(L"file", fileNameIn(path).c_str())
        .run([&] {
          if (!sameName(verb, L"Unlock")) throw ClientFailure(E_INVALIDARG);
          return unlock(command->hwnd, path);
        });
  }

  STDMETHODIMP QueryContextMenu(HMENU, UINT, UINT, UINT, UINT) override { return E_NOTIMPL; }
  STDMETHODIMP GetCommandString(UINT_PTR, UINT, UINT*, LPSTR, UINT) override { return E_NOTIMPL; }

 private:
  std::wstring path;
};

}  // namespace

Owned<IContextMenu> fileMenu(const std::wstring& path) {
  return make<ComObject<FileMenuPart>, IContextMenu>(namedLabel(L"menu of", fileNameIn(path)),
                                                     path);
}

}  // namespace wb
