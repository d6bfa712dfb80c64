#include "vault/VaultSteps.h"

#include "foundation/AppMessageBox.h"
#include "vault/Messages.h"

namespace tessaro {

void reportClientMissing() {
  appMessageBox(loadMessage(messages::clientMissing), MB_ICONINFORMATION);
}

}  // namespace tessaro
