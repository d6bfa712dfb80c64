#pragma once

#include "foundation/AppContext.h"
#include "vault/VaultInterfaces.h"

namespace tessaro {

/// Reports a failed operation to the user: the context, and on the next line the cause in the words
/// of the client, or those of Windows if there is no client or it has none.
/// @param client the client that the operation ran on, may be null
/// @param context what the module was about to do
/// @return the error's code
/// @throws _com_error E_OUTOFMEMORY if there is no memory for the text; what the caller has to
/// finish
///   after a report belongs to a scoped object
HRESULT reportComError(AppContext& app, const VaultClientLegacyPtr& client, const _com_error& error,
                       const wchar_t* context);

/// The same with the current generation of the client.
HRESULT reportComErrorClient(AppContext& app, const VaultClientPtr& client, const _com_error& error,
                             const wchar_t* context);

}  // namespace tessaro
