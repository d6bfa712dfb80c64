#pragma once

#include "foundation/AppContext.h"
#include "foundation/CString.h"

class AcApDocument;

namespace tessaro {

/// The text that starts one of the module's own commands at the host's command line: the global
/// name behind an underscore, and the blank that stands for the Enter key.
/// @param command the command's given name, without the prefix; words behind it are its input.
CString commandText(const AppContext& app, const CString& command);

/// Queues `text` for `document`'s command line: the document is activated, the text echoed, and
/// the host takes it up when it is ready (AcApDocManager::sendStringToExecute).
void sendToCommandLine(AcApDocument* document, const CString& text);

}  // namespace tessaro
