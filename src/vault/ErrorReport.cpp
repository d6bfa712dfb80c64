#include "vault/ErrorReport.h"

#include "foundation/AppMessageBox.h"
#include "vault/MessageStrings.h"
#include "vault/ResultCodes.h"

namespace tessaro {

namespace {

template <class ClientPtr>
_bstr_t causeOf(const ClientPtr& client, const _com_error& error) {
  const HRESULT code = error.Error();
  // For these two the user can do something that the client doesn't know of.
  if (code == E_QVT_RCE_ERROR || code == E_QVT_FILE_SHARE_ERROR) {
    return loadMessage(18,
                       "Make sure the file or any of it's external references isn't opened in "
                       "another window.");
  }
  if (client) {
    _bstr_t text;
    client->errorText(code, 0, text.GetAddress());
    if (text.length() > 0) return text;
  }
  return systemMessage(code);
}

template <class ClientPtr>
HRESULT report(const ClientPtr& client, const _com_error& error, const wchar_t* context) {
  _bstr_t cause;
  try {
    cause = causeOf(client, error);
  } catch (const _com_error&) {
    // What the module was about to do is still worth showing.
  }
  appMessageBox(_bstr_t(context) + L"\n" + cause, MB_ICONINFORMATION);
  return error.Error();
}

}  // namespace

HRESULT reportComError(AppContext&, const VaultClientLegacyPtr& client, const _com_error& error,
                       const wchar_t* context) {
  return report(client, error, context);
}

HRESULT reportComErrorClient(AppContext&, const VaultClientPtr& client, const _com_error& error,
                             const wchar_t* context) {
  return report(client, error, context);
}

}  // namespace tessaro
