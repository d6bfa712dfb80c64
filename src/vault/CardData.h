#pragma once

#include <functional>
#include <memory>

#include "foundation/CString.h"
#include "vault/VaultInterfaces.h"

namespace tessaro {

/// The data card of a file.
/// @throws _com_error
VaultCardDataPtr cardDataOf(VaultFileLegacy* file);

/// The variables of a data card, released with their holder, and the array that they came in.
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

/// Visits the mappings of a variable in the client's order.
/// @throws _com_error
void forEachMapping(VaultCardVariable* variable,
                    const std::function<void(VaultAttributeMapping*)>& visit);

/// @throws _com_error
CString blockNameOf(VaultAttributeMapping* mapping);
CString attributeTagOf(VaultAttributeMapping* mapping);

/// The value of a variable in one configuration, of any type.
/// @throws _com_error
_variant_t valueFor(VaultCardVariable* variable, const _bstr_t& configuration);

}  // namespace tessaro
