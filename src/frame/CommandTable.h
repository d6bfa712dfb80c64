#pragma once

namespace tessaro {

class TessaroAcadApp;

/// Adds the module's commands to the host's command stack, in the order of the table. A command
/// that the host refuses doesn't keep the others out.
void addCommands(TessaroAcadApp& app);

}  // namespace tessaro
