#pragma once

#include "Workshop.h"

namespace bench {

// The rows of the table, each measured and printed by one routine.

void checkOfXrefs(Workshop& workshop);
void batchAgainstFileByFile(Workshop& workshop);
void activation(Workshop& workshop);
void editGuard(Workshop& workshop);
void statusQuery(Workshop& workshop);
void checkOut(Workshop& workshop);
void titleBlock(Workshop& workshop);
void moduleLoad(Workshop& workshop);

}  // namespace bench
