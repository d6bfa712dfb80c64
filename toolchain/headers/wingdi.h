// What newer Windows has.
#pragma once
#include_next <wingdi.h>

#ifndef CAPTUREBLT
#define CAPTUREBLT 0x40000000
#endif
