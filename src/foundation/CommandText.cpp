#include "foundation/CommandText.h"

#include <acdocman.h>

namespace tessaro {

CString commandText(const AppContext& app, const CString& command) {
  return L"_" + app.prefix + L"_" + command + L" ";
}

void sendToCommandLine(AcApDocument* document, const CString& text) {
  const bool activate = true, wrapUpInactiveDoc = false, echoString = true;
  acDocManagerPtr()->sendStringToExecute(document, text.c_str(), activate, wrapUpInactiveDoc,
                                         echoString);
}

}  // namespace tessaro
