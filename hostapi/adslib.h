#pragma once

#include "acedads.h"
#include "adscodes.h"
#include "adsdef.h"
