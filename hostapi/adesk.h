#pragma once

#include "AdAChar.h"

/// The host's basic types. `long` is avoided: it stays 32 bits on 64-bit Windows.
struct Adesk {
  typedef signed char Int8;
  typedef unsigned char UInt8;
  typedef short Int16;
  typedef unsigned short UInt16;
  typedef int Int32;
  typedef unsigned int UInt32;
  typedef long long Int64;
  typedef unsigned long long UInt64;
  typedef long long LongPtr;
  typedef unsigned long long ULongPtr;
  typedef long long IntPtr;
  typedef IntPtr GsMarker;
  typedef int Boolean;
  enum { kFalse = 0, kTrue = 1 };
};
