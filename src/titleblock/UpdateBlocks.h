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

/// Writes the values of all variables into the attributes of their mappings. A failure of the vault
/// is reported and ends the update; what was written stays.
/// @param client supplies the text of a failure
void UpdateBlocks(AppContext& app, const VaultClientLegacyPtr& client, AcDbDatabase* database,
                  const CardVariables& variables, bool currentLayoutOnly);

/// Writes one variable into every reference of `block` that is directly on a layout. The layout's
/// name is the name of the vault's configuration.
/// @param block open for read
/// @param pattern matches the attribute's tag (MatchTag)
/// @param currentLayoutOnly only references on the active layout
/// @throws _com_error if the vault fails to return the value
void UpdateBlockReferences(AcDbBlockTableRecord& block, const CString& pattern,
                           VaultCardVariable* variable, bool currentLayoutOnly,
                           AcDbDatabase* database);

/// Writes `value` into the first attribute of `reference` whose tag matches.
/// @param reference open for write
/// @return whether an attribute matched and was set
bool SetAttributeValue(AcDbBlockReference& reference, const CString& pattern, const wchar_t* value,
                       AcDbDatabase* database);

/// Reports a failure of the title block update in a box.
void reportBorderError(AppContext& app, const VaultClientLegacyPtr& client,
                       const _com_error& error);

}  // namespace tessaro
