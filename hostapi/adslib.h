#pragma once

#include "acedads.h"
#include "acutmem.h"
#include "adscodes.h"
#include "adsdef.h"
