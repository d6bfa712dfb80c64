#pragma once

#include <windows.h>

#include <comdef.h>
#include <shobjidl.h>

#include "TessaroClient.h"

namespace tessaro {

// Reference-counting holders of the client's interfaces. A call on a null one throws E_POINTER.
_COM_SMARTPTR_TYPEDEF(VaultClient, __uuidof(VaultClient));
_COM_SMARTPTR_TYPEDEF(VaultClientLegacy, __uuidof(VaultClientLegacy));
_COM_SMARTPTR_TYPEDEF(VaultObject, __uuidof(VaultObject));
_COM_SMARTPTR_TYPEDEF(VaultFile, __uuidof(VaultFile));
_COM_SMARTPTR_TYPEDEF(VaultFileLegacy, __uuidof(VaultFileLegacy));
_COM_SMARTPTR_TYPEDEF(VaultFolder, __uuidof(VaultFolder));
_COM_SMARTPTR_TYPEDEF(VaultFolderLegacy, __uuidof(VaultFolderLegacy));
_COM_SMARTPTR_TYPEDEF(VaultFolderActions, __uuidof(VaultFolderActions));
_COM_SMARTPTR_TYPEDEF(VaultVersionList, __uuidof(VaultVersionList));
_COM_SMARTPTR_TYPEDEF(VaultPosition, __uuidof(VaultPosition));
_COM_SMARTPTR_TYPEDEF(VaultCardData, __uuidof(VaultCardData));
_COM_SMARTPTR_TYPEDEF(VaultCardVariable, __uuidof(VaultCardVariable));
_COM_SMARTPTR_TYPEDEF(VaultAttributeMapping, __uuidof(VaultAttributeMapping));
_COM_SMARTPTR_TYPEDEF(VaultRootFolderAccess, __uuidof(VaultRootFolderAccess));
_COM_SMARTPTR_TYPEDEF(VaultGate, __uuidof(VaultGate));
_COM_SMARTPTR_TYPEDEF(VaultQuery, __uuidof(VaultQuery));
_COM_SMARTPTR_TYPEDEF(VaultRowList, __uuidof(VaultRowList));
_COM_SMARTPTR_TYPEDEF(VaultTextService, __uuidof(VaultTextService));
_COM_SMARTPTR_TYPEDEF(IShellFolder, __uuidof(IShellFolder));

}  // namespace tessaro
