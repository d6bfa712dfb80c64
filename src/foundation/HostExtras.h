#pragma once

#include <AdAChar.h>

// Functions that the host exports but its headers don't declare, or only in a header that needs
// MFC.

class AcDbDatabase;

/// Sets the database's DBMOD, the mark of unsaved changes. Closing a drawing asks to save by it.
/// @param newValue 0 for no changes
/// @return the previous value
long acdbSetDbmod(AcDbDatabase* database, long newValue);

/// Shows a progress meter in the host's status bar.
/// @return 0 on success
int acedSetStatusBarProgressMeter(const ACHAR* label, int min, int max);

/// Moves the meter.
/// @param position within the meter's range
int acedSetStatusBarProgressMeterPos(int position);

/// Removes the meter.
void acedRestoreStatusBar();
