#pragma once

#include "acarray.h"
#include "dbid.h"

typedef AcArray<AcDbObjectId, AcArrayMemCopyReallocator<AcDbObjectId>> AcDbObjectIdArray;
