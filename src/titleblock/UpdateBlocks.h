#pragma once

#include <comdef.h>

#include "foundation/AppContext.h"
#include "foundation/CString.h"
#include "vault/CardData.h"
#include "vault/VaultInterfaces.h"

class AcDbBlockReference;
class AcDbBlockTableRecord;
class AcDbDatabase;

namespace tessaro {

/// Writes the variables' values along all their mappings into the references of the named blocks.
/// A vault failure is reported and ends the run; what was written stays written.
/// @param client words the failure.
void UpdateBlocks(AppContext& app, const VaultClientLegacyPtr& client, AcDbDatabase* database,
                  const CardVariables& variables, bool currentLayoutOnly);

/// Writes one variable into every reference of `block` that lies directly on a layout. The
/// layout's name is the vault's name of the configuration.
/// @param block open for read.
/// @param pattern tag of the attribute (see MatchTag).
/// @throws _com_error if the vault doesn't give the value.
void UpdateBlockReferences(AcDbBlockTableRecord& block, const CString& pattern,
                           VaultCardVariable* variable, bool currentLayoutOnly,
                           AcDbDatabase* database);

/// Writes `value` into the first attribute of `reference` whose tag matches.
/// @param reference open for write.
/// @return true if an attribute matched and took the value.
bool SetAttributeValue(AcDbBlockReference& reference, const CString& pattern, const wchar_t* value,
                       AcDbDatabase* database);

/// Reports a vault failure of the title block update in a box.
void reportBorderError(AppContext& app, const VaultClientLegacyPtr& client,
                       const _com_error& error);

}  // namespace tessaro
