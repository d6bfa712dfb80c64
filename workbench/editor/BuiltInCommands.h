#pragma once

namespace wb {

class CommandStack;

/// Adds the editor's own commands: CLOSE, NEW, OPEN, QSAVE, QUIT, SAVEAS.
void addBuiltInCommands(CommandStack& commands);

}  // namespace wb
