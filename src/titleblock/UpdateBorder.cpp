#include "titleblock/UpdateBorder.h"

#include <comdef.h>

#include "titleblock/UpdateBlocks.h"
#include "vault/CardData.h"
#include "vault/CheckedCall.h"
#include "vault/DrawingVaultContext.h"

namespace tessaro {

namespace {

/// The oldest client with card variables.
constexpr long requiredMajor = 5, requiredMinor = 0;

void updateFromCard(AppContext& app, const DrawingVaultContext& drawing, bool currentLayoutOnly) {
  const VaultCardDataPtr card = cardDataOf(drawing.file);
  const CardVariables variables(card, idOf(drawing.folder));
  if (variables.count() > 0) {
    UpdateBlocks(app, drawing.client, drawing.database, variables, currentLayoutOnly);
  }
}

}  // namespace

void UpdateBorder(AppContext& app, bool currentLayoutOnly) {
  DrawingVaultContext drawing;
  if (FAILED(OpenVaultContext(app, drawing, requiredMajor, requiredMinor))) return;
  try {
    updateFromCard(app, drawing, currentLayoutOnly);
  } catch (const _com_error& error) {
    reportBorderError(app, drawing.client, error);
  }
}

}  // namespace tessaro
