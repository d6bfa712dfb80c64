#pragma once

#include <AdAChar.h>

// What the host exports but its headers don't declare, or only in a header that needs MFC.

class AcDbDatabase;

/// Sets the database's DBMOD, the mark of unsaved changes that the closing of a drawing looks at.
/// @param newValue 0 for no changes
/// @return the value before
long acdbSetDbmod(AcDbDatabase* database, long newValue);

/// Puts a progress meter into the host's status bar.
/// @return 0 if the meter was made
int acedSetStatusBarProgressMeter(const ACHAR* label, int min, int max);

/// Moves the meter to a position from its range.
int acedSetStatusBarProgressMeterPos(int position);

/// Takes the meter away.
void acedRestoreStatusBar();
