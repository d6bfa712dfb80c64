#pragma once

namespace tessaro {

class TessaroAcadApp;

/// Adds the module's commands to the host's command stack, in the order of the table. If one fails,
/// the others are added all the same.
void addCommands(TessaroAcadApp& app);

}  // namespace tessaro
