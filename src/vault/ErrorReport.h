#pragma once

#include "foundation/AppContext.h"
#include "vault/MessageStrings.h"
#include "vault/VaultInterfaces.h"

/// Tells the user of a failed operation: the context, and on the next line the cause in the words
/// of the client, or those of Windows if there is no client or it has none. Nothing is raised:
/// whoever reports has mostly to go on with what the failure mustn't keep from being done, such as
/// opening the drawing again, so that a lack of memory for the text costs its wording and no more.
/// @param client the client that the operation ran on, may be null
/// @param context what the module was about to do
/// @return the error's code
HRESULT reportComError(AppContext& app, const VaultClientLegacyPtr& client, const _com_error& error,
                       const wchar_t* context);

HRESULT reportComError(AppContext& app, const VaultClientLegacyPtr& client, const _com_error& error,
                       const Message& context);

/// The same with the current generation of the client.
HRESULT reportComErrorClient(AppContext& app, const VaultClientPtr& client, const _com_error& error,
                             const wchar_t* context);
HRESULT reportComErrorClient(AppContext& app, const VaultClientPtr& client, const _com_error& error,
                             const Message& context);
