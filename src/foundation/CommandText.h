#pragma once

#include "foundation/AppContext.h"
#include "foundation/CString.h"

class AcApDocument;

namespace tessaro {

/// Builds the text that runs one of the module's own commands at the host's command line: an
/// underscore, the global name, and a blank in place of the Enter key.
/// @param command one of `commands`, with the command's input behind it if it has any
CString commandText(const AppContext& app, const CString& command);

/// Queues a text for a document's command line (AcApDocManager::sendStringToExecute): the document
/// is activated and the text echoed.
void sendToCommandLine(AcApDocument* document, const CString& text);

}  // namespace tessaro
