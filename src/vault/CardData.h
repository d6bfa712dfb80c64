#pragma once

#include <functional>
#include <memory>

#include "foundation/CString.h"
#include "vault/VaultInterfaces.h"

namespace tessaro {

/// @return the data card of a file
/// @throws _com_error
VaultCardDataPtr cardDataOf(VaultFileLegacy* file);

/// Owner of the variables of a data card and of their array.
class CardVariables {
 public:
  /// @param folderId the folder of the file
  /// @throws _com_error
  CardVariables(VaultCardData* card, long folderId);
  CardVariables(const CardVariables&) = delete;
  CardVariables& operator=(const CardVariables&) = delete;
  ~CardVariables();

  long count() const { return count_; }
  VaultCardVariable* operator[](long index) const { return variables[index]; }

 private:
  VaultCardVariable** variables = nullptr;
  long count_ = 0;
};

/// Calls `visit` for each mapping of a variable, in the client's order.
/// @throws _com_error
void forEachMapping(VaultCardVariable* variable,
                    const std::function<void(VaultAttributeMapping*)>& visit);

/// @return the name of the block that the mapping writes to
/// @throws _com_error
CString blockNameOf(VaultAttributeMapping* mapping);

/// @return the tag of the attribute that the mapping writes to
/// @throws _com_error
CString attributeTagOf(VaultAttributeMapping* mapping);

/// @return the value of a variable in one configuration, of any type
/// @throws _com_error
_variant_t valueFor(VaultCardVariable* variable, const _bstr_t& configuration);

}  // namespace tessaro
