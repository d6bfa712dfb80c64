#include "vault/ErrorReport.h"

#include "foundation/AppMessageBox.h"
#include "vault/Messages.h"
#include "vault/ResultCodes.h"

namespace tessaro {

namespace {

template <class ClientPtr>
_bstr_t causeOf(const ClientPtr& client, const _com_error& error) {
  const HRESULT code = error.Error();
  // For these two the user can do something about the cause.
  if (code == E_QVT_RCE_ERROR || code == E_QVT_FILE_SHARE_ERROR) {
    return loadMessage(messages::fileOpenElsewhereAdvice);
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
    // The context is shown without a cause.
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

void reportResultText(const _com_error& error) {
  appMessageBox(resultCodeText(error.Error()), MB_ICONINFORMATION);
}

}  // namespace tessaro
