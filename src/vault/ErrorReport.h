#pragma once

#include "foundation/AppContext.h"
#include "vault/VaultInterfaces.h"

namespace tessaro {

/// Reports a failed operation in a box: the context, and on the next line the cause. The cause is
/// the client's text, or Windows' if there is no client or it has none.
/// @param client the client that the operation ran on, may be null
/// @param context what the module was doing
/// @return the error's code
/// @throws _com_error E_OUTOFMEMORY if there is no memory for the text. A caller that has to clean
/// up after a report does it in a destructor.
HRESULT reportComError(AppContext& app, const VaultClientLegacyPtr& client, const _com_error& error,
                       const wchar_t* context);

/// The same with the current generation of the client.
HRESULT reportComErrorClient(AppContext& app, const VaultClientPtr& client, const _com_error& error,
                             const wchar_t* context);

/// Reports a failure in a box by the text of its result code alone.
/// @throws _com_error E_OUTOFMEMORY
void reportResultText(const _com_error& error);

}  // namespace tessaro
